#include "host/models/power_controller_generic.h"

#include "host/models/siblings.h"
#include "host/zol/generic/access_kinds.h"

namespace Hardware::PowerController {

Zol::AccessLevel const& ControllerConfig::GenericIf_::accessLevel() {
  using Model = ControllerConfig;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "host/models/power_controller_config.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return kLevel;
}

Zol::AccessLevel const& ControllerStatus::GenericIf_::accessLevel() {
  using Model = ControllerStatus;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "host/models/power_controller_status.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return kLevel;
}

}  // namespace Hardware::PowerController
