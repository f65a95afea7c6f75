#include "generic/status.h"

#include "host/models/siblings.h"
#include "host/zol/generic/access_kinds.h"
#include "schema/constructor_args.h"

namespace Hardware::Ucd9012 {

Zol::Ptr<Zol::GenericIf> Status::GenericIf_::genericIfListConstructor(Zol::GenericIf const* list) {
  Zol::ArgumentList arguments(list);
  auto const name = arguments.next<Zol::Name>("name");
  arguments.requireEnd("Status");
  return Zol::ZolType::genericIf(statusFactory(name).get(), false);
}

Zol::AccessLevel const* Status::GenericIf_::level() const {
  using Model = Status;
  using Generic = GenericIf_;
  static constexpr Zol::AccessRow kRows[] = {
#include "host/zol/generic/stamp_access_rows.h"
#include "schema/status.def"
  };
  static constexpr Zol::AccessLevel kLevel{kRows};
  return &kLevel;
}

}  // namespace Hardware::Ucd9012
