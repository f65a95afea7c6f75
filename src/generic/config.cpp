#include "generic/config.h"

#include "host/models/siblings.h"
#include "host/zol/generic/access_kinds.h"
#include "schema/constructor_args.h"

namespace Hardware::Ucd9012 {

Zol::Ptr<Zol::GenericIf> Config::GenericIf_::genericIfListConstructor(Zol::GenericIf const* list) {
  Zol::ArgumentList arguments(list);
  auto const name = arguments.next<Zol::Name>("name");
  arguments.requireEnd("Config");
  return Zol::ZolType::genericIf(configFactory(name).get(), false);
}

Zol::AccessLevel const* Config::GenericIf_::level() const {
  using Model = Config;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "schema/config.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return &kLevel;
}

}  // namespace Hardware::Ucd9012
