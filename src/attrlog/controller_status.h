// The stream adapter of ControllerStatus, and those of the chips, which add nothing to it.
#pragma once

#include "entities/psoc_controller_status.h"
#include "entities/ucd9012_controller_status.h"
#include "entities/ucd9032_controller_status.h"
#include "host/models/power_controller_attrlog.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT ControllerStatus::ZolNboAttrLogSa
    : public Hardware::PowerController::ControllerStatus::ZolNboAttrLogSa {
 public:
  class ZolNboAttrLogSaAdapter_;
  using FlowOut = Zol::NboAttrLog::LevelFlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<ControllerStatus> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
  void doSerializeOrphan() override;

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "schema/controller_status.def"

 protected:
  [[nodiscard]] static Zol::NboAttrLog::LogLevel const& level();
};

// The adapter of a chip's controller: one more listener, whose slots are those of the base.
template <class Chip>
class ChipStatusAdapter : public ControllerStatus::ZolNboAttrLogSa {
 public:
  class ZolNboAttrLogSaAdapter_;

  ChipStatusAdapter(Zol_BitSet flags, Zol::Ptr<Chip> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
};

class ZOL_EXPORT Ucd9012ControllerStatus::ZolNboAttrLogSa final
    : public ChipStatusAdapter<Ucd9012ControllerStatus> {
 public:
  using ChipStatusAdapter::ChipStatusAdapter;
};

class ZOL_EXPORT Ucd9032ControllerStatus::ZolNboAttrLogSa final
    : public ChipStatusAdapter<Ucd9032ControllerStatus> {
 public:
  using ChipStatusAdapter::ChipStatusAdapter;
};

class ZOL_EXPORT PsocControllerStatus::ZolNboAttrLogSa final
    : public ChipStatusAdapter<PsocControllerStatus> {
 public:
  using ChipStatusAdapter::ChipStatusAdapter;
};

}  // namespace Hardware::Ucd9012
