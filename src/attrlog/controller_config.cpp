#include "attrlog/controller_config.h"

#include "attrlog/controller_parameters.h"
#include "attrlog/enumerators.h"
#include "host/zol/attrlog/log_stamps.h"
#include "host/zol/attrlog/make_adapter.h"
#include "host/zol/reactor_adapter.h"
#include "schema/attr_cache.h"

namespace Hardware::Ucd9012 {

using Model = ControllerConfig;
using Sa = ControllerConfig::ZolNboAttrLogSa;

namespace {

constexpr Zol::NboAttrLog::DirtyBit dirtyBit(Zol::AttributeId id) {
  return Zol::NboAttrLog::DirtyBit::of(1, Model::Id::generationIdReadVoltage, id);
}

Zol::ZolAttr const* cachedAttr(Zol::AttributeId id) { return zolCachedAttr<Model>(id); }

constexpr Zol::NboAttrLog::LogRow kRows[] = {
#include "host/zol/stamp/stamp_log_rows.h"
#include "schema/controller_config.def"
};

}  // namespace

class ControllerConfig::ZolNboAttrLogSa::ZolNboAttrLogSaAdapter_ final
    : public Zol::ReactorAdapter<ControllerConfig::Notifiee, ControllerConfig::ZolNboAttrLogSa> {
 public:
  using ReactorAdapter::ReactorAdapter;
#include "host/zol/stamp/stamp_forwards.h"
#include "schema/controller_config.def"
};

template <class Chip>
class ChipAdapter<Chip>::ZolNboAttrLogSaAdapter_ final
    : public Zol::ReactorAdapter<typename Chip::Notifiee, ControllerConfig::ZolNboAttrLogSa> {
 public:
  using Zol::ReactorAdapter<typename Chip::Notifiee,
                            ControllerConfig::ZolNboAttrLogSa>::ReactorAdapter;
  using Zol::ReactorAdapter<typename Chip::Notifiee,
                            ControllerConfig::ZolNboAttrLogSa>::zolReactorAdapter;
#include "host/zol/stamp/stamp_forwards.h"
#include "schema/controller_config.def"
};

// The base model's rows come from its own library, so the chain is joined at first use.
Zol::NboAttrLog::LogLevel const& Sa::level() {
  static Zol::NboAttrLog::LogLevel const theLevel{
      kRows, &Hardware::PowerController::ControllerConfig::ZolNboAttrLogSa::level()};
  return theLevel;
}

Sa::ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<ControllerConfig> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
    : Hardware::PowerController::ControllerConfig::ZolNboAttrLogSa(
          flags, Zol::Ptr<Hardware::PowerController::ControllerConfig>(entity), n, out,
          msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()));
}

Sa::~ZolNboAttrLogSa() = default;

Zol::AttributeId Sa::handleAttrFlowOut(Zol::AttributeId id) { return flowOutFrom(level(), id); }

void Sa::freeResyncState(Zol::Ptr<Zol::NboAttrLog::FlowOut> const& flow) {
  freeState(level(), *flow);
}

void Sa::doSerializeOrphan() {
  orphanIs([this](Zol::OutPtr const& out) { writeControllerParameters(out, *entity()); });
}

void Sa::handleAttrDeserialization(Zol::AttributeId id, DeserializationOptions options,
                                   unsigned int size, Zol::Ptr<Zol::NboAttrLog::In> const& in) {
  messageIs(level(), id, options, size, in);
}

Zol::Ptr<Zol::NboAttrLog::FlowOut> Sa::flowOutIs(Zol::Ptr<Zol::NboAttrLog::Out> const& out,
                                                 Zol::ConnectDesc const& desc, bool flag,
                                                 Zol::AttributeId start) {
  return new FlowOut(level(), out, this, desc, flag, start);
}

void Sa::doNotification(Zol::AttributeId id, void* key) { notificationIs(level(), id, key); }

#include "host/zol/stamp/stamp_reactions.h"
#include "schema/controller_config.def"

template <class Chip>
ChipAdapter<Chip>::ChipAdapter(Zol_BitSet flags, Zol::Ptr<Chip> const& entity, unsigned int n,
                               Zol::Ptr<Zol::NboAttrLog::Out> const& out,
                               Zol::PtrInterface* msgChannelEntry)
    : ControllerConfig::ZolNboAttrLogSa(flags, Zol::Ptr<ControllerConfig>(entity), n, out,
                                        msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()));
}

template class ChipAdapter<Ucd9012ControllerConfig>;
template class ChipAdapter<Ucd9032ControllerConfig>;
template class ChipAdapter<PsocControllerConfig>;

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> ControllerConfig::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Ucd9012ControllerConfig::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Ucd9032ControllerConfig::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> PsocControllerConfig::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

}  // namespace Hardware::Ucd9012
