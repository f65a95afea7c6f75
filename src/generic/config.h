// The generic objects of the configuration root.
#pragma once

#include "entities/config.h"
#include "host/zol/generic/access_level.h"
#include "host/zol/reactor_adapter.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT Config::GenericIf_ : public Zol::GenericIfEntity {
 public:
  class GenericIf_Adapter_ final : public Zol::ReactorAdapter<Config::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;
#include "host/zol/generic/stamp_generic_forwards.h"
#include "schema/config.def"
  };

  GenericIf_(Config* entity, bool isConst) : GenericIfEntity(entity, isConst, Config::_fwkType()) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }

  // A mutable object over a new root, from a list with its name alone. Throws as
  // `ZolType::genericIf( list )` says; an empty list lacks "name".
  [[nodiscard]] static Zol::Ptr<Zol::GenericIf> genericIfListConstructor(
      Zol::GenericIf const* list);

#include "host/zol/generic/stamp_generic_slots.h"
#include "schema/config.def"

  [[nodiscard]] GenericIf_Adapter_& ownAdapter() const { return adapter<GenericIf_Adapter_>(); }

 protected:
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

}  // namespace Hardware::Ucd9012
