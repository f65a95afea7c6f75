#include "host/models/power_controller.h"

#include "host/models/power_controller_generic.h"
#include "host/models/siblings.h"
#include "host/zol/digest.h"
#include "host/zol/generic/entity_type.h"
#include "host/zol/generic/value_generic_if.h"

namespace Hardware::PowerController {

namespace {

constexpr Zol::Enumerator kConfigStateRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "host/models/controller_config_state.def"
};
constexpr Zol::Enumeration<ControllerConfig::ControllerState> kConfigStates("ControllerState",
                                                                            kConfigStateRows);

constexpr Zol::Enumerator kStatusStateRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "host/models/controller_status_state.def"
};
constexpr Zol::Enumeration<ControllerStatus::ControllerState> kStatusStates("ControllerState",
                                                                            kStatusStateRows);

void digestControllerConfig(Zol::Entity const& controller, Zol::Digest& digest) {
  auto const& entity = static_cast<ControllerConfig const&>(controller);
#include "host/zol/stamp/stamp_digest.h"
#include "host/models/power_controller_config.def"
}

void digestControllerStatus(Zol::Entity const& controller, Zol::Digest& digest) {
  auto const& entity = static_cast<ControllerStatus const&>(controller);
#include "host/zol/stamp/stamp_digest.h"
#include "host/models/power_controller_status.def"
}

}  // namespace

ControllerConfig::ControllerConfig(
    Zol::Name name, Zol::Name customerName, Zol::Ptr<Hardware::DexoDesc> const& dexoDesc,
    Zol::Ptr<Hardware::Gpio::PinConfig> const& resetGpioPinConfig,
    Zol::Ptr<Hardware::Gpio::PinStatus const> const& resetGpioPinStatus)
    : AttributeRules(std::move(name)),
      customerName_(std::move(customerName)),
      dexoDesc_(dexoDesc),
      resetGpioPinConfig_(resetGpioPinConfig),
      resetGpioPinStatus_(resetGpioPinStatus) {}

ControllerConfig::~ControllerConfig() { dismissNotifiees(); }

ControllerConfig::ControllerState ControllerConfig::ControllerStateInstance(unsigned int number) {
  return kConfigStates.instance(number);
}

Zol::ZolType* ControllerConfig::_fwkType_ControllerState() {
  static Zol::ZolType* const type =
      Zol::makeEnumerationType<ControllerState>(
          "Hardware::PowerController::ControllerConfig::ControllerState", kConfigStates.rows())
          .type();
  return type;
}

Zol::ZolType* ControllerConfig::fwkType() const { return _fwkType(); }

Zol::ZolType* ControllerConfig::_fwkType() {
  static Zol::ZolType* const type = [] {
    auto attributes = Zol::ModelType::entity(
        "Hardware::PowerController::ControllerConfig", sizeof(ControllerConfig), Entity::_fwkType(),
        new Zol::EntityType<ControllerConfig>("ControllerConfig", nullptr, Entity::_fwkType(),
                                              Zol::ZolType::ZolTypeFlags()));
    attributes.arg("name", "Zol::Name")
        .arg("customerName", "Zol::Name")
        .arg("dexoDesc", "Hardware::DexoDesc")
        .arg("resetGpioPinConfig", "Hardware::Gpio::PinConfig")
        .arg("resetGpioPinStatus", "Hardware::Gpio::PinStatus");
#include "host/zol/registry/stamp_attributes.h"
#include "host/models/power_controller_config.def"
    attributes.type()->digestFnIs(&digestControllerConfig);
    return attributes.type();
  }();
  return type;
}

Zol::String8 ControllerConfig::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "host/models/power_controller_config.def"
    default:
      return Entity::attributeString(id);
  }
}

void ControllerConfig::autoStartPowerProgramIs(bool value) {
  assign<NotifieeConst>(autoStartPowerProgram_, value, Id::autoStartPowerProgram,
                        &NotifieeConst::onAutoStartPowerProgram);
}

