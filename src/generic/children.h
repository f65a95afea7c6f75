// The children that the entities of this model own, found by the name of the attribute and the text
// of the key, as a path has them.
#pragma once

#include "entities/config.h"
#include "entities/status.h"
#include "host/zol/registry/zol_type.h"

namespace Hardware::Ucd9012 {

template <class X>
[[nodiscard]] Zol::Ptr<Zol::Entity> childOf(Zol::Entity& holder, std::string_view attr,
                                            Zol::String8 const* key);

// Null for a type that owns no children of its own.
template <class X>
inline constexpr Zol::ZolType::ChildFn kChildFn = nullptr;
template <>
Zol::Ptr<Zol::Entity> childOf<Config>(Zol::Entity& holder, std::string_view attr,
                                      Zol::String8 const* key);
template <>
inline constexpr Zol::ZolType::ChildFn kChildFn<Config> = &childOf<Config>;
template <>
Zol::Ptr<Zol::Entity> childOf<Status>(Zol::Entity& holder, std::string_view attr,
                                      Zol::String8 const* key);
template <>
inline constexpr Zol::ZolType::ChildFn kChildFn<Status> = &childOf<Status>;
template <>
Zol::Ptr<Zol::Entity> childOf<ControllerConfig>(Zol::Entity& holder, std::string_view attr,
                                                Zol::String8 const* key);
template <>
inline constexpr Zol::ZolType::ChildFn kChildFn<ControllerConfig> = &childOf<ControllerConfig>;
template <>
Zol::Ptr<Zol::Entity> childOf<ControllerStatus>(Zol::Entity& holder, std::string_view attr,
                                                Zol::String8 const* key);
template <>
inline constexpr Zol::ZolType::ChildFn kChildFn<ControllerStatus> = &childOf<ControllerStatus>;
template <>
Zol::Ptr<Zol::Entity> childOf<Ucd9012DiagModeConfig>(Zol::Entity& holder, std::string_view attr,
                                                     Zol::String8 const* key);
template <>
inline constexpr Zol::ZolType::ChildFn kChildFn<Ucd9012DiagModeConfig> =
    &childOf<Ucd9012DiagModeConfig>;

[[nodiscard]] Zol::String8 keyTextOfRail(Zol::Entity const& rail);

// Null for a type whose holder keeps it under its name.
template <class X>
inline constexpr Zol::ZolType::KeyTextFn kKeyTextFn = nullptr;
template <>
inline constexpr Zol::ZolType::KeyTextFn kKeyTextFn<VoltageRailConfig> = &keyTextOfRail;

}  // namespace Hardware::Ucd9012
