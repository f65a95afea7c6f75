#include "entities/config.h"

#include "host/models/siblings.h"
#include "host/zol/exception.h"

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
  dexoDescDelAll();
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

using Self = Config;
#include "entities/stamp_member_bodies.h"
#include "schema/config.def"

Zol::ValidPtr<SmbusDexo::DexoDesc> Config::dexoDescIs(
    Zol::Name name, Zol::Ptr<Hardware::SmbusDevice> const& device,
    Hardware::LobusAccelId lobusAccelId, Hardware::SmbusId busId, Hardware::SmbusDeviceId deviceId,
    Hardware::SmbusAddrSize addrSize, bool writeNoStopReadCurrent, Hardware::SmbusDelay writeDelay,
    Hardware::SmbusDelay readDelay, bool bug30005ExtraDelays, Hardware::SmbusTimeout busTimeout,
    Hardware::LobusAgentId smbusAgentId) {
  return memberIs(
      dexoDesc_, name,
      [&](SmbusDexo::DexoDesc& member) {
        requireSameParameter(member, "device", device, member.device());
        member.lobusAccelIdIs(lobusAccelId);
        member.busIdIs(busId);
        member.deviceIdIs(deviceId);
        member.addrSizeIs(addrSize);
        member.writeNoStopReadCurrentIs(writeNoStopReadCurrent);
        member.writeDelayIs(writeDelay);
        member.readDelayIs(readDelay);
        member.bug30005ExtraDelaysIs(bug30005ExtraDelays);
        member.busTimeoutIs(busTimeout);
        member.smbusAgentIdIs(smbusAgentId);
      },
      [&] {
        return newDexoDesc(name, device, lobusAccelId, busId, deviceId, addrSize,
                           writeNoStopReadCurrent, writeDelay, readDelay, bug30005ExtraDelays,
                           busTimeout, smbusAgentId);
      },
      [this](Zol::Name const& key) { dexoDescNotify(key); });
}

Zol::Ptr<SmbusDexo::DexoDesc> Config::newDexoDesc(
    Zol::Name name, Zol::Ptr<Hardware::SmbusDevice> const& device,
    Hardware::LobusAccelId lobusAccelId, Hardware::SmbusId busId, Hardware::SmbusDeviceId deviceId,
    Hardware::SmbusAddrSize addrSize, bool writeNoStopReadCurrent, Hardware::SmbusDelay writeDelay,
    Hardware::SmbusDelay readDelay, bool bug30005ExtraDelays, Hardware::SmbusTimeout busTimeout,
    Hardware::LobusAgentId smbusAgentId) {
  return makeMember(dexoDesc_, Id::dexoDesc,
                    new SmbusDexo::DexoDesc(name, device, lobusAccelId, busId, deviceId, addrSize,
                                            writeNoStopReadCurrent, writeDelay, readDelay,
                                            bug30005ExtraDelays, busTimeout, smbusAgentId));
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

void Config::controllerIs(Zol::Ptr<ControllerConfig> const& controller) {
  if (!controller) {
    Zol::throwRangeException(
        "null _controller parameter to mutator for Hardware::Ucd9012::Config::controller not "
        "allowed\"");
  }
  referenceIs(
      controller_, controller, [&] { return newController(controller); },
      [this](Zol::Name const& name) { controllerNotify(name); });
}

Zol::Ptr<Config::ZolController> Config::newController(
    Zol::Ptr<ControllerConfig> const& controller) {
  return makeEntry(controller_, new ZolController(controller));
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
