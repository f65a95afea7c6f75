// The enumerators of this model, as whoever reads one from a stream finds them beside the
// enumeration.
#pragma once

#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

#define ZOL_ENUM_TYPE(E) \
  [[nodiscard]] inline E enumeratorOf(unsigned number, E) { return E##Instance(number); }
#include "schema/types.def"

}  // namespace Hardware::Ucd9012
