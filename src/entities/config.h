// The root of the configuration side.
#pragma once

#include "entities/entity_rules.h"
#include "entities/psoc_controller_config.h"
#include "entities/ucd9012_controller_config.h"
#include "entities/ucd9032_controller_config.h"

namespace Hardware::Ucd9012 {

// The root that an agent makes to set up power controllers: one collection of controllers per chip,
// each keyed by the controller's name. The collections do not know each other; the same name may
// stand in two of them.
//
//   auto config = configFactory( "board" );
//   auto main = config->realUcd9012ControllerIs( "main", "J12", nullptr, nullptr, nullptr );
//   main->pollingEnabledIs( false );
//
// For each collection `<attr>`:
// - `<attr>( name )` gives the member, or null; it adds 1 to the read counter.
// - `<attr>Is( name, ... )` gives the member under the name. A missing one is made, and the
//   listeners hear `on<Attr>( name )`. For one that exists each further argument must be what it
//   was made with, or the call throws `NameInUseException` ("Reinstantiating the entity with name
//   ...") and nothing changes. On success the mutation counter goes up by 1 either way.
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

  template <class Controller>
  using Controllers = Zol::HashMap<Controller, Zol::Name, Controller>;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/config.def"
    };
  };

  explicit Config(Zol::Name name);
  // Takes out all members first, and tells of each.
  ~Config() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // The controllers with a UCD9012.
  [[nodiscard]] Zol::Ptr<Ucd9012ControllerConfig> realUcd9012Controller(Zol::Name name) const;
  Zol::ValidPtr<Ucd9012ControllerConfig> realUcd9012ControllerIs(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<Ucd9012ControllerConfig> newRealUcd9012Controller(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<Ucd9012ControllerConfig> realUcd9012ControllerDel(Zol::Name name);
  Zol::Ptr<Ucd9012ControllerConfig> realUcd9012ControllerDel(
      Controllers<Ucd9012ControllerConfig>::Iterator& iterator);
  void realUcd9012ControllerDelAll();
  void realUcd9012ControllerNotify(Zol::Name name);
  [[nodiscard]] std::uint32_t realUcd9012ControllerCount() const noexcept {
    return realUcd9012Controller_.count();
  }
  [[nodiscard]] Controllers<Ucd9012ControllerConfig>::Iterator realUcd9012ControllerIterator();
  [[nodiscard]] Controllers<Ucd9012ControllerConfig>::IteratorConst
  realUcd9012ControllerIteratorConst() const;
  [[nodiscard]] Controllers<Ucd9012ControllerConfig>::IteratorConst
  realUcd9012ControllerIteratorConst(Zol::Name const& name) const;

  // The controllers with a UCD9032.
  [[nodiscard]] Zol::Ptr<Ucd9032ControllerConfig> realUcd9032Controller(Zol::Name name) const;
  Zol::ValidPtr<Ucd9032ControllerConfig> realUcd9032ControllerIs(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<Ucd9032ControllerConfig> newRealUcd9032Controller(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<Ucd9032ControllerConfig> realUcd9032ControllerDel(Zol::Name name);
  Zol::Ptr<Ucd9032ControllerConfig> realUcd9032ControllerDel(
      Controllers<Ucd9032ControllerConfig>::Iterator& iterator);
  void realUcd9032ControllerDelAll();
  void realUcd9032ControllerNotify(Zol::Name name);
  [[nodiscard]] std::uint32_t realUcd9032ControllerCount() const noexcept {
    return realUcd9032Controller_.count();
  }
  [[nodiscard]] Controllers<Ucd9032ControllerConfig>::Iterator realUcd9032ControllerIterator();
  [[nodiscard]] Controllers<Ucd9032ControllerConfig>::IteratorConst
  realUcd9032ControllerIteratorConst() const;
  [[nodiscard]] Controllers<Ucd9032ControllerConfig>::IteratorConst
  realUcd9032ControllerIteratorConst(Zol::Name const& name) const;

  // The controllers with a PSoC.
  [[nodiscard]] Zol::Ptr<PsocControllerConfig> realPsocController(Zol::Name name) const;
  Zol::ValidPtr<PsocControllerConfig> realPsocControllerIs(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<PsocControllerConfig> newRealPsocController(
      Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
      Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
      Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus);
  Zol::Ptr<PsocControllerConfig> realPsocControllerDel(Zol::Name name);
  Zol::Ptr<PsocControllerConfig> realPsocControllerDel(
      Controllers<PsocControllerConfig>::Iterator& iterator);
  void realPsocControllerDelAll();
  void realPsocControllerNotify(Zol::Name name);
  [[nodiscard]] std::uint32_t realPsocControllerCount() const noexcept {
    return realPsocController_.count();
  }
  [[nodiscard]] Controllers<PsocControllerConfig>::Iterator realPsocControllerIterator();
  [[nodiscard]] Controllers<PsocControllerConfig>::IteratorConst realPsocControllerIteratorConst()
      const;
  [[nodiscard]] Controllers<PsocControllerConfig>::IteratorConst realPsocControllerIteratorConst(
      Zol::Name const& name) const;

 private:
  Controllers<Ucd9012ControllerConfig> realUcd9012Controller_;
  Controllers<Ucd9032ControllerConfig> realUcd9032Controller_;
  Controllers<PsocControllerConfig> realPsocController_;
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
