// What happens when the library is loaded: its types become known to the process.
#include "host/zol/registry/type_of.h"
#include "host/zol/registry/zol_type.h"
#include "schema/types.h"
#include "types/all_classes.h"
#include "types/attr_cache.h"
#include "types/registration.h"

namespace Hardware::Ucd9012 {

namespace {

template <class X>
void enterType() {
  Zol::String8 const fullName = kFullName<X>;
  Zol::ZolType::typeNodeIs(Zol::typeOf<X>(), fullName);
}

template <class X>
void enterEntityType() {
  enterType<X>();
  fillAttrCache<X>();
}

struct LoadTime {
  // The first accessor runs the whole registration, so the attributes exist when they are cached.
  LoadTime() {
#define ZOL_ANY_TYPE(X) enterType<X>();
#define ZOL_ENTITY_TYPE(X, Base) enterEntityType<X>();
#include "schema/types.def"
    zolInitHwRailSeq();
  }
};

LoadTime const loadTime;

}  // namespace

}  // namespace Hardware::Ucd9012
