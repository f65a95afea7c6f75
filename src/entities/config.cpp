#include "entities/config.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

namespace {

// The parameters that a controller was made with must be the ones given, apart from its name.
void requireSameParameters(ControllerConfig const& member, Zol::Name const& customerName,
                           Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
                           Zol::Ptr<Hardware::Gpio::PinConfig> const& pinConfig,
                           Zol::Ptr<Hardware::Gpio::PinStatus const> const& pinStatus) {
  requireSameParameter(member, "customerName", customerName, member.customerName());
  requireSameParameter(member, "dexoDesc", dexoDesc, member.dexoDesc());
  requireSameParameter(member, "resetGpioPinConfig", pinConfig, member.resetGpioPinConfig());
  requireSameParameter(member, "resetGpioPinStatus", pinStatus, member.resetGpioPinStatus());
}

}  // namespace

Config::Config(Zol::Name name) : EntityRules(std::move(name)) {}

Config::~Config() {
  realUcd9012ControllerDelAll();
  realUcd9032ControllerDelAll();
  realPsocControllerDelAll();
  dismissNotifiees();
}

Zol::ZolType* Config::fwkType() const { return _fwkType(); }

Zol::String8 Config::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/config.def"
    default:
      return Entity::attributeString(id);
  }
}

bool Config::zolHasAttrLogInterface() const { return true; }

Zol::Ptr<Ucd9012ControllerConfig> Config::realUcd9012Controller(Zol::Name name) const {
  return read(realUcd9012Controller_)[name];
}

Zol::ValidPtr<Ucd9012ControllerConfig> Config::realUcd9012ControllerIs(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus) {
  return memberIs(
      realUcd9012Controller_, name,
      [&](ControllerConfig const& member) {
        requireSameParameters(member, customerName, dexoDesc, resetGpioPinConfig,
                              resetGpioPinStatus);
      },
      [&] {
        return newRealUcd9012Controller(name, customerName, dexoDesc, resetGpioPinConfig,
                                        resetGpioPinStatus);
      },
      [this](Zol::Name const& key) { realUcd9012ControllerNotify(key); });
}

Zol::Ptr<Ucd9012ControllerConfig> Config::newRealUcd9012Controller(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus) {
  return makeMember(realUcd9012Controller_, Id::realUcd9012Controller,
                    new Ucd9012ControllerConfig(std::move(name), std::move(customerName), dexoDesc,
                                                resetGpioPinConfig, resetGpioPinStatus));
}

Zol::Ptr<Ucd9012ControllerConfig> Config::realUcd9012ControllerDel(Zol::Name name) {
  return takeOut(realUcd9012Controller_, realUcd9012Controller_[name],
                 [this](Zol::Name const& key) { realUcd9012ControllerNotify(key); });
}

Zol::Ptr<Ucd9012ControllerConfig> Config::realUcd9012ControllerDel(
    Config::Controllers<Ucd9012ControllerConfig>::Iterator& iterator) {
  return takeOut(realUcd9012Controller_, iterator.entry(),
                 [this](Zol::Name const& key) { realUcd9012ControllerNotify(key); });
}

void Config::realUcd9012ControllerDelAll() {
  takeOutAll(realUcd9012Controller_,
             [this](auto& iterator) { realUcd9012ControllerDel(iterator); });
}

void Config::realUcd9012ControllerNotify(Zol::Name name) {
  tellKey<NotifieeConst, Zol::Name>(Id::realUcd9012Controller,
                                    &NotifieeConst::onRealUcd9012Controller, name);
}

Config::Controllers<Ucd9012ControllerConfig>::Iterator Config::realUcd9012ControllerIterator() {
  return Config::Controllers<Ucd9012ControllerConfig>::Iterator(&realUcd9012Controller_);
}

Config::Controllers<Ucd9012ControllerConfig>::IteratorConst
Config::realUcd9012ControllerIteratorConst() const {
  return Config::Controllers<Ucd9012ControllerConfig>::IteratorConst(&realUcd9012Controller_);
}

Config::Controllers<Ucd9012ControllerConfig>::IteratorConst
Config::realUcd9012ControllerIteratorConst(Zol::Name const& name) const {
  return Config::Controllers<Ucd9012ControllerConfig>::IteratorConst(&realUcd9012Controller_, name);
}

Zol::Ptr<Ucd9032ControllerConfig> Config::realUcd9032Controller(Zol::Name name) const {
  return read(realUcd9032Controller_)[name];
}

Zol::ValidPtr<Ucd9032ControllerConfig> Config::realUcd9032ControllerIs(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus) {
  return memberIs(
      realUcd9032Controller_, name,
      [&](ControllerConfig const& member) {
        requireSameParameters(member, customerName, dexoDesc, resetGpioPinConfig,
                              resetGpioPinStatus);
      },
      [&] {
        return newRealUcd9032Controller(name, customerName, dexoDesc, resetGpioPinConfig,
                                        resetGpioPinStatus);
      },
      [this](Zol::Name const& key) { realUcd9032ControllerNotify(key); });
}

