// The generic objects of the entities of the diagnostic channel.
#pragma once

#include "entities/ucd9012_diag_config.h"
#include "entities/ucd9012_diag_mode_config.h"
#include "entities/ucd9012_diag_status.h"
#include "host/zol/generic/access_level.h"
#include "host/zol/reactor_adapter.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT Ucd9012DiagConfig::GenericIf_ : public Zol::GenericIfEntity {
 public:
  class GenericIf_Adapter_ final
      : public Zol::ReactorAdapter<Ucd9012DiagConfig::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;
#include "host/zol/generic/stamp_generic_forwards.h"
#include "schema/ucd9012_diag_config.def"
  };

  GenericIf_(Ucd9012DiagConfig* entity, bool isConst)
      : GenericIfEntity(entity, isConst, Ucd9012DiagConfig::_fwkType()) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }

#include "host/zol/generic/stamp_generic_slots.h"
#include "schema/ucd9012_diag_config.def"

  [[nodiscard]] GenericIf_Adapter_& ownAdapter() const { return adapter<GenericIf_Adapter_>(); }

 protected:
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

class ZOL_EXPORT Ucd9012DiagModeConfig::GenericIf_ : public Zol::GenericIfEntity {
 public:
  class GenericIf_Adapter_ final
      : public Zol::ReactorAdapter<Ucd9012DiagModeConfig::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;
#include "host/zol/generic/stamp_generic_forwards.h"
#include "schema/ucd9012_diag_mode_config.def"
  };

  GenericIf_(Ucd9012DiagModeConfig* entity, bool isConst)
      : GenericIfEntity(entity, isConst, Ucd9012DiagModeConfig::_fwkType()) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }

#include "host/zol/generic/stamp_generic_slots.h"
#include "schema/ucd9012_diag_mode_config.def"

  [[nodiscard]] GenericIf_Adapter_& ownAdapter() const { return adapter<GenericIf_Adapter_>(); }

 protected:
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

class ZOL_EXPORT Ucd9012DiagStatus::GenericIf_ : public Zol::GenericIfEntity {
 public:
  class GenericIf_Adapter_ final
      : public Zol::ReactorAdapter<Ucd9012DiagStatus::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;
#include "host/zol/generic/stamp_generic_forwards.h"
#include "schema/ucd9012_diag_status.def"
  };

  GenericIf_(Ucd9012DiagStatus* entity, bool isConst)
      : GenericIfEntity(entity, isConst, Ucd9012DiagStatus::_fwkType()) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }

#include "host/zol/generic/stamp_generic_slots.h"
#include "schema/ucd9012_diag_status.def"

  [[nodiscard]] GenericIf_Adapter_& ownAdapter() const { return adapter<GenericIf_Adapter_>(); }

 protected:
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

}  // namespace Hardware::Ucd9012
