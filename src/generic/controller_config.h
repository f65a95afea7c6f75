// The generic objects of controllers' configuration.
#pragma once

#include "entities/psoc_controller_config.h"
#include "entities/ucd9012_controller_config.h"
#include "entities/ucd9032_controller_config.h"
#include "host/models/power_controller_generic.h"
#include "host/zol/generic/access_level.h"
#include "host/zol/reactor_adapter.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT ControllerConfig::GenericIf_
    : public Hardware::PowerController::ControllerConfig::GenericIf_ {
 public:
  class GenericIf_Adapter_ final
      : public Zol::ReactorAdapter<ControllerConfig::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;

#include "host/zol/generic/stamp_generic_forwards.h"
#include "host/models/power_controller_config.def"

#include "host/zol/generic/stamp_generic_forwards.h"
#include "schema/controller_config.def"
  };

  GenericIf_(ControllerConfig* entity, bool isConst)
      : GenericIf_(entity, isConst, ControllerConfig::_fwkType()) {}

#include "host/zol/generic/stamp_generic_slots.h"
#include "schema/controller_config.def"

  [[nodiscard]] GenericIf_Adapter_& ownAdapter() const { return adapter<GenericIf_Adapter_>(); }

 protected:
  // For a chip's class, which adds no attribute.
  GenericIf_(ControllerConfig* entity, bool isConst, Zol::ZolType* type)
      : Hardware::PowerController::ControllerConfig::GenericIf_(entity, isConst, type) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

class ZOL_EXPORT Ucd9012ControllerConfig::GenericIf_ : public ControllerConfig::GenericIf_ {
 public:
  GenericIf_(Ucd9012ControllerConfig* entity, bool isConst)
      : ControllerConfig::GenericIf_(entity, isConst, Ucd9012ControllerConfig::_fwkType()) {}
};

class ZOL_EXPORT Ucd9032ControllerConfig::GenericIf_ : public ControllerConfig::GenericIf_ {
 public:
  GenericIf_(Ucd9032ControllerConfig* entity, bool isConst)
      : ControllerConfig::GenericIf_(entity, isConst, Ucd9032ControllerConfig::_fwkType()) {}
};

class ZOL_EXPORT PsocControllerConfig::GenericIf_ : public ControllerConfig::GenericIf_ {
 public:
  GenericIf_(PsocControllerConfig* entity, bool isConst)
      : ControllerConfig::GenericIf_(entity, isConst, PsocControllerConfig::_fwkType()) {}
};

}  // namespace Hardware::Ucd9012
