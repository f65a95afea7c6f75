// The root of the configuration side.
#pragma once

#include "entities/entity_rules.h"
#include "entities/psoc_controller_config.h"
#include "entities/ucd9012_controller_config.h"
#include "entities/ucd9032_controller_config.h"

namespace Hardware::Ucd9012 {

// The root that an agent makes to set up power controllers: the descriptors of the buses' devices,
// one collection of controllers per chip, and a collection of references to controllers, all keyed
// by name. The collections do not know each other; the same name may stand in two of them.
//
//   auto config = configFactory( "board" );
//   auto main = config->realUcd9012ControllerIs( "main", "J12", nullptr, nullptr, nullptr );
//   main->pollingEnabledIs( false );
//
// For each collection `<attr>`:
// - `<attr>( name )` gives the member, or null; it adds 1 to the read counter.
// - `<attr>Is( name, ... )` gives the member under the name. A missing one is made, and the
//   listeners hear `on<Attr>( name )`. For one that exists each further argument must be what it
//   was made with, or the call throws `NameInUseException` "Reinstantiating the entity with name
//   <name> where constructor parameter attribute _<parameter> has a different value of <given> than
//   the current value of <current> not allowed", and nothing changes. On success the mutation
//   counter goes up by 1 either way.
// - `new<Attr>( name, ... )` makes a member, which replaces one of that name; it counts nothing and
//   tells nobody.
// - `<attr>Del( name )` and `<attr>Del( iterator )` take the member out and give it, or null when
//   there is none; `<attr>DelAll()` takes out all, with one notification each.
// - `<attr>Notify( name )` tells the listeners of one member.
// - `<attr>Count()`, `<attr>Iterator()` and `<attr>IteratorConst()` walk the members in an order
//   that does not change; see `Zol::HashMap`.
class ZOL_EXPORT Config final : public EntityRules<Zol::AttributeRules<Zol::Entity>> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  // A collection of controllers with one chip, by name.
  template <class Controller>
  using Controllers = Zol::HashMap<Controller, Zol::Name, Controller>;

  // An entry of `controller`: a counted reference to a controller that belongs to somebody else.
  class ZolController final : public Zol::ReferenceEntry<ControllerConfig> {
    using ReferenceEntry::ReferenceEntry;
  };

