#include "entities/controller_config.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

ControllerConfig::ControllerConfig(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus)
    : EntityRules(std::move(name), std::move(customerName), dexoDesc, resetGpioPinConfig,
                  resetGpioPinStatus) {}

ControllerConfig::~ControllerConfig() {
  voltageRailDelAll();
  diagCommandConfigDel();
  diagModeConfigDelAll();
  kernelPanicEepromDexoDel();
}

Zol::ZolType* ControllerConfig::fwkType() const { return _fwkType(); }

Zol::String8 ControllerConfig::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/controller_config.def"
    default:
      return Hardware::PowerController::ControllerConfig::attributeString(id);
  }
}

bool ControllerConfig::zolHasAttrLogInterface() const { return true; }

void ControllerConfig::generationIdReadVoltageIs(std::uint32_t value) {
  assign(generationIdReadVoltage_, value, Id::generationIdReadVoltage,
         &NotifieeConst::onGenerationIdReadVoltage);
}

void ControllerConfig::generationIdTemperatureIs(std::uint32_t value) {
  assign(generationIdTemperature_, value, Id::generationIdTemperature,
         &NotifieeConst::onGenerationIdTemperature);
}

void ControllerConfig::isMainControllerIs(bool value) {
  assign(isMainController_, value, Id::isMainController, &NotifieeConst::onIsMainController);
}

void ControllerConfig::locationIs(Zol::String8 value) {
  assign(location_, value, Id::location, &NotifieeConst::onLocation);
}

void ControllerConfig::reloadCauseSortKeyIs(std::uint32_t value) {
  assign(reloadCauseSortKey_, value, Id::reloadCauseSortKey, &NotifieeConst::onReloadCauseSortKey);
}

void ControllerConfig::operationalModeIs(OperationalMode value) {
  assign(operationalMode_, value, Id::operationalMode, &NotifieeConst::onOperationalMode);
}

void ControllerConfig::shutdownEnabledIs(bool value) {
  assign(shutdownEnabled_, value, Id::shutdownEnabled, &NotifieeConst::onShutdownEnabled);
}

void ControllerConfig::pollingEnabledIs(bool value) {
  assign(pollingEnabled_, value, Id::pollingEnabled, &NotifieeConst::onPollingEnabled);
}

void ControllerConfig::configReadyIs(bool value) {
  assign(configReady_, value, Id::configReady, &NotifieeConst::onConfigReady);
}

void ControllerConfig::modelNameIs(Zol::String8 value) {
  assign(modelName_, value, Id::modelName, &NotifieeConst::onModelName);
}

void ControllerConfig::descriptionIs(Zol::String8 value) {
  assign(description_, value, Id::description, &NotifieeConst::onDescription);
}

void ControllerConfig::readyIs(bool value) {
  assign(ready_, value, Id::ready, &NotifieeConst::onReady);
}

void ControllerConfig::debugPowerOffIs(bool value) {
  assign(debugPowerOff_, value, Id::debugPowerOff, &NotifieeConst::onDebugPowerOff);
}

using Self = ControllerConfig;
#include "entities/stamp_member_bodies.h"
#include "schema/controller_config.def"

Zol::ValidPtr<VoltageRailConfig> ControllerConfig::voltageRailIs(
    std::uint8_t id, Zol::Ptr<Environment::Power::VoltageRailConfig> const& voltageRailEnvConfig,
    Zol::Ptr<Environment::Power::VoltageRailStatus> const& voltageRailEnvStatus) {
  return memberIs(
      voltageRail_, id,
      [&](VoltageRailConfig const& rail) {
        requireSameParameter(rail, "voltageRailEnvConfig", voltageRailEnvConfig,
                             rail.voltageRailEnvConfig());
        requireSameParameter(rail, "voltageRailEnvStatus", voltageRailEnvStatus,
                             rail.voltageRailEnvStatus());
      },
      [&] { return newVoltageRail(id, voltageRailEnvConfig, voltageRailEnvStatus); },
      [this](std::uint8_t key) { voltageRailNotify(key); });
}

Zol::Ptr<VoltageRailConfig> ControllerConfig::newVoltageRail(
    std::uint8_t id, Zol::Ptr<Environment::Power::VoltageRailConfig> const& voltageRailEnvConfig,
    Zol::Ptr<Environment::Power::VoltageRailStatus> const& voltageRailEnvStatus) {
  return makeMember(voltageRail_, Id::voltageRail,
                    new VoltageRailConfig(id, voltageRailEnvConfig, voltageRailEnvStatus));
}

void ControllerConfig::reloadCauseIs(std::uint32_t key, UcdCause const& value) {
  valueIs(
      reloadCause_, key, value, [&] { return newReloadCause(key, value); },
      [this](std::uint32_t changed) { reloadCauseNotify(changed); });
}

Zol::Ptr<ControllerConfig::ZolReloadCause> ControllerConfig::newReloadCause(std::uint32_t key,
                                                                            UcdCause const& value) {
  return makeEntry(reloadCause_, new ZolReloadCause(key, value));
}

