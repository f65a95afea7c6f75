// Fills the caches of attributes.
#pragma once

namespace Hardware::Ucd9012 {

// Looks up the attributes of the entity class `X` by name and keeps them for `zolCachedAttr<X>`.
template <class X>
void fillAttrCache();

}  // namespace Hardware::Ucd9012
