#include "attrlog/config.h"

#include "attrlog/controller_config.h"
#include "attrlog/controller_parameters.h"
#include "host/models/siblings.h"
#include "host/zol/attrlog/log_stamps.h"
#include "host/zol/attrlog/make_adapter.h"
#include "host/zol/reactor_adapter.h"

namespace Hardware::Ucd9012 {

using Sa = Config::ZolNboAttrLogSa;

// The debt of a root: the bits of its rows, and the keys owed of each collection.
class Config::ZolNboAttrLogSa::FlowOut final : public Zol::NboAttrLog::LevelFlowOut {
 public:
  using LevelFlowOut::LevelFlowOut;

  [[nodiscard]] bool hasDirtyAttributes() const override {
    return LevelFlowOut::hasDirtyAttributes() ||
#define ZOL_CONTROLLERS(attr, Attr, Type) !zolIs##Attr##Dirty_.empty() ||
#include "attrlog/config_controllers.def"
           false;
  }

#define ZOL_CONTROLLERS(attr, Attr, Type) Zol::NboAttrLog::DirtyNames zolIs##Attr##Dirty_;
#include "attrlog/config_controllers.def"
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
  if (!message.applies) return (static_cast<Sa&>(adapter).*reaction)(key);
  (static_cast<Config&>(*adapter.entity()).*del)(key);
}

constexpr LogRow kRows[] = {
#define ZOL_CONTROLLERS(attr, Attr, Type)                                                    \
  {Config::Id::attr,                                                                         \
   LogRow::Kind::collection,                                                                 \
   dirtyBit(Config::Id::attr),                                                               \
   &reactToKey<&Sa::on##Attr>,                                                               \
   &Zol::NboAttrLog::serializeTo<&Sa::zolHandle##Attr##SerializeColl>,                       \
   &applyController<&Config::attr, &Config::attr##Is, &Sa::on##Attr>,                        \
   &removeController<static_cast<Zol::Ptr<Type> (Config::*)(Zol::Name)>(&Config::attr##Del), \
                     &Sa::on##Attr>},
#include "attrlog/config_controllers.def"
};
constexpr Zol::NboAttrLog::LogLevel kLevel{kRows};

}  // namespace

class Config::ZolNboAttrLogSa::ZolNboAttrLogSaAdapter_ final
    : public Zol::ReactorAdapter<Config::Notifiee, Config::ZolNboAttrLogSa> {
 public:
  using ReactorAdapter::ReactorAdapter;
#define ZOL_CONTROLLERS(attr, Attr, Type)                        \
  using Config::NotifieeConst::on##Attr;                         \
  void on##Attr(Zol::Name key) override {                        \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr(key); \
  }
#include "attrlog/config_controllers.def"
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
#define ZOL_CONTROLLERS(attr, Attr, Type) zolHandle##Attr##SerializeColl();
#include "attrlog/config_controllers.def"
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
  auto const& config = static_cast<Config const&>(*entity());
#define ZOL_CONTROLLERS(attr, Attr, Type) \
  for (auto it = config.attr##IteratorConst(); it; ++it) attr##NboAttrLogAdapterDel(it.ptr());
#include "attrlog/config_controllers.def"
  ParentAdapter::doRemountSelf(out);
}

#define ZOL_CONTROLLERS(attr, Attr, Type)                                                      \
  void Sa::on##Attr(Zol::Name key) {                                                           \
    zolHandle##Attr##SerializeSing(key, static_cast<Config&>(*entity()).attr(key));            \
  }                                                                                            \
                                                                                               \
  void Sa::zolHandle##Attr##SerializeSing(Zol::Name const& key, Zol::Ptr<Type> const& value) { \
    static constexpr ChildRow kRow{                                                            \
        Config::Id::attr,                                                                      \
        [](Zol::NboAttrLog::FlowOut& flow) -> DirtyNames& {                                    \
          return static_cast<FlowOut&>(flow).zolIs##Attr##Dirty_;                              \
        },                                                                                     \
        [](ParentAdapter& adapter, Zol_BitSet flags, Zol::Entity& child) {                     \
          return static_cast<Sa&>(adapter).attr##NboAttrLogAdapterIs(                          \
              flags, Zol::Ptr<Type>(&static_cast<Type&>(child)), 1, adapter.nboAttrLogOut(),   \
              adapter.msgChannelEntry());                                                      \
        }};                                                                                    \
    childChanged(kRow, key, value);                                                            \
  }                                                                                            \
                                                                                               \
  bool Sa::zolHandle##Attr##SerializeColl() {                                                  \
    return collectionOwed(                                                                     \
        *kLevel.find(Config::Id::attr),                                                        \
        static_cast<Config&>(*entity()).attr##IteratorConst().map(),                           \
        [](Zol::NboAttrLog::FlowOut& flow) -> DirtyNames& {                                    \
          return static_cast<FlowOut&>(flow).zolIs##Attr##Dirty_;                              \
        },                                                                                     \
        [this](Zol::Name const& key, Zol::Ptr<Type> const& member) {                           \
          zolHandle##Attr##SerializeSing(key, member);                                         \
        });                                                                                    \
  }                                                                                            \
                                                                                               \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Sa::attr##NboAttrLogAdapterIs(                        \
      Zol_BitSet flags, Zol::Ptr<Type> const& child, unsigned int n, Zol::OutPtr const& out,   \
      Zol::PtrInterface* msgChannelEntry) {                                                    \
    return announceChild(Config::Id::attr, flags, *child, n, out, msgChannelEntry,             \
                         &writeControllerParameters);                                          \
  }                                                                                            \
                                                                                               \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Sa::attr##NboAttrLogAdapterDel(                       \
      Zol::Ptr<Type> const& child) {                                                           \
    return childAdapterDel(child.get());                                                       \
  }
#include "attrlog/config_controllers.def"

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Config::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

}  // namespace Hardware::Ucd9012
