// Attributes of the entity classes without a lookup by name.
#pragma once

#include "host/zol/export.h"
#include "schema/types.h"

namespace Hardware::Ucd9012 {

// The registered attribute of the class `X` with this id: one that `X` defines itself, the key that
// it holds, or one of the two operations of the attribute log. Null for any other id, and for all
// when the attributes were not registered. Valid as long as the process lives.
template <class X>
[[nodiscard]] ZOL_EXPORT Zol::ZolAttr const* zolCachedAttr(Zol::AttributeId id);

#define ZOL_ENTITY_TYPE(X, Base) \
  extern template Zol::ZolAttr const* zolCachedAttr<X>(Zol::AttributeId id);
#include "schema/types.def"

}  // namespace Hardware::Ucd9012
