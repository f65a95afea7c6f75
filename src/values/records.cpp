#include <ostream>

#include "values/external_voltage_rail.h"
#include "values/page_fault_cause.h"
#include "values/psoc_cause.h"
#include "values/record_form.h"
#include "values/ucd_cause.h"
#include "values/stamp_record_bodies.h"

namespace Hardware::Ucd9012 {

#include "schema/types.def"

}  // namespace Hardware::Ucd9012
