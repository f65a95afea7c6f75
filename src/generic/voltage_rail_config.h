// The generic objects of voltage rails.
#pragma once

#include "entities/voltage_rail_config.h"
#include "host/zol/generic/access_level.h"
#include "host/zol/reactor_adapter.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT VoltageRailConfig::GenericIf_ : public Zol::GenericIfEntity {
 public:
  class GenericIf_Adapter_ final
      : public Zol::ReactorAdapter<VoltageRailConfig::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;
#include "host/zol/generic/stamp_generic_forwards.h"
#include "schema/voltage_rail_config.def"
  };

  GenericIf_(VoltageRailConfig* entity, bool isConst)
      : GenericIfEntity(entity, isConst, VoltageRailConfig::_fwkType()) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }

#include "host/zol/generic/stamp_generic_slots.h"
#include "schema/voltage_rail_config.def"

  [[nodiscard]] GenericIf_Adapter_& ownAdapter() const { return adapter<GenericIf_Adapter_>(); }

 protected:
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

}  // namespace Hardware::Ucd9012
