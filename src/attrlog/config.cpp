#include "attrlog/config.h"

#include <algorithm>
#include <array>

#include "attrlog/controller_config.h"
#include "attrlog/controller_parameters.h"
#include "host/models/siblings.h"
#include "host/zol/attrlog/log_stamps.h"
#include "host/zol/attrlog/make_adapter.h"
#include "host/zol/reactor_adapter.h"
#include "schema/attr_cache.h"

namespace Hardware::Ucd9012 {

using Sa = Config::ZolNboAttrLogSa;

// The debt of a root: the bits of its rows, and the keys owed of each collection.
class Config::ZolNboAttrLogSa::FlowOut final : public Zol::NboAttrLog::LevelFlowOut {
 public:
  using LevelFlowOut::LevelFlowOut;

  [[nodiscard]] bool hasDirtyAttributes() const override {
    return LevelFlowOut::hasDirtyAttributes() ||
           std::any_of(dirty_.begin(), dirty_.end(),
                       [](auto const& keys) { return !keys.empty(); });
  }
  // The keys owed of the collection with this attribute id.
  [[nodiscard]] Zol::NboAttrLog::DirtyNames& dirty(Zol::AttributeId id) {
    return dirty_[static_cast<std::size_t>(id - Id::realUcd9012Controller)];
  }

 private:
  std::array<Zol::NboAttrLog::DirtyNames, Id::realPsocController - Id::realUcd9012Controller + 1>
      dirty_;
};

namespace {

using Zol::NboAttrLog::ChildRow;
using Zol::NboAttrLog::DirtyNames;
using Zol::NboAttrLog::EntityAdapter;
using Zol::NboAttrLog::Inbound;
using Zol::NboAttrLog::LogRow;
using Zol::NboAttrLog::ParentAdapter;

constexpr Zol::NboAttrLog::DirtyBit dirtyBit(Zol::AttributeId id) {
  return Zol::NboAttrLog::DirtyBit::of(0, Config::Id::dexoDesc, id);
}

template <auto reaction>
void reactToKey(EntityAdapter& adapter, void* key) {
  (static_cast<Sa&>(adapter).*reaction)(*static_cast<Zol::Name*>(key));
}

// An announcement of a controller: its constructor parameters, and behind them its entity id.
template <auto member, auto make, auto reaction>
void applyController(EntityAdapter& adapter, Inbound& message) {
  auto& config = static_cast<Config&>(*adapter.entity());
  auto const parameters = ControllerParameters::read(message.in);
  static_cast<Sa&>(adapter).childArrived(
      message, [&] { return (config.*member)(parameters.name); },
      [&] {
        (config.*make)(parameters.name, parameters.customerName, parameters.dexoDesc,
                       parameters.resetGpioPinConfig, parameters.resetGpioPinStatus);
      },
      [&] { (static_cast<Sa&>(adapter).*reaction)(parameters.name); });
}

template <auto del, auto reaction>
void removeController(EntityAdapter& adapter, Inbound& message) {
  Zol::Name const key = message.in.nextString();
  Zol::NboAttrLog::requireEnd(message);
  if (!message.applies) return (static_cast<Sa&>(adapter).*reaction)(key);
  (static_cast<Config&>(*adapter.entity()).*del)(key);
}

template <Zol::AttributeId id>
DirtyNames& dirtyOf(Zol::NboAttrLog::FlowOut& flow) {
  return static_cast<Sa::FlowOut&>(flow).dirty(id);
}

template <class Type, auto adapterIs>
Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> announced(ParentAdapter& adapter,
                                                 Zol::Entity::Zol_BitSet flags,
                                                 Zol::Entity& child) {
  return (static_cast<Sa&>(adapter).*adapterIs)(flags, Zol::Ptr<Type>(&static_cast<Type&>(child)),
                                                1, adapter.nboAttrLogOut(),
                                                adapter.msgChannelEntry());
}

template <class Type, Zol::AttributeId id, auto adapterIs>
constexpr ChildRow kChild{id, &zolCachedAttr<Config>, &dirtyOf<id>, &announced<Type, adapterIs>};

// Sends one member of a collection.
template <auto send>
struct Sending {
  Sa& adapter;
  template <class Member>
  void operator()(Zol::Name const& key, Member const& member) const {
    (adapter.*send)(key, member);
  }
};

constexpr LogRow kRows[] = {
#include "attrlog/stamp_controllers_rows.h"
#include "entities/config_controllers.def"
};
constexpr Zol::NboAttrLog::LogLevel kLevel{kRows};

}  // namespace

class Config::ZolNboAttrLogSa::ZolNboAttrLogSaAdapter_ final
    : public Zol::ReactorAdapter<Config::Notifiee, Config::ZolNboAttrLogSa> {
 public:
  using ReactorAdapter::ReactorAdapter;
#include "attrlog/stamp_controllers_forwards.h"
#include "entities/config_controllers.def"
};

Sa::ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<Config> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
    : ParentAdapter(flags, n, out, msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()));
}

Sa::~ZolNboAttrLogSa() = default;

Zol::AttributeId Sa::handleAttrFlowOut(Zol::AttributeId id) { return flowOutFrom(kLevel, id); }

void Sa::freeResyncState(Zol::Ptr<Zol::NboAttrLog::FlowOut> const& flow) {
  freeState(kLevel, *flow);
}

void Sa::zolInstantiateSerialize() {
  zolHandleRealUcd9012ControllerSerializeColl();
  zolHandleRealUcd9032ControllerSerializeColl();
  zolHandleRealPsocControllerSerializeColl();
}

void Sa::doSerializeOrphan() {
  orphanIs([this](Zol::OutPtr const& out) { out << Zol::String8(entity()->name()); });
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

void Sa::doRemountSelf(Zol::Ptr<Zol::NboAttrLog::Out> const& out) {
  if (!entity()) return ParentAdapter::doRemountSelf(out);
  auto const& config = static_cast<Config const&>(*entity());
  for (auto it = config.realUcd9012ControllerIteratorConst(); it; ++it) {
    realUcd9012ControllerNboAttrLogAdapterDel(it.ptr());
  }
  for (auto it = config.realUcd9032ControllerIteratorConst(); it; ++it) {
    realUcd9032ControllerNboAttrLogAdapterDel(it.ptr());
  }
  for (auto it = config.realPsocControllerIteratorConst(); it; ++it) {
    realPsocControllerNboAttrLogAdapterDel(it.ptr());
  }
  ParentAdapter::doRemountSelf(out);
}

#include "attrlog/stamp_controllers.h"
#include "entities/config_controllers.def"

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Config::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

}  // namespace Hardware::Ucd9012
