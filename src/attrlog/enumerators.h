// The enumerators of this model, as whoever reads one from a stream finds them beside the
// enumeration.
#pragma once

#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

[[nodiscard]] inline OperationalMode enumeratorOf(unsigned int number, OperationalMode) {
  return OperationalModeInstance(number);
}

}  // namespace Hardware::Ucd9012
