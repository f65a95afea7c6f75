// From a C++ type to its type object.
#pragma once

#include <type_traits>

#include "host/zol/registry/builtin.h"

namespace Zol {

// Builtin types have their object in `Builtin<T>`, classes in a static `T::_fwkType()`. An
// enumeration gives its own through a free function beside it:
//
//   inline Zol::ZolType* zolTypeOf(std::type_identity<Colour>) { return _fwkType_Colour(); }
template <class T>
ZolType* typeOf() {
  using Plain = std::remove_const_t<T>;
  if constexpr (IsBuiltin<Plain>) {
    return Builtin<Plain>::_fwkType();
  } else if constexpr (std::is_enum_v<Plain>) {
    return zolTypeOf(std::type_identity<Plain>());
  } else {
    return Plain::_fwkType();
  }
}

}  // namespace Zol
