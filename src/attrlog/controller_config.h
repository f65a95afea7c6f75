// The stream adapter of ControllerConfig, and those of the chips, which add nothing to it.
#pragma once

#include "entities/psoc_controller_config.h"
#include "entities/ucd9012_controller_config.h"
#include "entities/ucd9032_controller_config.h"
#include "host/models/power_controller_attrlog.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT ControllerConfig::ZolNboAttrLogSa
    : public Hardware::PowerController::ControllerConfig::ZolNboAttrLogSa {
 public:
  class ZolNboAttrLogSaAdapter_;
  using FlowOut = Zol::NboAttrLog::LevelFlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<ControllerConfig> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
  void doSerializeOrphan() override;

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "schema/controller_config.def"

 protected:
  [[nodiscard]] static Zol::NboAttrLog::LogLevel const& level();
};

// The adapter of a chip's controller: one more listener, whose slots are those of the base.
template <class Chip>
class ChipConfigAdapter : public ControllerConfig::ZolNboAttrLogSa {
 public:
  class ZolNboAttrLogSaAdapter_;

  ChipConfigAdapter(Zol_BitSet flags, Zol::Ptr<Chip> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
};

class ZOL_EXPORT Ucd9012ControllerConfig::ZolNboAttrLogSa final
    : public ChipConfigAdapter<Ucd9012ControllerConfig> {
 public:
  using ChipConfigAdapter::ChipConfigAdapter;
};

class ZOL_EXPORT Ucd9032ControllerConfig::ZolNboAttrLogSa final
    : public ChipConfigAdapter<Ucd9032ControllerConfig> {
 public:
  using ChipConfigAdapter::ChipConfigAdapter;
};

class ZOL_EXPORT PsocControllerConfig::ZolNboAttrLogSa final
    : public ChipConfigAdapter<PsocControllerConfig> {
 public:
  using ChipConfigAdapter::ChipConfigAdapter;
};

}  // namespace Hardware::Ucd9012
