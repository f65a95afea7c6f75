// What the adapters of this model's entities stamp from their lists: how the log reaches an
// attribute.
#pragma once

#include "attrlog/enumerators.h"
#include "attrlog/parameters.h"
#include "host/models/power_controller_attrlog.h"
#include "host/zol/attrlog/kinds.h"
#include "schema/attr_cache.h"

namespace Hardware::Ucd9012 {

// An attribute of the class `Model`, whose first attribute that can change is `first`. Set 1 of the
// dirty bits belongs to the classes below one that has attributes on the log itself.
template <class Sa, class Model, unsigned int set, Zol::AttributeId first, Zol::AttributeId id>
using Access =
    Zol::NboAttrLog::AttributeAccess<Sa, Model, id, Zol::NboAttrLog::DirtyBit::of(set, first, id),
                                     &zolCachedAttr<Model>>;

}  // namespace Hardware::Ucd9012
