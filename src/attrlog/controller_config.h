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
  ~ZolNboAttrLogSa() override;

  Zol::AttributeId handleAttrFlowOut(Zol::AttributeId id) override;
  void freeResyncState(Zol::Ptr<Zol::NboAttrLog::FlowOut> const& flow) override;
  void doSerializeOrphan() override;
  void handleAttrDeserialization(Zol::AttributeId id, DeserializationOptions options,
                                 unsigned int size,
                                 Zol::Ptr<Zol::NboAttrLog::In> const& in) override;
  Zol::Ptr<Zol::NboAttrLog::FlowOut> flowOutIs(Zol::Ptr<Zol::NboAttrLog::Out> const& out,
                                               Zol::ConnectDesc const& desc, bool flag,
                                               Zol::AttributeId start) override;
  void doNotification(Zol::AttributeId id, void* key) override;

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "schema/controller_config.def"

 protected:
  // The rows of this class and its base.
  [[nodiscard]] static Zol::NboAttrLog::LogLevel const& level();
};

// The adapter of a chip's controller: one more listener, whose slots are those of the base.
template <class Chip>
class ChipAdapter : public ControllerConfig::ZolNboAttrLogSa {
 public:
  class ZolNboAttrLogSaAdapter_;

  ChipAdapter(Zol_BitSet flags, Zol::Ptr<Chip> const& entity, unsigned int n,
              Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
};

class ZOL_EXPORT Ucd9012ControllerConfig::ZolNboAttrLogSa final
    : public ChipAdapter<Ucd9012ControllerConfig> {
 public:
  using ChipAdapter::ChipAdapter;
};

class ZOL_EXPORT Ucd9032ControllerConfig::ZolNboAttrLogSa final
    : public ChipAdapter<Ucd9032ControllerConfig> {
 public:
  using ChipAdapter::ChipAdapter;
};

class ZOL_EXPORT PsocControllerConfig::ZolNboAttrLogSa final
    : public ChipAdapter<PsocControllerConfig> {
 public:
  using ChipAdapter::ChipAdapter;
};

}  // namespace Hardware::Ucd9012
