// The generic objects of the base model's controllers.
#pragma once

#include "host/models/power_controller.h"
#include "host/zol/generic/access_level.h"
#include "host/zol/reactor_adapter.h"

namespace Hardware::PowerController {

class ZOL_EXPORT ControllerConfig::GenericIf_ : public Zol::GenericIfEntity {
 public:
  class GenericIf_Adapter_ final
      : public Zol::ReactorAdapter<ControllerConfig::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;
#include "host/zol/generic/stamp_generic_forwards.h"
#include "host/models/power_controller_config.def"
  };

  GenericIf_(ControllerConfig* entity, bool isConst)
      : GenericIf_(entity, isConst, ControllerConfig::_fwkType()) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }

#include "host/zol/generic/stamp_generic_slots.h"
#include "host/models/power_controller_config.def"

 protected:
  // For a class below, which makes its own notification half.
  GenericIf_(ControllerConfig* entity, bool isConst, Zol::ZolType* type)
      : GenericIfEntity(entity, isConst, type) {}
  [[nodiscard]] Zol::AccessLevel const* level() const override { return &accessLevel(); }
  [[nodiscard]] static Zol::AccessLevel const& accessLevel();
};

class ZOL_EXPORT ControllerStatus::GenericIf_ : public Zol::GenericIfEntity {
 public:
  class GenericIf_Adapter_ final
      : public Zol::ReactorAdapter<ControllerStatus::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;
#include "host/zol/generic/stamp_generic_forwards.h"
#include "host/models/power_controller_status.def"
  };

  GenericIf_(ControllerStatus* entity, bool isConst)
      : GenericIf_(entity, isConst, ControllerStatus::_fwkType()) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }

#include "host/zol/generic/stamp_generic_slots.h"
#include "host/models/power_controller_status.def"

 protected:
  // For a class below, which makes its own notification half.
  GenericIf_(ControllerStatus* entity, bool isConst, Zol::ZolType* type)
      : GenericIfEntity(entity, isConst, type) {}
  [[nodiscard]] Zol::AccessLevel const* level() const override { return &accessLevel(); }
  [[nodiscard]] static Zol::AccessLevel const& accessLevel();
};

}  // namespace Hardware::PowerController
