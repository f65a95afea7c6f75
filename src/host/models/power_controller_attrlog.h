// The stream adapters of the base model's controllers.
#pragma once

#include "host/models/power_controller.h"
#include "host/zol/attrlog/entity_adapter.h"

namespace Hardware::PowerController {

// Found beside the enumerations by whoever reads one from a stream.
[[nodiscard]] inline ControllerConfig::ControllerState enumeratorOf(
    unsigned int number, ControllerConfig::ControllerState) {
  return ControllerConfig::ControllerStateInstance(number);
}
[[nodiscard]] inline ControllerStatus::ControllerState enumeratorOf(
    unsigned int number, ControllerStatus::ControllerState) {
  return ControllerStatus::ControllerStateInstance(number);
}

// Each replicates what the base model adds to a controller. Controllers are made by derived
// classes, whose adapters derive from these.
class ZOL_EXPORT ControllerConfig::ZolNboAttrLogSa : public Zol::NboAttrLog::EntityAdapter {
 public:
  class ZolNboAttrLogSaAdapter_;
  using FlowOut = Zol::NboAttrLog::LevelFlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<ControllerConfig> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "host/models/power_controller_config.def"

 protected:
  [[nodiscard]] static Zol::NboAttrLog::LogLevel const& level();
};

class ZOL_EXPORT ControllerStatus::ZolNboAttrLogSa : public Zol::NboAttrLog::EntityAdapter {
 public:
  class ZolNboAttrLogSaAdapter_;
  using FlowOut = Zol::NboAttrLog::LevelFlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<ControllerStatus> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "host/models/power_controller_status.def"

 protected:
  [[nodiscard]] static Zol::NboAttrLog::LogLevel const& level();
};

}  // namespace Hardware::PowerController
