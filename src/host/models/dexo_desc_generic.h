// The generic objects of the bus descriptors.
#pragma once

#include "host/models/dexo_desc.h"
#include "host/zol/generic/access_level.h"
#include "host/zol/reactor_adapter.h"

namespace SmbusDexo {

class ZOL_EXPORT DexoDesc::GenericIf_ : public Zol::GenericIfEntity {
 public:
  class GenericIf_Adapter_ final : public Zol::ReactorAdapter<DexoDesc::Notifiee, GenericIf_> {
   public:
    using ReactorAdapter::ReactorAdapter;
#include "host/zol/generic/stamp_generic_forwards.h"
#include "host/models/smbus_dexo_desc.def"
  };

  GenericIf_(DexoDesc* entity, bool isConst)
      : GenericIfEntity(entity, isConst, DexoDesc::_fwkType()) {
    adapterIs<GenericIf_Adapter_>(this, entity);
  }

#include "host/zol/generic/stamp_generic_slots.h"
#include "host/models/smbus_dexo_desc.def"

 protected:
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

}  // namespace SmbusDexo

namespace I2cDexo {

// Nothing of such a descriptor changes, so that it needs no notification half.
class ZOL_EXPORT DexoDesc::GenericIf_ : public Zol::GenericIfEntity {
 public:
  GenericIf_(DexoDesc* entity, bool isConst)
      : GenericIfEntity(entity, isConst, DexoDesc::_fwkType()) {}

 protected:
  [[nodiscard]] Zol::AccessLevel const* level() const override;
};

}  // namespace I2cDexo
