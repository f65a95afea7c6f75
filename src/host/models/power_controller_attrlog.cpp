#include "host/models/power_controller_attrlog.h"

#include "host/zol/attrlog/log_stamps.h"
#include "host/zol/reactor_adapter.h"
#include "host/zol/registry/zol_type.h"

namespace Hardware::PowerController {

using Model = ControllerConfig;
using Sa = ControllerConfig::ZolNboAttrLogSa;

namespace {

constexpr Zol::NboAttrLog::DirtyBit dirtyBit(Zol::AttributeId id) {
  return Zol::NboAttrLog::DirtyBit::of(0, Model::Id::autoStartPowerProgram, id);
}

Zol::ZolAttr const* cachedAttr(Zol::AttributeId id) { return Model::_fwkType()->attr(id); }

constexpr Zol::NboAttrLog::LogRow kRows[] = {
#include "host/zol/stamp/stamp_log_rows.h"
#include "host/models/power_controller_config.def"
};
constexpr Zol::NboAttrLog::LogLevel kLevel{kRows};

}  // namespace

class ControllerConfig::ZolNboAttrLogSa::ZolNboAttrLogSaAdapter_ final
    : public Zol::ReactorAdapter<ControllerConfig::Notifiee, ControllerConfig::ZolNboAttrLogSa> {
 public:
  using ReactorAdapter::ReactorAdapter;
#include "host/zol/stamp/stamp_forwards.h"
#include "host/models/power_controller_config.def"
};

Sa::ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<ControllerConfig> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
    : ParentAdapter(flags, n, out, msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()));
}

Sa::~ZolNboAttrLogSa() = default;

Zol::NboAttrLog::LogLevel const& Sa::level() { return kLevel; }

Zol::AttributeId Sa::handleAttrFlowOut(Zol::AttributeId id) { return flowOutFrom(kLevel, id); }

void Sa::freeResyncState(Zol::Ptr<Zol::NboAttrLog::FlowOut> const& flow) {
  freeState(kLevel, *flow);
}

void Sa::handleAttrDeserialization(Zol::AttributeId id, DeserializationOptions options,
                                   unsigned int size, Zol::Ptr<Zol::NboAttrLog::In> const& in) {
  messageIs(kLevel, id, options, size, in);
}

Zol::Ptr<Zol::NboAttrLog::FlowOut> Sa::flowOutIs(Zol::Ptr<Zol::NboAttrLog::Out> const& out,
                                                 Zol::ConnectDesc const& desc, bool flag,
                                                 Zol::AttributeId start) {
  return new FlowOut(kLevel, out, this, desc, flag, start);
}

void Sa::doNotification(Zol::AttributeId id, void* key) { notificationIs(kLevel, id, key); }

#include "host/zol/stamp/stamp_reactions.h"
#include "host/models/power_controller_config.def"

}  // namespace Hardware::PowerController