void ControllerConfig::psocReloadCauseIs(std::uint32_t key, PsocCause const& value) {
  valueIs(
      psocReloadCause_, key, value, [&] { return newPsocReloadCause(key, value); },
      [this](std::uint32_t changed) { psocReloadCauseNotify(changed); });
}

Zol::Ptr<ControllerConfig::ZolPsocReloadCause> ControllerConfig::newPsocReloadCause(
    std::uint32_t key, PsocCause const& value) {
  return makeEntry(psocReloadCause_, new ZolPsocReloadCause(key, value));
}

void ControllerConfig::pageFaultCauseIs(std::uint32_t key,
                                        Hardware::Ucd9012::PageFaultCause const& value) {
  valueIs(
      pageFaultCause_, key, value, [&] { return newPageFaultCause(key, value); },
      [this](std::uint32_t changed) { pageFaultCauseNotify(changed); });
}

Zol::Ptr<ControllerConfig::ZolPageFaultCause> ControllerConfig::newPageFaultCause(
    std::uint32_t key, Hardware::Ucd9012::PageFaultCause const& value) {
  return makeEntry(pageFaultCause_, new ZolPageFaultCause(key, value));
}

void ControllerConfig::externalVoltageRailIs(std::uint32_t key,
                                             Hardware::Ucd9012::ExternalVoltageRail value) {
  valueIs(
      externalVoltageRail_, key, value, [&] { return newExternalVoltageRail(key, value); },
      [this](std::uint32_t changed) { externalVoltageRailNotify(changed); });
}

Zol::Ptr<ControllerConfig::ZolExternalVoltageRail> ControllerConfig::newExternalVoltageRail(
    std::uint32_t key, Hardware::Ucd9012::ExternalVoltageRail value) {
  return makeEntry(externalVoltageRail_, new ZolExternalVoltageRail(key, value));
}

Zol::ValidPtr<Ucd9012DiagConfig> ControllerConfig::diagCommandConfigIs(Zol::Name name) {
  return singletonIs(
      diagCommandConfig_, Id::diagCommandConfig, &NotifieeConst::onDiagCommandConfig,
      [&](Ucd9012DiagConfig const& child) { return child.name() == name; },
      [&] { return newDiagCommandConfig(name); });
}

Zol::Ptr<Ucd9012DiagConfig> ControllerConfig::newDiagCommandConfig(Zol::Name name) {
  return makeSingleton(Id::diagCommandConfig, new Ucd9012DiagConfig(std::move(name)));
}

Zol::ValidPtr<Ucd9012DiagModeConfig> ControllerConfig::diagModeConfigIs(Zol::Name name) {
  return memberIs(
      diagModeConfig_, name, [](Ucd9012DiagModeConfig const&) {},
      [&] { return newDiagModeConfig(name); },
      [this](Zol::Name const& key) { diagModeConfigNotify(key); });
}

Zol::Ptr<Ucd9012DiagModeConfig> ControllerConfig::newDiagModeConfig(Zol::Name name) {
  return makeMember(diagModeConfig_, Id::diagModeConfig,
                    new Ucd9012DiagModeConfig(std::move(name)));
}

Zol::ValidPtr<I2cDexo::DexoDesc> ControllerConfig::kernelPanicEepromDexoIs(Zol::Name name,
                                                                           std::uint8_t busId,
                                                                           std::uint8_t device) {
  return singletonIs(
      kernelPanicEepromDexo_, Id::kernelPanicEepromDexo, &NotifieeConst::onKernelPanicEepromDexo,
      [&](I2cDexo::DexoDesc const& child) {
        return child.name() == name && child.busId() == busId && child.device() == device;
      },
      [&] { return newKernelPanicEepromDexo(name, busId, device); });
}

Zol::Ptr<I2cDexo::DexoDesc> ControllerConfig::newKernelPanicEepromDexo(Zol::Name name,
                                                                       std::uint8_t busId,
                                                                       std::uint8_t device) {
  return makeSingleton(Id::kernelPanicEepromDexo,
                       new I2cDexo::DexoDesc(std::move(name), busId, device));
}

void ControllerConfig::kernelPanicEepromWpIs(Zol::Ptr<Fru::Gpo> const& value) {
  assign(kernelPanicEepromWp_, value, Id::kernelPanicEepromWp,
         &NotifieeConst::onKernelPanicEepromWp);
}

char const ControllerConfig::NotifieeConst::kListenerClass = 0;

ControllerConfig::NotifieeConst::NotifieeConst()
    : Hardware::PowerController::ControllerConfig::NotifieeConst(&kListenerClass) {}

ControllerConfig::NotifieeConst::~NotifieeConst() = default;

Zol::Ptr<ControllerConfig const> ControllerConfig::NotifieeConst::notifier() const {
  return dynamic_cast<ControllerConfig const*>(entity());
}

Zol::Ptr<ControllerConfig> ControllerConfig::Notifiee::notifier() const {
  return dynamic_cast<ControllerConfig*>(const_cast<Zol::Entity*>(entity()));
}

}  // namespace Hardware::Ucd9012
