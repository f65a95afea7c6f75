#include "entities/controller_status.h"

namespace Hardware::Ucd9012 {

ControllerStatus::ControllerStatus(Zol::Name name) : EntityRules(std::move(name)) {}

ControllerStatus::~ControllerStatus() {
  diagCommandStatusDel();
  diagModeStatusDelAll();
}

Zol::ZolType* ControllerStatus::fwkType() const { return _fwkType(); }

Zol::String8 ControllerStatus::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/controller_status.def"
    default:
      return Hardware::PowerController::ControllerStatus::attributeString(id);
  }
}

bool ControllerStatus::zolHasAttrLogInterface() const { return true; }

void ControllerStatus::operationalModeIs(OperationalMode value) {
  assign(operationalMode_, value, Id::operationalMode, &NotifieeConst::onOperationalMode);
}

void ControllerStatus::temperatureIs(Units::Celsius const& value) {
  assign(temperature_, value, Id::temperature, &NotifieeConst::onTemperature);
}

void ControllerStatus::generationIdReadVoltageIs(std::uint32_t value) {
  assign(generationIdReadVoltage_, value, Id::generationIdReadVoltage,
         &NotifieeConst::onGenerationIdReadVoltage);
}

void ControllerStatus::generationIdTemperatureIs(std::uint32_t value) {
  assign(generationIdTemperature_, value, Id::generationIdTemperature,
         &NotifieeConst::onGenerationIdTemperature);
}

void ControllerStatus::resetDescriptionIs(Zol::String8 value) {
  assign(resetDescription_, value, Id::resetDescription, &NotifieeConst::onResetDescription);
}

void ControllerStatus::firmwareMfrDateIs(Zol::String8 value) {
  assign(firmwareMfrDate_, value, Id::firmwareMfrDate, &NotifieeConst::onFirmwareMfrDate);
}

void ControllerStatus::firmwareVersionIs(Zol::String8 value) {
  assign(firmwareVersion_, value, Id::firmwareVersion, &NotifieeConst::onFirmwareVersion);
}

void ControllerStatus::hwReadyIs(bool value) {
  assign(hwReady_, value, Id::hwReady, &NotifieeConst::onHwReady);
}

void ControllerStatus::reloadDueToKernelPanicIs(KernelPanicEepromStatus value) {
  assign(reloadDueToKernelPanic_, value, Id::reloadDueToKernelPanic,
         &NotifieeConst::onReloadDueToKernelPanic);
}

void ControllerStatus::kernelPanicEepromClearedIs(bool value) {
  assign(kernelPanicEepromCleared_, value, Id::kernelPanicEepromCleared,
         &NotifieeConst::onKernelPanicEepromCleared);
}

using Self = ControllerStatus;
#include "entities/stamp_member_bodies.h"
#include "schema/controller_status.def"

Zol::ValidPtr<Ucd9012DiagStatus> ControllerStatus::diagCommandStatusIs(Zol::Name name) {
  return singletonIs(
      diagCommandStatus_, Id::diagCommandStatus, &NotifieeConst::onDiagCommandStatus,
      [&](Ucd9012DiagStatus const& child) { return child.name() == name; },
      [&] { return newDiagCommandStatus(name); });
}

Zol::Ptr<Ucd9012DiagStatus> ControllerStatus::newDiagCommandStatus(Zol::Name name) {
  return makeSingleton(Id::diagCommandStatus, new Ucd9012DiagStatus(std::move(name)));
}

Zol::ValidPtr<Ucd9012DiagStatus> ControllerStatus::diagModeStatusIs(Zol::Name name) {
  return memberIs(
      diagModeStatus_, name, [](Ucd9012DiagStatus const&) {},
      [&] { return newDiagModeStatus(name); },
      [this](Zol::Name const& key) { diagModeStatusNotify(key); });
}

Zol::Ptr<Ucd9012DiagStatus> ControllerStatus::newDiagModeStatus(Zol::Name name) {
  return makeMember(diagModeStatus_, Id::diagModeStatus, new Ucd9012DiagStatus(std::move(name)));
}

char const ControllerStatus::NotifieeConst::kListenerClass = 0;

ControllerStatus::NotifieeConst::NotifieeConst()
    : Hardware::PowerController::ControllerStatus::NotifieeConst(&kListenerClass) {}

ControllerStatus::NotifieeConst::~NotifieeConst() = default;

Zol::Ptr<ControllerStatus const> ControllerStatus::NotifieeConst::notifier() const {
  return dynamic_cast<ControllerStatus const*>(entity());
}

Zol::Ptr<ControllerStatus> ControllerStatus::Notifiee::notifier() const {
  return dynamic_cast<ControllerStatus*>(const_cast<Zol::Entity*>(entity()));
}

}  // namespace Hardware::Ucd9012
