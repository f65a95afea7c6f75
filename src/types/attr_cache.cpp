#include "types/attr_cache.h"

#include "schema/attr_cache.h"

#include <algorithm>

#include "host/zol/registry/zol_type.h"
#include "schema/attribute_rows.h"
#include "types/all_classes.h"

namespace Hardware::Ucd9012 {

namespace {

struct Cached {
  std::string_view name;
  Zol::AttributeId id;
  Zol::ZolAttr const* attr = nullptr;
};

// In the order of registration: the two operations of the log, the attributes that the class
// defines itself, its key.
template <class X>
constinit auto cache = [] {
  constexpr std::size_t kOperations = 2;
  constexpr std::size_t kOwn = kAttributeRows<X>.size();
  std::array<Cached, kOperations + kOwn + (kHoldsKey<X> ? 1 : 0)> rows{};
  rows[0] = {"zolNboAttrLogSaForMsgChannel", 153};
  rows[1] = {"zolHasAttrLogInterface", 154};
  std::ranges::transform(kAttributeRows<X>, rows.begin() + kOperations,
                         [](AttributeRow const& row) {
                           return Cached{row.name, row.id};
                         });
  if constexpr (kHoldsKey<X>) rows.back() = {"fwkKey", 0};
  return rows;
}();

}  // namespace

template <class X>
void fillAttrCache() {
  Zol::ZolType const& type = *X::_fwkType();
  for (Cached& row : cache<X>) row.attr = type.attr(row.name).get();
}

template <class X>
Zol::ZolAttr const* zolCachedAttr(Zol::AttributeId id) {
  auto const found = std::ranges::find(cache<X>, id, &Cached::id);
  return found == cache<X>.end() ? nullptr : found->attr;
}

#define ZOL_ENTITY_TYPE(X, Base)    \
  template void fillAttrCache<X>(); \
  template Zol::ZolAttr const* zolCachedAttr<X>(Zol::AttributeId id);
#include "schema/types.def"

}  // namespace Hardware::Ucd9012
