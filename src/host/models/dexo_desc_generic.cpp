#include "host/models/dexo_desc_generic.h"

#include "host/zol/generic/access_kinds.h"

namespace SmbusDexo {

Zol::AccessLevel const* DexoDesc::GenericIf_::level() const {
  using Model = DexoDesc;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "host/models/smbus_dexo_desc.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return &kLevel;
}

}  // namespace SmbusDexo

namespace I2cDexo {

Zol::AccessLevel const* DexoDesc::GenericIf_::level() const {
  using Model = DexoDesc;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "host/models/i2c_dexo_desc.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return &kLevel;
}

}  // namespace I2cDexo
