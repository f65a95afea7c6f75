// The type objects of entity classes that have a generic object of their own.
#pragma once

#include "host/zol/generic/generic_if.h"
#include "host/zol/registry/zol_type.h"
#include "host/zol/value_reading.h"

namespace Zol {

// A generic object of class `X::GenericIf_` over the object if it is an `X`, otherwise over none.
template <class X>
[[nodiscard]] Ptr<GenericIf> genericEntity(PtrInterface* object, bool isConst) {
  Ptr<GenericIf> const generic = new typename X::GenericIf_(dynamic_cast<X*>(object), isConst);
  generic->hasNotificationActiveIs(true);
  return generic;
}
// The same over the entity that a text refers to.
template <class X>
[[nodiscard]] Ptr<GenericIf> genericEntity(String8 const& text, bool isConst) {
  return genericEntity<X>(strepToValue<Ptr<X>>(text).get(), isConst);
}

// The type object of an entity class that no schema describes; `Base` is what else it can do.
template <class X, class Base = ZolType>
class EntityType final : public Base {
 public:
  using Base::Base;

  using Base::genericIf;
  [[nodiscard]] Ptr<GenericIf> genericIf(String8 const& text, bool isConst) const override {
    return genericEntity<X>(text, isConst);
  }
  [[nodiscard]] Ptr<GenericIf> genericIf_(PtrInterface* object, bool isConst) const override {
    return genericEntity<X>(object, isConst);
  }
};

}  // namespace Zol
