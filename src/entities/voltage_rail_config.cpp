#include "entities/voltage_rail_config.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

VoltageRailConfig::VoltageRailConfig(
    std::uint8_t id, Zol::Ptr<Environment::Power::VoltageRailConfig> const& voltageRailEnvConfig,
    Zol::Ptr<Environment::Power::VoltageRailStatus> const& voltageRailEnvStatus)
    : AttributeRules(Zol::Name()),
      id_(id),
      voltageRailEnvConfig_(voltageRailEnvConfig),
      voltageRailEnvStatus_(voltageRailEnvStatus) {}

VoltageRailConfig::~VoltageRailConfig() { dismissNotifiees(); }

Zol::ZolType* VoltageRailConfig::fwkType() const { return _fwkType(); }

Zol::String8 VoltageRailConfig::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/voltage_rail_config.def"
    default:
      return Entity::attributeString(id);
  }
}

bool VoltageRailConfig::zolHasAttrLogInterface() const { return true; }

void VoltageRailConfig::overrideVoutUvLimitIs(Units::Volts const& value) {
  assign(overrideVoutUvLimit_, value, Id::overrideVoutUvLimit,
         &NotifieeConst::onOverrideVoutUvLimit);
}

void VoltageRailConfig::overrideVoutOvLimitIs(Units::Volts const& value) {
  assign(overrideVoutOvLimit_, value, Id::overrideVoutOvLimit,
         &NotifieeConst::onOverrideVoutOvLimit);
}

void VoltageRailConfig::overridePowerGoodOffIs(Units::Volts const& value) {
  assign(overridePowerGoodOff_, value, Id::overridePowerGoodOff,
         &NotifieeConst::onOverridePowerGoodOff);
}

void VoltageRailConfig::sensorMibIs(Zol::Ptr<EntityMib::Sensor> const& value) {
  assign(sensorMib_, value, Id::sensorMib, &NotifieeConst::onSensorMib);
}

VoltageRailConfig::NotifieeConst::~NotifieeConst() = default;

void VoltageRailConfig::NotifieeConst::notifierIs(
    Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<VoltageRailConfig const*>(notifier.get()));
}

Zol::Ptr<VoltageRailConfig const> VoltageRailConfig::NotifieeConst::notifier() const {
  return static_cast<VoltageRailConfig const*>(entity());
}

Zol::Ptr<VoltageRailConfig> VoltageRailConfig::Notifiee::notifier() const {
  return const_cast<VoltageRailConfig*>(static_cast<VoltageRailConfig const*>(entity()));
}

}  // namespace Hardware::Ucd9012
