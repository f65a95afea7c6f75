// The stream adapter of Status.
#pragma once

#include "entities/status.h"
#include "host/zol/attrlog/entity_adapter.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT Status::ZolNboAttrLogSa final : public Zol::NboAttrLog::EntityAdapter {
 public:
  class ZolNboAttrLogSaAdapter_;
  using FlowOut = Zol::NboAttrLog::LevelFlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<Status> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
  void doSerializeOrphan() override;

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "schema/status.def"
};

}  // namespace Hardware::Ucd9012
