// The accessors of the type objects, which make each object on its first use.
#include "types/registration.h"
#include "types/type_objects.h"

namespace Hardware::Ucd9012 {

namespace {

template <class TypeClass>
constinit Zol::ZolType* object = nullptr;

// The registration fetches all type objects itself, so this one may exist once it has run. A
// finished object is never destroyed.
template <class TypeClass>
Zol::ZolType* typeObject() {
  if (object<TypeClass>) return object<TypeClass>;
  zolInitHwRailSeq();
  if (object<TypeClass>) return object<TypeClass>;
  object<TypeClass> = new TypeClass;
  object<TypeClass>->referencesLeak();
  if (Zol::ZolType* const base = object<TypeClass>->baseType()) {
    base->derivedTypeQEnq(object<TypeClass>);
  }
  return object<TypeClass>;
}

}  // namespace

#define ZOL_ENUM_TYPE(X) \
  Zol::ZolType* _fwkType_##X() { return typeObject<X##__Type>(); }
#define ZOL_ANY_TYPE(X) \
  Zol::ZolType* X::_fwkType() { return typeObject<X::_Type>(); }
#include "schema/types.def"

}  // namespace Hardware::Ucd9012
