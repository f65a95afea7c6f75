// The type objects of the values that the language and the runtime bring with them.
#pragma once

#include <concepts>

#include "host/zol/export.h"
#include "host/zol/forward.h"
#include "host/zol/text.h"

namespace Zol {

template <class T>
concept IsBuiltin = std::same_as<T, bool> || std::same_as<T, unsigned char> ||
    std::same_as<T, unsigned short> || std::same_as<T, unsigned int> || std::same_as<T, String8>;

// The type object of a builtin value: "bool", "U8", "U16", "U32" or "Zol::String8" by its full
// name.
template <class T>
class ZOL_EXPORT Builtin {
 public:
  static ZolType* _fwkType();
};

extern template class Builtin<bool>;
extern template class Builtin<unsigned char>;
extern template class Builtin<unsigned short>;
extern template class Builtin<unsigned int>;
extern template class Builtin<String8>;

}  // namespace Zol
