#include "generic/diagnostics.h"

#include "host/models/siblings.h"
#include "host/zol/generic/access_kinds.h"
#include "schema/constructor_args.h"

namespace Hardware::Ucd9012 {

Zol::AccessLevel const* Ucd9012DiagConfig::GenericIf_::level() const {
  using Model = Ucd9012DiagConfig;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "schema/ucd9012_diag_config.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return &kLevel;
}

Zol::AccessLevel const* Ucd9012DiagModeConfig::GenericIf_::level() const {
  using Model = Ucd9012DiagModeConfig;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "schema/ucd9012_diag_mode_config.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return &kLevel;
}

Zol::AccessLevel const* Ucd9012DiagStatus::GenericIf_::level() const {
  using Model = Ucd9012DiagStatus;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "schema/ucd9012_diag_status.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return &kLevel;
}

}  // namespace Hardware::Ucd9012
