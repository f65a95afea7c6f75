// The constructor parameters of this model's entities, as they stand in announcements.
#pragma once

#include "entities/voltage_rail_config.h"
#include "host/models/parameters.h"

namespace Zol::NboAttrLog {

template <>
struct ParametersOf<Hardware::Ucd9012::VoltageRailConfig> {
  using X = Hardware::Ucd9012::VoltageRailConfig;
  static constexpr auto accessors =
      std::tuple{&X::id, &X::voltageRailEnvConfig, &X::voltageRailEnvStatus};
};

}  // namespace Zol::NboAttrLog