  using DexoDescMap = Zol::HashMap<SmbusDexo::DexoDesc, Zol::Name, SmbusDexo::DexoDesc>;
  using RealUcd9012ControllerMap = Controllers<Ucd9012ControllerConfig>;
  using RealUcd9032ControllerMap = Controllers<Ucd9032ControllerConfig>;
  using RealPsocControllerMap = Controllers<PsocControllerConfig>;
  using ControllerMap = Zol::HashMap<ZolController, Zol::Name, ControllerConfig>;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/config.def"
    };
  };

  // A root without members and without a parent, as of `configFactory`.
  explicit Config(Zol::Name name);
  // Takes out all members that it owns first, and tells of each.
  ~Config() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // How devices on an SMBus are reached. Of a descriptor that exists, `device` must be the same, or
  // `dexoDescIs` throws `NameInUseException`; its own mutators take the other ten arguments, and
  // its listeners hear of those that differ.
  [[nodiscard]] Zol::Ptr<SmbusDexo::DexoDesc> dexoDesc(Zol::Name name) const;
  Zol::Ptr<SmbusDexo::DexoDesc> dexoDescDel(Zol::Name name);
  Zol::Ptr<SmbusDexo::DexoDesc> dexoDescDel(DexoDescMap::Iterator& iterator);
  void dexoDescNotify(Zol::Name name);
  Zol::ValidPtr<SmbusDexo::DexoDesc> dexoDescIs(
      Zol::Name name, Zol::Ptr<Hardware::SmbusDevice> const& device,
      Hardware::LobusAccelId lobusAccelId, Hardware::SmbusId busId,
      Hardware::SmbusDeviceId deviceId, Hardware::SmbusAddrSize addrSize,
      bool writeNoStopReadCurrent, Hardware::SmbusDelay writeDelay, Hardware::SmbusDelay readDelay,
      bool bug30005ExtraDelays, Hardware::SmbusTimeout busTimeout,
      Hardware::LobusAgentId smbusAgentId);
  Zol::Ptr<SmbusDexo::DexoDesc> newDexoDesc(
      Zol::Name name, Zol::Ptr<Hardware::SmbusDevice> const& device,
      Hardware::LobusAccelId lobusAccelId, Hardware::SmbusId busId,
      Hardware::SmbusDeviceId deviceId, Hardware::SmbusAddrSize addrSize,
      bool writeNoStopReadCurrent, Hardware::SmbusDelay writeDelay, Hardware::SmbusDelay readDelay,
      bool bug30005ExtraDelays, Hardware::SmbusTimeout busTimeout,
      Hardware::LobusAgentId smbusAgentId);
  void dexoDescDelAll();

  // The controllers with a UCD9012. One that exists must have been made with the same arguments, or
  // `realUcd9012ControllerIs` throws `NameInUseException`.
  [[nodiscard]] Zol::Ptr<Ucd9012ControllerConfig> realUcd9012Controller(Zol::Name name) const;
  Zol::Ptr<Ucd9012ControllerConfig> realUcd9012ControllerDel(Zol::Name name);
  Zol::Ptr<Ucd9012ControllerConfig> realUcd9012ControllerDel(
      RealUcd9012ControllerMap::Iterator& iterator);
  void realUcd9012ControllerNotify(Zol::Name name);
  Zol::ValidPtr<Ucd9012ControllerConfig> realUcd9012ControllerIs(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<Ucd9012ControllerConfig> newRealUcd9012Controller(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  void realUcd9012ControllerDelAll();

  // The controllers with a UCD9032. One that exists must have been made with the same arguments, or
  // `realUcd9032ControllerIs` throws `NameInUseException`.
  [[nodiscard]] Zol::Ptr<Ucd9032ControllerConfig> realUcd9032Controller(Zol::Name name) const;
  Zol::Ptr<Ucd9032ControllerConfig> realUcd9032ControllerDel(Zol::Name name);
  Zol::Ptr<Ucd9032ControllerConfig> realUcd9032ControllerDel(
      RealUcd9032ControllerMap::Iterator& iterator);
  void realUcd9032ControllerNotify(Zol::Name name);
  Zol::ValidPtr<Ucd9032ControllerConfig> realUcd9032ControllerIs(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<Ucd9032ControllerConfig> newRealUcd9032Controller(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  void realUcd9032ControllerDelAll();

  // The controllers with a PSoC. One that exists must have been made with the same arguments, or
  // `realPsocControllerIs` throws `NameInUseException`.
  [[nodiscard]] Zol::Ptr<PsocControllerConfig> realPsocController(Zol::Name name) const;
  Zol::Ptr<PsocControllerConfig> realPsocControllerDel(Zol::Name name);
  Zol::Ptr<PsocControllerConfig> realPsocControllerDel(RealPsocControllerMap::Iterator& iterator);
  void realPsocControllerNotify(Zol::Name name);
  Zol::ValidPtr<PsocControllerConfig> realPsocControllerIs(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<PsocControllerConfig> newRealPsocController(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  void realPsocControllerDelAll();

  // Controllers that a client wants found by their name alone, whatever their chip. They belong to
  // their collections; entering or taking out here touches neither those nor the controllers'
  // parents. `controllerIs` throws `RangeException` "null _controller parameter to mutator for
  // Hardware::Ucd9012::Config::controller not allowed\"" for null; the controller that stands there
  // already changes nothing, another one of its name takes its place. `zolController` gives the
  // entry itself.
  [[nodiscard]] Zol::Ptr<ControllerConfig> controller(Zol::Name name) const;
  void controllerIs(Zol::Ptr<ControllerConfig> const& controller);
  Zol::Ptr<ZolController> newController(Zol::Ptr<ControllerConfig> const& controller);
  [[nodiscard]] Zol::Ptr<ZolController> zolController(Zol::Name name) const;
  Zol::Ptr<ControllerConfig> controllerDel(Zol::Name name);
  Zol::Ptr<ControllerConfig> controllerDel(ControllerMap::Iterator& iterator);
  void controllerDelAll();
  void controllerNotify(Zol::Name name);

#include "host/zol/stamp/stamp_walks.h"
#include "schema/config.def"

 private:
#include "host/zol/stamp/stamp_fields.h"
#include "schema/config.def"
};

// The slots of a root's listeners. For each collection `on<Attr>( name )` tells that the member of
// that name has been added or taken out.
class ZOL_EXPORT Config::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  ~NotifieeConst() override;
  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<Config const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "schema/config.def"
};

class ZOL_EXPORT Config::Notifiee : public Config::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<Config> notifier() const;
};

// A new root with this name.
[[nodiscard]] ZOL_EXPORT Zol::Ptr<Config> configFactory(Zol::Name name);

}  // namespace Hardware::Ucd9012
