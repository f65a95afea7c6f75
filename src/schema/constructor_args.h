// What the constructor of each class takes, as the registry writes it: names and types as texts.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "host/models/power_controller.h"
#include "host/models/siblings.h"
#include "schema/types.h"

namespace Hardware::Ucd9012 {

struct ConstructorArg {
  std::string_view name;
  std::string_view type;
};

// The text of the type `T`, which the list writes as `written`: its registered name.
template <class T>
constexpr std::string_view typeText(std::string_view written) {
  constexpr std::string_view kConst = " const";
  if (!kFullName<T>.empty()) return kFullName<T>;
  if (std::is_same_v<T, std::uint8_t>) return "U8";
  if (std::is_same_v<T, std::uint16_t>) return "U16";
  if (std::is_same_v<T, std::uint32_t>) return "U32";
  if (written.ends_with(kConst)) written.remove_suffix(kConst.size());
  return written;
}

inline constexpr ConstructorArg kNameArg{"name", "Zol::Name"};
inline constexpr std::array kNameOnly{kNameArg};
inline constexpr std::array kControllerArgs{
    kNameArg,
#include "schema/stamp_parameters.h"
#include "host/models/power_controller_config.def"
};

// The classes of this library with attributes of their own that are parameters, and the classes
// from elsewhere that a holder makes. All other entities take a name.
template <class X>
inline constexpr std::array<ConstructorArg, 1> kConstructorArgs = kNameOnly;

template <>
inline constexpr std::array kConstructorArgs<UcdCause>{
#include "schema/stamp_parameters.h"
#include "schema/ucd_cause.def"
};
template <>
inline constexpr std::array kConstructorArgs<PsocCause>{
#include "schema/stamp_parameters.h"
#include "schema/psoc_cause.def"
};
template <>
inline constexpr std::array kConstructorArgs<PageFaultCause>{
#include "schema/stamp_parameters.h"
#include "schema/page_fault_cause.def"
};
template <>
inline constexpr std::array kConstructorArgs<ExternalVoltageRail>{
#include "schema/stamp_parameters.h"
#include "schema/external_voltage_rail.def"
};
template <>
inline constexpr std::array kConstructorArgs<VoltageRailConfig>{
#include "schema/stamp_parameters.h"
#include "schema/voltage_rail_config.def"
};
template <>
inline constexpr std::array kConstructorArgs<ControllerConfig> = kControllerArgs;
template <>
inline constexpr std::array kConstructorArgs<Ucd9012ControllerConfig> = kControllerArgs;
template <>
inline constexpr std::array kConstructorArgs<Ucd9032ControllerConfig> = kControllerArgs;
template <>
inline constexpr std::array kConstructorArgs<PsocControllerConfig> = kControllerArgs;

// All attributes of a bus descriptor are given at construction, also those that can change later.
template <>
inline constexpr std::array kConstructorArgs<SmbusDexo::DexoDesc>{
    kNameArg,
#include "schema/stamp_parameters.h"
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  ConstructorArg{#attr, typeText<Type>(#Type)},
#include "host/models/smbus_dexo_desc.def"
};
template <>
inline constexpr std::array kConstructorArgs<I2cDexo::DexoDesc>{
    kNameArg,
#include "schema/stamp_parameters.h"
#include "host/models/i2c_dexo_desc.def"
};

}  // namespace Hardware::Ucd9012
