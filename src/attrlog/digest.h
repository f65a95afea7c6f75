// What the entities of this model add to a digest: the attributes that are replicated.
#pragma once

#include "host/zol/registry/zol_type.h"
#include "schema/types.h"

namespace Hardware::Ucd9012 {

template <class X>
void digestOf(Zol::Entity const& entity, Zol::Digest& digest);

// Null for a type that adds nothing of its own.
template <class X>
inline constexpr Zol::ZolType::DigestFn kDigestFn = nullptr;

template <>
void digestOf<Config>(Zol::Entity const& entity, Zol::Digest& digest);
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<Config> = &digestOf<Config>;

template <>
void digestOf<Status>(Zol::Entity const& entity, Zol::Digest& digest);
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<Status> = &digestOf<Status>;

template <>
void digestOf<ControllerConfig>(Zol::Entity const& entity, Zol::Digest& digest);
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<ControllerConfig> = &digestOf<ControllerConfig>;

template <>
void digestOf<ControllerStatus>(Zol::Entity const& entity, Zol::Digest& digest);
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<ControllerStatus> = &digestOf<ControllerStatus>;

template <>
void digestOf<VoltageRailConfig>(Zol::Entity const& entity, Zol::Digest& digest);
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<VoltageRailConfig> = &digestOf<VoltageRailConfig>;

template <>
void digestOf<Ucd9012DiagConfig>(Zol::Entity const& entity, Zol::Digest& digest);
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<Ucd9012DiagConfig> = &digestOf<Ucd9012DiagConfig>;

template <>
void digestOf<Ucd9012DiagModeConfig>(Zol::Entity const& entity, Zol::Digest& digest);
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<Ucd9012DiagModeConfig> =
    &digestOf<Ucd9012DiagModeConfig>;

template <>
void digestOf<Ucd9012DiagStatus>(Zol::Entity const& entity, Zol::Digest& digest);
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<Ucd9012DiagStatus> = &digestOf<Ucd9012DiagStatus>;

}  // namespace Hardware::Ucd9012
