// The children that the entities of this model own, found by the name of the attribute and the text
// of the key, as a path has them.
#pragma once

#include "entities/config.h"
#include "entities/voltage_rail_config.h"
#include "host/zol/registry/zol_type.h"

namespace Hardware::Ucd9012 {

[[nodiscard]] Zol::Ptr<Zol::Entity> childOfConfig(Zol::Entity& holder, std::string_view attr,
                                                  Zol::String8 const* key);

// Null for a type that owns no children of its own.
template <class X>
inline constexpr Zol::ZolType::ChildFn kChildFn = nullptr;
template <>
inline constexpr Zol::ZolType::ChildFn kChildFn<Config> = &childOfConfig;

[[nodiscard]] Zol::String8 keyTextOfRail(Zol::Entity const& rail);

// Null for a type whose holder keeps it under its name.
template <class X>
inline constexpr Zol::ZolType::KeyTextFn kKeyTextFn = nullptr;
template <>
inline constexpr Zol::ZolType::KeyTextFn kKeyTextFn<VoltageRailConfig> = &keyTextOfRail;

}  // namespace Hardware::Ucd9012
