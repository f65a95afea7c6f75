// The stream adapter of Ucd9012DiagConfig.
#pragma once

#include "entities/ucd9012_diag_config.h"
#include "host/zol/attrlog/entity_adapter.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT Ucd9012DiagConfig::ZolNboAttrLogSa final : public Zol::NboAttrLog::EntityAdapter {
 public:
  class ZolNboAttrLogSaAdapter_;
  using FlowOut = Zol::NboAttrLog::LevelFlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<Ucd9012DiagConfig> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
  void doSerializeOrphan() override;

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "schema/ucd9012_diag_config.def"
};

}  // namespace Hardware::Ucd9012
