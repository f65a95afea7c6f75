// How the entities of this model make or find their adapters.
#include "attrlog/config.h"
#include "attrlog/controller_config.h"
#include "attrlog/controller_status.h"
#include "attrlog/status.h"
#include "attrlog/ucd9012_diag_config.h"
#include "attrlog/ucd9012_diag_mode_config.h"
#include "attrlog/ucd9012_diag_status.h"
#include "attrlog/voltage_rail_config.h"
#include "host/zol/attrlog/make_adapter.h"

namespace Hardware::Ucd9012 {

#define ZOL_ENTITY_TYPE(X, Base)                                                   \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> X::zolNboAttrLogSaIs(                     \
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out, \
      Zol::PtrInterface* msgChannelEntry) {                                        \
    return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);                  \
  }
#include "schema/types.def"

}  // namespace Hardware::Ucd9012
