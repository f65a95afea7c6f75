#include "host/models/siblings.h"

#include "host/zol/registry/model_type.h"

namespace {

// The type of a class of entities that are known by their name alone.
template <class X>
Zol::ZolType* namedType(char const* fullName) {
  return Zol::ModelType::entity(fullName, sizeof(X), Zol::Entity::_fwkType())
      .arg("name", "Zol::Name")
      .type();
}

}  // namespace

namespace Hardware::Gpio {

Zol::ZolType* PinConfig::fwkType() const { return _fwkType(); }

Zol::ZolType* PinConfig::_fwkType() {
  static Zol::ZolType* const type = namedType<PinConfig>("Hardware::Gpio::PinConfig");
  return type;
}

Zol::ZolType* PinStatus::fwkType() const { return _fwkType(); }

Zol::ZolType* PinStatus::_fwkType() {
  static Zol::ZolType* const type = namedType<PinStatus>("Hardware::Gpio::PinStatus");
  return type;
}

}  // namespace Hardware::Gpio

namespace Environment::Power {

Zol::ZolType* VoltageRailConfig::fwkType() const { return _fwkType(); }

Zol::ZolType* VoltageRailConfig::_fwkType() {
  static Zol::ZolType* const type =
      namedType<VoltageRailConfig>("Environment::Power::VoltageRailConfig");
  return type;
}

Zol::ZolType* VoltageRailStatus::fwkType() const { return _fwkType(); }

Zol::ZolType* VoltageRailStatus::_fwkType() {
  static Zol::ZolType* const type =
      namedType<VoltageRailStatus>("Environment::Power::VoltageRailStatus");
  return type;
}

}  // namespace Environment::Power

namespace EntityMib {

Zol::ZolType* Sensor::fwkType() const { return _fwkType(); }

Zol::ZolType* Sensor::_fwkType() {
  static Zol::ZolType* const type = namedType<Sensor>("EntityMib::Sensor");
  return type;
}

}  // namespace EntityMib

namespace Fru {

Zol::ZolType* Gpo::fwkType() const { return _fwkType(); }

Zol::ZolType* Gpo::_fwkType() {
  static Zol::ZolType* const type = namedType<Gpo>("Fru::Gpo");
  return type;
}

}  // namespace Fru
