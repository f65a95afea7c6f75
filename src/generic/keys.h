// The texts of keys that are no names, as a path has them.
#pragma once

#include "entities/voltage_rail_config.h"
#include "host/zol/registry/zol_type.h"

namespace Hardware::Ucd9012 {

[[nodiscard]] inline Zol::String8 keyTextOfRail(Zol::Entity const& rail) {
  return std::to_string(static_cast<VoltageRailConfig const&>(rail).zolKey());
}

// Null for a type whose holder keeps it under its name.
template <class X>
inline constexpr Zol::ZolType::KeyTextFn kKeyTextFn = nullptr;
template <>
inline constexpr Zol::ZolType::KeyTextFn kKeyTextFn<VoltageRailConfig> = &keyTextOfRail;

}  // namespace Hardware::Ucd9012
