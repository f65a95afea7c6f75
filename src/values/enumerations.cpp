#include "values/enumerations.h"

#include <ostream>

#include "host/zol/enumeration.h"
#include "host/zol/value_reading.h"
#include "schema/enumerator_rows.h"
#include "values/stamp_enumeration_bodies.h"

namespace Hardware::Ucd9012 {

#include "schema/types.def"

}  // namespace Hardware::Ucd9012
