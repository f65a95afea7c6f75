#include "generic/voltage_rail_config.h"

#include "host/models/siblings.h"
#include "host/zol/generic/access_kinds.h"
#include "schema/constructor_args.h"

namespace Hardware::Ucd9012 {

Zol::AccessLevel const* VoltageRailConfig::GenericIf_::level() const {
  using Model = VoltageRailConfig;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "schema/voltage_rail_config.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return &kLevel;
}

}  // namespace Hardware::Ucd9012
