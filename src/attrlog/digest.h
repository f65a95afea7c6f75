// What the entities of this model add to a digest: the attributes that are replicated.
#pragma once

#include "entities/config.h"
#include "entities/controller_config.h"
#include "host/zol/registry/zol_type.h"

namespace Hardware::Ucd9012 {

void digestConfig(Zol::Entity const& entity, Zol::Digest& digest);
void digestControllerConfig(Zol::Entity const& entity, Zol::Digest& digest);

// Null for a type that adds nothing of its own.
template <class X>
inline constexpr Zol::ZolType::DigestFn kDigestFn = nullptr;
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<Config> = &digestConfig;
template <>
inline constexpr Zol::ZolType::DigestFn kDigestFn<ControllerConfig> = &digestControllerConfig;

}  // namespace Hardware::Ucd9012
