#include "generic/controller_config.h"

#include "host/models/siblings.h"
#include "host/zol/generic/access_kinds.h"
#include "schema/constructor_args.h"

namespace Hardware::Ucd9012 {

Zol::AccessLevel const* ControllerConfig::GenericIf_::level() const {
  using Model = ControllerConfig;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "schema/controller_config.def"
  };
  // The base's rows come from another library, so the chain is joined at first use.
  static Zol::AccessLevel const level{
      kRows, &Hardware::PowerController::ControllerConfig::GenericIf_::accessLevel()};
  return &level;
}

}  // namespace Hardware::Ucd9012
