#include "host/models/power_controller_attrlog.h"
#include "host/zol/attrlog/kinds.h"
#include "host/zol/registry/zol_type.h"

namespace Hardware::PowerController {

using Model = ControllerStatus;
using Sa = ControllerStatus::ZolNboAttrLogSa;

namespace {

using Zol::NboAttrLog::DirtyBit;

Zol::ZolAttr const* cachedAttr(Zol::AttributeId id) { return Model::_fwkType()->attr(id); }

template <Zol::AttributeId id>
using AccessTo =
    Zol::NboAttrLog::AttributeAccess<Sa, Model, id, DirtyBit::of(0, Model::Id::controllerState, id),
                                     &cachedAttr>;

#include "host/zol/stamp/stamp_access.h"
#include "host/models/power_controller_status.def"

constexpr Zol::NboAttrLog::LogRow kRows[] = {
#include "host/zol/stamp/stamp_log_rows.h"
#include "host/models/power_controller_status.def"
};
constexpr Zol::NboAttrLog::LogLevel kLevel{kRows};

}  // namespace

class Sa::ZolNboAttrLogSaAdapter_ final : public Zol::ReactorAdapter<Model::Notifiee, Sa> {
 public:
  using ReactorAdapter::ReactorAdapter;
  using Listener = Model::NotifieeConst;
#include "host/zol/stamp/stamp_forwards.h"
#include "host/models/power_controller_status.def"
};

Sa::ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<Model> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
    : EntityAdapter(flags, n, out, msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()), kLevel);
}

Zol::NboAttrLog::LogLevel const& Sa::level() { return kLevel; }

#include "host/zol/stamp/stamp_reactions.h"
#include "host/models/power_controller_status.def"

}  // namespace Hardware::PowerController
