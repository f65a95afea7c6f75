// The classes of the type objects: what each type of the library can do, knowing only the type.
#pragma once

#include "attrlog/digest.h"
#include "attrlog/parameters.h"
#include "generic/config.h"
#include "generic/controller_config.h"
#include "generic/controller_status.h"
#include "generic/diagnostics.h"
#include "generic/keys.h"
#include "generic/records.h"
#include "generic/status.h"
#include "generic/voltage_rail_config.h"
#include "host/zol/generic/entity_type.h"
#include "host/zol/registry/type_of.h"
#include "host/zol/registry/zol_type.h"
#include "types/all_classes.h"
#include "types/child_adapters.h"
#include "types/stamp_type_classes.h"

namespace Hardware::Ucd9012 {

// Gives a type object what its entities can do beyond their virtual operations.
template <class X>
void addFunctions(Zol::ZolType& type) {
  type.digestFnIs(kDigestFn<X>);
  type.keyTextFnIs(kKeyTextFn<X>);
  type.sameFnIs(&Zol::NboAttrLog::Parameters<X>::same);
}

#include "schema/types.def"

}  // namespace Hardware::Ucd9012
