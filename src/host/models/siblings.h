// The models next to this one, as far as it refers to them: each entity here is known by its name
// alone.
#pragma once

#include "host/models/dexo_desc.h"
#include "host/models/named_entity.h"
#include "host/models/smbus.h"
#include "host/models/units.h"

// General-purpose pins.
namespace Hardware::Gpio {

// What is wanted of a pin.
class ZOL_EXPORT PinConfig : public Hardware::NamedEntity {
 public:
  class _Type;

  using NamedEntity::NamedEntity;
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  static Zol::ZolType* _fwkType();
};

// What a pin reports.
class ZOL_EXPORT PinStatus : public Hardware::NamedEntity {
 public:
  class _Type;

  using NamedEntity::NamedEntity;
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  static Zol::ZolType* _fwkType();
};

}  // namespace Hardware::Gpio

// The environment model of power.
namespace Environment::Power {

// What is wanted of a voltage rail, as the environment model has it.
class ZOL_EXPORT VoltageRailConfig : public Hardware::NamedEntity {
 public:
  class _Type;

  using NamedEntity::NamedEntity;
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  static Zol::ZolType* _fwkType();
};

// What a voltage rail reports, as the environment model has it.
class ZOL_EXPORT VoltageRailStatus : public Hardware::NamedEntity {
 public:
  class _Type;

  using NamedEntity::NamedEntity;
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  static Zol::ZolType* _fwkType();
};

}  // namespace Environment::Power

// Sensors.
namespace EntityMib {

// A sensor.
class ZOL_EXPORT Sensor : public Hardware::NamedEntity {
 public:
  class _Type;

  using NamedEntity::NamedEntity;
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  static Zol::ZolType* _fwkType();
};

}  // namespace EntityMib

// Outputs.
namespace Fru {

// A general-purpose output.
class ZOL_EXPORT Gpo : public Hardware::NamedEntity {
 public:
  class _Type;

  using NamedEntity::NamedEntity;
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  static Zol::ZolType* _fwkType();
};

}  // namespace Fru