Zol::Ptr<Ucd9032ControllerConfig> Config::newRealUcd9032Controller(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus) {
  return makeMember(realUcd9032Controller_, Id::realUcd9032Controller,
                    new Ucd9032ControllerConfig(std::move(name), std::move(customerName), dexoDesc,
                                                resetGpioPinConfig, resetGpioPinStatus));
}

Zol::Ptr<Ucd9032ControllerConfig> Config::realUcd9032ControllerDel(Zol::Name name) {
  return takeOut(realUcd9032Controller_, realUcd9032Controller_[name],
                 [this](Zol::Name const& key) { realUcd9032ControllerNotify(key); });
}

Zol::Ptr<Ucd9032ControllerConfig> Config::realUcd9032ControllerDel(
    Config::Controllers<Ucd9032ControllerConfig>::Iterator& iterator) {
  return takeOut(realUcd9032Controller_, iterator.entry(),
                 [this](Zol::Name const& key) { realUcd9032ControllerNotify(key); });
}

void Config::realUcd9032ControllerDelAll() {
  takeOutAll(realUcd9032Controller_,
             [this](auto& iterator) { realUcd9032ControllerDel(iterator); });
}

void Config::realUcd9032ControllerNotify(Zol::Name name) {
  tellKey<NotifieeConst, Zol::Name>(Id::realUcd9032Controller,
                                    &NotifieeConst::onRealUcd9032Controller, name);
}

Config::Controllers<Ucd9032ControllerConfig>::Iterator Config::realUcd9032ControllerIterator() {
  return Config::Controllers<Ucd9032ControllerConfig>::Iterator(&realUcd9032Controller_);
}

Config::Controllers<Ucd9032ControllerConfig>::IteratorConst
Config::realUcd9032ControllerIteratorConst() const {
  return Config::Controllers<Ucd9032ControllerConfig>::IteratorConst(&realUcd9032Controller_);
}

Config::Controllers<Ucd9032ControllerConfig>::IteratorConst
Config::realUcd9032ControllerIteratorConst(Zol::Name const& name) const {
  return Config::Controllers<Ucd9032ControllerConfig>::IteratorConst(&realUcd9032Controller_, name);
}

Zol::Ptr<PsocControllerConfig> Config::realPsocController(Zol::Name name) const {
  return read(realPsocController_)[name];
}

Zol::ValidPtr<PsocControllerConfig> Config::realPsocControllerIs(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus) {
  return memberIs(
      realPsocController_, name,
      [&](ControllerConfig const& member) {
        requireSameParameters(member, customerName, dexoDesc, resetGpioPinConfig,
                              resetGpioPinStatus);
      },
      [&] {
        return newRealPsocController(name, customerName, dexoDesc, resetGpioPinConfig,
                                     resetGpioPinStatus);
      },
      [this](Zol::Name const& key) { realPsocControllerNotify(key); });
}

Zol::Ptr<PsocControllerConfig> Config::newRealPsocController(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus) {
  return makeMember(realPsocController_, Id::realPsocController,
                    new PsocControllerConfig(std::move(name), std::move(customerName), dexoDesc,
                                             resetGpioPinConfig, resetGpioPinStatus));
}

Zol::Ptr<PsocControllerConfig> Config::realPsocControllerDel(Zol::Name name) {
  return takeOut(realPsocController_, realPsocController_[name],
                 [this](Zol::Name const& key) { realPsocControllerNotify(key); });
}

Zol::Ptr<PsocControllerConfig> Config::realPsocControllerDel(
    Config::Controllers<PsocControllerConfig>::Iterator& iterator) {
  return takeOut(realPsocController_, iterator.entry(),
                 [this](Zol::Name const& key) { realPsocControllerNotify(key); });
}

void Config::realPsocControllerDelAll() {
  takeOutAll(realPsocController_, [this](auto& iterator) { realPsocControllerDel(iterator); });
}

void Config::realPsocControllerNotify(Zol::Name name) {
  tellKey<NotifieeConst, Zol::Name>(Id::realPsocController, &NotifieeConst::onRealPsocController,
                                    name);
}

Config::Controllers<PsocControllerConfig>::Iterator Config::realPsocControllerIterator() {
  return Config::Controllers<PsocControllerConfig>::Iterator(&realPsocController_);
}

Config::Controllers<PsocControllerConfig>::IteratorConst Config::realPsocControllerIteratorConst()
    const {
  return Config::Controllers<PsocControllerConfig>::IteratorConst(&realPsocController_);
}

Config::Controllers<PsocControllerConfig>::IteratorConst Config::realPsocControllerIteratorConst(
    Zol::Name const& name) const {
  return Config::Controllers<PsocControllerConfig>::IteratorConst(&realPsocController_, name);
}

Config::NotifieeConst::~NotifieeConst() = default;

void Config::NotifieeConst::notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<Config const*>(notifier.get()));
}

Zol::Ptr<Config const> Config::NotifieeConst::notifier() const {
  return static_cast<Config const*>(entity());
}

Zol::Ptr<Config> Config::Notifiee::notifier() const {
  return const_cast<Config*>(static_cast<Config const*>(entity()));
}

Zol::Ptr<Config> configFactory(Zol::Name name) { return new Config(std::move(name)); }

}  // namespace Hardware::Ucd9012
