// The generic objects of controllers' status.
#pragma once

#include "entities/psoc_controller_status.h"
#include "entities/ucd9012_controller_status.h"
#include "entities/ucd9032_controller_status.h"
#include "host/models/power_controller_generic.h"
#include "host/zol/generic/access_level.h"
#include "host/zol/reactor_adapter.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT ControllerStatus::GenericIf_
    : public Hardware::PowerController::ControllerStatus::GenericIf_ {
 public:
  class GenericIf_Adapter_ final
      : public Zol::ReactorAdapter<ControllerStatus::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;

#include "host/zol/generic/stamp_generic_forwards.h"
#include "host/models/power_controller_status.def"

#include "host/zol/generic/stamp_generic_forwards.h"
#include "schema/controller_status.def"
  };

  GenericIf_(ControllerStatus* entity, bool isConst)
      : GenericIf_(entity, isConst, ControllerStatus::_fwkType()) {}

#include "host/zol/generic/stamp_generic_slots.h"
#include "schema/controller_status.def"

  [[nodiscard]] GenericIf_Adapter_& ownAdapter() const { return adapter<GenericIf_Adapter_>(); }

 protected:
  // For a chip's class, which adds no attribute.
  GenericIf_(ControllerStatus* entity, bool isConst, Zol::ZolType* type)
      : Hardware::PowerController::ControllerStatus::GenericIf_(entity, isConst, type) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

class ZOL_EXPORT Ucd9012ControllerStatus::GenericIf_ : public ControllerStatus::GenericIf_ {
 public:
  GenericIf_(Ucd9012ControllerStatus* entity, bool isConst)
      : ControllerStatus::GenericIf_(entity, isConst, Ucd9012ControllerStatus::_fwkType()) {}
};

class ZOL_EXPORT Ucd9032ControllerStatus::GenericIf_ : public ControllerStatus::GenericIf_ {
 public:
  GenericIf_(Ucd9032ControllerStatus* entity, bool isConst)
      : ControllerStatus::GenericIf_(entity, isConst, Ucd9032ControllerStatus::_fwkType()) {}
};

class ZOL_EXPORT PsocControllerStatus::GenericIf_ : public ControllerStatus::GenericIf_ {
 public:
  GenericIf_(PsocControllerStatus* entity, bool isConst)
      : ControllerStatus::GenericIf_(entity, isConst, PsocControllerStatus::_fwkType()) {}
};

}  // namespace Hardware::Ucd9012