void ControllerConfig::controllerStateIs(ControllerState value) {
  assign<NotifieeConst>(controllerState_, value, Id::controllerState,
                        &NotifieeConst::onControllerState);
}

Zol::String8 valueToStrep(ControllerConfig::ControllerState value) {
  return kConfigStates.strep(value);
}

Zol::String8 valueToStrep(ControllerStatus::ControllerState value) {
  return kStatusStates.strep(value);
}

ControllerConfig::ControllerState sequenceToValue(Zol::String8::IteratorConst& position,
                                                  Zol::String8::IteratorConst const& end,
                                                  ControllerConfig::ControllerState*) {
  return kConfigStates.instance(Zol::quotedAt(position, end));
}

ControllerStatus::ControllerState sequenceToValue(Zol::String8::IteratorConst& position,
                                                  Zol::String8::IteratorConst const& end,
                                                  ControllerStatus::ControllerState*) {
  return kStatusStates.instance(Zol::quotedAt(position, end));
}

ControllerConfig::NotifieeConst::~NotifieeConst() = default;

void ControllerConfig::NotifieeConst::notifierIs(
    Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<ControllerConfig const*>(notifier.get()));
}

Zol::Ptr<ControllerConfig const> ControllerConfig::NotifieeConst::notifier() const {
  return static_cast<ControllerConfig const*>(entity());
}

Zol::Ptr<ControllerConfig> ControllerConfig::Notifiee::notifier() const {
  return const_cast<ControllerConfig*>(static_cast<ControllerConfig const*>(entity()));
}

ControllerStatus::ControllerStatus(Zol::Name name) : AttributeRules(std::move(name)) {}

ControllerStatus::~ControllerStatus() { dismissNotifiees(); }

ControllerStatus::ControllerState ControllerStatus::ControllerStateInstance(unsigned int number) {
  return kStatusStates.instance(number);
}

Zol::ZolType* ControllerStatus::_fwkType_ControllerState() {
  static Zol::ZolType* const type =
      Zol::makeEnumerationType<ControllerState>(
          "Hardware::PowerController::ControllerStatus::ControllerState", kStatusStates.rows())
          .type();
  return type;
}

Zol::ZolType* ControllerStatus::fwkType() const { return _fwkType(); }

Zol::ZolType* ControllerStatus::_fwkType() {
  static Zol::ZolType* const type = [] {
    auto attributes = Zol::ModelType::entity(
        "Hardware::PowerController::ControllerStatus", sizeof(ControllerStatus), Entity::_fwkType(),
        new Zol::EntityType<ControllerStatus>("ControllerStatus", nullptr, Entity::_fwkType(),
                                              Zol::ZolType::ZolTypeFlags()));
    attributes.arg("name", "Zol::Name");
#include "host/zol/registry/stamp_attributes.h"
#include "host/models/power_controller_status.def"
    attributes.type()->digestFnIs(&digestControllerStatus);
    return attributes.type();
  }();
  return type;
}

Zol::String8 ControllerStatus::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "host/models/power_controller_status.def"
    default:
      return Entity::attributeString(id);
  }
}

void ControllerStatus::controllerStateIs(ControllerState value) {
  assign<NotifieeConst>(controllerState_, value, Id::controllerState,
                        &NotifieeConst::onControllerState);
}

void ControllerStatus::controllerVersionIs(Zol::String8 value) {
  assign<NotifieeConst>(controllerVersion_, value, Id::controllerVersion,
                        &NotifieeConst::onControllerVersion);
}

ControllerStatus::NotifieeConst::~NotifieeConst() = default;

void ControllerStatus::NotifieeConst::notifierIs(
    Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<ControllerStatus const*>(notifier.get()));
}

Zol::Ptr<ControllerStatus const> ControllerStatus::NotifieeConst::notifier() const {
  return static_cast<ControllerStatus const*>(entity());
}

Zol::Ptr<ControllerStatus> ControllerStatus::Notifiee::notifier() const {
  return const_cast<ControllerStatus*>(static_cast<ControllerStatus const*>(entity()));
}

}  // namespace Hardware::PowerController
