// The types of the library by name: forward declarations and full names.
#pragma once

#include <string_view>

#include "host/zol/forward.h"

namespace Hardware::Ucd9012 {

#define ZOL_ENUM_TYPE(X) enum class X : unsigned int;
#define ZOL_ANY_TYPE(X) class X;
#include "schema/types.def"

// As the registry and messages write it; empty for a type from elsewhere.
template <class X>
inline constexpr std::string_view kFullName{};
#define ZOL_ANY_TYPE(X) \
  template <>           \
  inline constexpr std::string_view kFullName<X> = "Hardware::Ucd9012::" #X;
#include "schema/types.def"

}  // namespace Hardware::Ucd9012
