#include "entities/controller_config.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

ControllerConfig::ControllerConfig(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus)
    : Hardware::PowerController::ControllerConfig(std::move(name), std::move(customerName),
                                                  dexoDesc, resetGpioPinConfig,
                                                  resetGpioPinStatus) {}

ControllerConfig::~ControllerConfig() = default;

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
