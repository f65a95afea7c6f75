// The classes of the type objects: what each type of the library can do, knowing only the type.
#pragma once

#include "attrlog/digest.h"
#include "attrlog/parameters.h"
#include "generic/children.h"
#include "host/models/power_controller.h"
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
  type.childFnIs(kChildFn<X>);
  type.keyTextFnIs(kKeyTextFn<X>);
  type.sameFnIs(&Zol::NboAttrLog::Parameters<X>::same);
}

#include "schema/types.def"

}  // namespace Hardware::Ucd9012
