// What happens when the library is loaded: its types can be found by name, so that entities can be
// made of what a log announces before this process has used their classes.
#include "host/models/power_controller.h"
#include "host/models/siblings.h"

namespace {

struct LoadTime {
  LoadTime() {
    Hardware::SmbusDevice::_fwkType();
    Hardware::DexoDesc::_fwkType();
    SmbusDexo::DexoDesc::_fwkType();
    I2cDexo::DexoDesc::_fwkType();
    Hardware::Gpio::PinConfig::_fwkType();
    Hardware::Gpio::PinStatus::_fwkType();
    Environment::Power::VoltageRailConfig::_fwkType();
    Environment::Power::VoltageRailStatus::_fwkType();
    EntityMib::Sensor::_fwkType();
    Fru::Gpo::_fwkType();
  }
};

LoadTime const loadTime;

}  // namespace
