// The attributes that each class defines itself, as rows that can be walked.
#pragma once

#include <array>
#include <string_view>

#include "host/zol/registry/attr_flags.h"
#include "schema/types.h"

namespace Hardware::Ucd9012 {

enum class AttributeKind {
  parameter,
  parameterReference,
  scalar,
  text,
  reference,
  singleton,
  values,
  texts,
  children,
  references,
};

struct AttributeRow {
  std::string_view name;
  Zol::AttributeId id;
  AttributeKind kind;
  Zol::AttrClass attrClass;
};

// In the order of the ids. Empty for a class without attributes of its own, such as a chip variant.
template <class X>
inline constexpr std::array<AttributeRow, 0> kAttributeRows{};

// Whether the entity class `X` holds its key as an attribute besides.
template <class X>
inline constexpr bool kHoldsKey = false;
#define ZOL_KEYED_ENTITY_TYPE(X, Base, Key) \
  template <>                               \
  inline constexpr bool kHoldsKey<X> = true;
#include "schema/types.def"

template <>
inline constexpr std::array kAttributeRows<UcdCause>{
#include "schema/stamp_rows.h"
#include "schema/ucd_cause.def"
};
template <>
inline constexpr std::array kAttributeRows<PsocCause>{
#include "schema/stamp_rows.h"
#include "schema/psoc_cause.def"
};
template <>
inline constexpr std::array kAttributeRows<PageFaultCause>{
#include "schema/stamp_rows.h"
#include "schema/page_fault_cause.def"
};
template <>
inline constexpr std::array kAttributeRows<ExternalVoltageRail>{
#include "schema/stamp_rows.h"
#include "schema/external_voltage_rail.def"
};
template <>
inline constexpr std::array kAttributeRows<Ucd9012DiagConfig>{
#include "schema/stamp_rows.h"
#include "schema/ucd9012_diag_config.def"
};
template <>
inline constexpr std::array kAttributeRows<Ucd9012DiagModeConfig>{
#include "schema/stamp_rows.h"
#include "schema/ucd9012_diag_mode_config.def"
};
template <>
inline constexpr std::array kAttributeRows<Ucd9012DiagStatus>{
#include "schema/stamp_rows.h"
#include "schema/ucd9012_diag_status.def"
};
template <>
inline constexpr std::array kAttributeRows<VoltageRailConfig>{
#include "schema/stamp_rows.h"
#include "schema/voltage_rail_config.def"
};
template <>
inline constexpr std::array kAttributeRows<ControllerConfig>{
#include "schema/stamp_rows.h"
#include "schema/controller_config.def"
};
template <>
inline constexpr std::array kAttributeRows<ControllerStatus>{
#include "schema/stamp_rows.h"
#include "schema/controller_status.def"
};
template <>
inline constexpr std::array kAttributeRows<Config>{
#include "schema/stamp_rows.h"
#include "schema/config.def"
};
template <>
inline constexpr std::array kAttributeRows<Status>{
#include "schema/stamp_rows.h"
#include "schema/status.def"
};

}  // namespace Hardware::Ucd9012
