// The constructor parameters of the entities of these models.
#pragma once

#include "host/models/power_controller.h"
#include "host/models/siblings.h"
#include "host/models/wire_forms.h"
#include "host/zol/attrlog/parameters.h"

namespace Zol::NboAttrLog {

// All controllers are made alike, whatever they add.
template <class X>
requires std::is_base_of_v<Hardware::PowerController::ControllerConfig, X>
struct ParametersOf<X> {
  static constexpr auto accessors = std::tuple{&X::name, &X::customerName, &X::dexoDesc,
                                               &X::resetGpioPinConfig, &X::resetGpioPinStatus};
};

template <>
struct ParametersOf<I2cDexo::DexoDesc> {
  using X = I2cDexo::DexoDesc;
  static constexpr auto accessors = std::tuple{&X::name, &X::busId, &X::device};
};

template <>
struct ParametersOf<SmbusDexo::DexoDesc> {
  using X = SmbusDexo::DexoDesc;
  static constexpr auto accessors = std::tuple{&X::name,
                                               &X::device,
                                               &X::lobusAccelId,
                                               &X::busId,
                                               &X::deviceId,
                                               &X::addrSize,
                                               &X::writeNoStopReadCurrent,
                                               &X::writeDelay,
                                               &X::readDelay,
                                               &X::bug30005ExtraDelays,
                                               &X::busTimeout,
                                               &X::smbusAgentId};
};

// All but the name and the device can be set anew.
template <>
inline constexpr std::size_t kFixedParameters<SmbusDexo::DexoDesc> = 2;

}  // namespace Zol::NboAttrLog
