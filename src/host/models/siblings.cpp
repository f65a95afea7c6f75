#include "host/models/siblings.h"

#include "host/models/stream_type.h"

namespace Hardware::Gpio {

Zol::ZolType* PinConfig::fwkType() const { return _fwkType(); }

Zol::ZolType* PinConfig::_fwkType() {
  static Zol::ZolType* const type = Hardware::namedType<PinConfig>("Hardware::Gpio::PinConfig");
  return type;
}

Zol::ZolType* PinStatus::fwkType() const { return _fwkType(); }

Zol::ZolType* PinStatus::_fwkType() {
  static Zol::ZolType* const type = Hardware::namedType<PinStatus>("Hardware::Gpio::PinStatus");
  return type;
}

}  // namespace Hardware::Gpio

namespace Environment::Power {

Zol::ZolType* VoltageRailConfig::fwkType() const { return _fwkType(); }

Zol::ZolType* VoltageRailConfig::_fwkType() {
  static Zol::ZolType* const type =
      Hardware::namedType<VoltageRailConfig>("Environment::Power::VoltageRailConfig");
  return type;
}

Zol::ZolType* VoltageRailStatus::fwkType() const { return _fwkType(); }

Zol::ZolType* VoltageRailStatus::_fwkType() {
  static Zol::ZolType* const type =
      Hardware::namedType<VoltageRailStatus>("Environment::Power::VoltageRailStatus");
  return type;
}

}  // namespace Environment::Power

namespace EntityMib {

Zol::ZolType* Sensor::fwkType() const { return _fwkType(); }

Zol::ZolType* Sensor::_fwkType() {
  static Zol::ZolType* const type = Hardware::namedType<Sensor>("EntityMib::Sensor");
  return type;
}

}  // namespace EntityMib

namespace Fru {

Zol::ZolType* Gpo::fwkType() const { return _fwkType(); }

Zol::ZolType* Gpo::_fwkType() {
  static Zol::ZolType* const type = Hardware::namedType<Gpo>("Fru::Gpo");
  return type;
}

}  // namespace Fru
