// The table, stamped from the attribute list of the class.
#include "railseq/controller_attributes.h"

#include "hwrailseq.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace RailSeq {

namespace {

using Hardware::Ucd9012::ControllerConfig;
using Hardware::Ucd9012::OperationalMode;
using ControllerState = Hardware::PowerController::ControllerConfig::ControllerState;

// The enumerators' names, each at the place of its number; the numbers have no gap.
template <class Enum>
constexpr std::array<std::string_view, 0> kEnumerators{};
template <>
constexpr std::array kEnumerators<OperationalMode>{
#define ZOL_ENUMERATOR(name, number) std::string_view(#name),
#include "schema/operational_mode.def"
};
template <>
constexpr std::array kEnumerators<ControllerState>{
#define ZOL_ENUMERATOR(name, number) std::string_view(#name),
#include "host/models/controller_config_state.def"
};

template <class T>
std::vector<std::string> enumeratorsOf() {
  return {kEnumerators<T>.begin(), kEnumerators<T>.end()};
}

template <class T>
constexpr ValueKind kKind = std::is_same_v<T, bool>           ? ValueKind::boolean
                            : std::is_same_v<T, Zol::String8> ? ValueKind::text
                            : std::is_enum_v<T>               ? ValueKind::enumeration
                                                              : ValueKind::number;

template <class T, auto get>
AttributeValue readAttribute(ControllerConfig const& controller) {
  T const value = (controller.*get)();
  if constexpr (std::is_enum_v<T>) {
    return std::string(kEnumerators<T>.at(static_cast<std::size_t>(value)));
  } else if constexpr (std::is_same_v<T, Zol::String8>) {
    return std::string(value.view());
  } else {
    return value;
  }
}

template <class T, auto set>
void writeAttribute(ControllerConfig& controller, AttributeValue const& value) {
  if constexpr (std::is_enum_v<T>) {
    auto const found = std::ranges::find(kEnumerators<T>, std::get<std::string>(value));
    if (found == kEnumerators<T>.end()) return;
    (controller.*set)(static_cast<T>(found - kEnumerators<T>.begin()));
  } else if constexpr (std::is_same_v<T, Zol::String8>) {
    (controller.*set)(Zol::String8(std::get<std::string>(value)));
  } else {
    (controller.*set)(std::get<T>(value));
  }
}

template <class T, auto get, auto set>
constexpr ControllerAttribute row(std::string_view name) {
  return {name, kKind<T>, &enumeratorsOf<T>, &readAttribute<T, get>, &writeAttribute<T, set>};
}

constexpr std::array kAttributes{
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  row<Type, &ControllerConfig::attr, &ControllerConfig::attr##Is>(#attr),
#define ZOL_TEXT(attr, Attr, id, FLAGS) \
  row<Zol::String8, &ControllerConfig::attr, &ControllerConfig::attr##Is>(#attr),
#include "host/models/power_controller_config.def"
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  row<Type, &ControllerConfig::attr, &ControllerConfig::attr##Is>(#attr),
#define ZOL_TEXT(attr, Attr, id, FLAGS) \
  row<Zol::String8, &ControllerConfig::attr, &ControllerConfig::attr##Is>(#attr),
#include "schema/controller_config.def"
};

constexpr std::array kStructures{
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS)
#define ZOL_TEXT(attr, Attr, id, FLAGS)
#define ZOL_UNKEYED(attr, Attr, id) std::string_view(#attr),
#define ZOL_KEYED(attr, Attr, id, Key) std::string_view(#attr),
#include "schema/controller_config.def"
};

}  // namespace

std::span<ControllerAttribute const> controllerAttributes() { return kAttributes; }

std::span<std::string_view const> controllerStructures() { return kStructures; }

ControllerAttribute const* findControllerAttribute(std::string_view name) {
  auto const found = std::ranges::find(kAttributes, name, &ControllerAttribute::name);
  return found == kAttributes.end() ? nullptr : &*found;
}

std::string valueText(ControllerAttribute const& attribute, AttributeValue const& value) {
  switch (attribute.kind) {
    case ValueKind::boolean:
      return std::get<bool>(value) ? "true" : "false";
    case ValueKind::number:
      return std::to_string(std::get<std::uint32_t>(value));
    case ValueKind::enumeration:
      return std::get<std::string>(value);
    case ValueKind::text:
      return inQuotes(std::get<std::string>(value));
  }
  return {};
}

}  // namespace RailSeq
