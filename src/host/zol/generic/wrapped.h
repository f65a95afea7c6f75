// From typed values to generic objects and back.
#pragma once

#include "host/zol/entity.h"
#include "host/zol/generic/generic_if.h"
#include "host/zol/registry/type_of.h"
#include "host/zol/registry/zol_type.h"

namespace Zol {

// A generic object with a copy of the value.
template <class T>
[[nodiscard]] Ptr<GenericIf> wrapped(T const& value, bool isConst) {
  return typeOf<T>()->genericIf(static_cast<void const*>(&value), isConst);
}
// A generic object over the entity; for null, over no entity of the class `E`.
template <class E>
[[nodiscard]] Ptr<GenericIf> wrapped(Ptr<E> const& entity, bool isConst) {
  auto* const object = const_cast<std::remove_const_t<E>*>(entity.get());
  return object ? ZolType::genericIf(static_cast<PtrInterface*>(object), isConst)
                : typeOf<E>()->genericIf_(nullptr, isConst);
}

// The value in a generic object of the very type. Throws `TypeException` with the bare name of the
// object's own type.
template <class T>
[[nodiscard]] T const& unwrapped(GenericIf const& generic) {
  return *static_cast<T const*>(generic.voidPtrIs(typeOf<T>()));
}
// The entity in a generic object, which must be an `E`; null for null.
template <class E>
[[nodiscard]] Ptr<E> unwrappedEntity(GenericIf const* generic) {
  if (!generic) return nullptr;
  return dynamic_cast<E*>(static_cast<PtrInterface*>(generic->voidPtrIs(typeOf<E>())));
}

}  // namespace Zol
