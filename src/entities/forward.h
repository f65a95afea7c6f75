// Forward declarations of the entity classes and of what they refer to.
#pragma once

namespace EntityMib {
class Sensor;
}
namespace Environment::Power {
class VoltageRailConfig;
class VoltageRailStatus;
}  // namespace Environment::Power
namespace Fru {
class Gpo;
}
namespace I2cDexo {
class DexoDesc;
}
namespace SmbusDexo {
class DexoDesc;
}
namespace Hardware {
class DexoDesc;
}
namespace Hardware::Gpio {
class PinConfig;
class PinStatus;
}  // namespace Hardware::Gpio

// The model of power-sequencing controllers: the roots `Config` and `Status`, what stands below
// them, and their values. Objects are made with `new` or by their holder and held by `Zol::Ptr`;
// every class of entities has a class `Notifiee` for its listeners.
namespace Hardware::Ucd9012 {
class Config;
class ControllerConfig;
class ControllerStatus;
class PsocControllerConfig;
class PsocControllerStatus;
class Status;
class Ucd9012ControllerConfig;
class Ucd9012ControllerStatus;
class Ucd9012DiagConfig;
class Ucd9012DiagModeConfig;
class Ucd9012DiagStatus;
class Ucd9032ControllerConfig;
class Ucd9032ControllerStatus;
class VoltageRailConfig;
}  // namespace Hardware::Ucd9012
