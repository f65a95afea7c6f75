// The stream adapter of the base model's ControllerConfig.
#pragma once

#include "host/models/power_controller.h"
#include "host/zol/attrlog/level_flow_out.h"
#include "host/zol/attrlog/parent_adapter.h"

namespace Hardware::PowerController {

// Found beside the enumeration by whoever reads one from a stream.
[[nodiscard]] inline ControllerConfig::ControllerState enumeratorOf(
    unsigned int number, ControllerConfig::ControllerState) {
  return ControllerConfig::ControllerStateInstance(number);
}

// Replicates what the base model adds to a controller. Controllers are made by derived classes,
// whose adapters derive from this one.
class ZOL_EXPORT ControllerConfig::ZolNboAttrLogSa : public Zol::NboAttrLog::ParentAdapter {
 public:
  class ZolNboAttrLogSaAdapter_;
  using FlowOut = Zol::NboAttrLog::LevelFlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<ControllerConfig> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
  ~ZolNboAttrLogSa() override;

  Zol::AttributeId handleAttrFlowOut(Zol::AttributeId id) override;
  void freeResyncState(Zol::Ptr<Zol::NboAttrLog::FlowOut> const& flow) override;
  void handleAttrDeserialization(Zol::AttributeId id, DeserializationOptions options,
                                 unsigned int size,
                                 Zol::Ptr<Zol::NboAttrLog::In> const& in) override;
  Zol::Ptr<Zol::NboAttrLog::FlowOut> flowOutIs(Zol::Ptr<Zol::NboAttrLog::Out> const& out,
                                               Zol::ConnectDesc const& desc, bool flag,
                                               Zol::AttributeId start) override;
  void doNotification(Zol::AttributeId id, void* key) override;

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "host/models/power_controller_config.def"

 protected:
  // The rows of this class and its bases.
  [[nodiscard]] static Zol::NboAttrLog::LogLevel const& level();
};

}  // namespace Hardware::PowerController
