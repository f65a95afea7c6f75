#include "generic/children.h"

#include <charconv>
#include <optional>

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

namespace {

// The key that a text stands for, if any: a name as it is, a number in decimal digits.
template <class Key>
std::optional<Key> keyOf(Zol::String8 const& text) {
  if constexpr (std::is_same_v<Key, Zol::Name>) {
    return text;
  } else {
    Key key{};
    char const* const end = text.view().data() + text.size();
    auto const [behind, error] = std::from_chars(text.view().data(), end, key);
    if (error != std::errc() || behind != end) return std::nullopt;
    return key;
  }
}

}  // namespace

template <>
Zol::Ptr<Zol::Entity> childOf<Config>(Zol::Entity& holder, std::string_view name,
                                      Zol::String8 const* key) {
  auto& entity = static_cast<Config&>(holder);
#include "generic/stamp_children.h"
#include "schema/config.def"
  return nullptr;
}

template <>
Zol::Ptr<Zol::Entity> childOf<Status>(Zol::Entity& holder, std::string_view name,
                                      Zol::String8 const* key) {
  auto& entity = static_cast<Status&>(holder);
#include "generic/stamp_children.h"
#include "schema/status.def"
  return nullptr;
}

template <>
Zol::Ptr<Zol::Entity> childOf<ControllerConfig>(Zol::Entity& holder, std::string_view name,
                                                Zol::String8 const* key) {
  auto& entity = static_cast<ControllerConfig&>(holder);
#include "generic/stamp_children.h"
#include "schema/controller_config.def"
  return nullptr;
}

template <>
Zol::Ptr<Zol::Entity> childOf<ControllerStatus>(Zol::Entity& holder, std::string_view name,
                                                Zol::String8 const* key) {
  auto& entity = static_cast<ControllerStatus&>(holder);
#include "generic/stamp_children.h"
#include "schema/controller_status.def"
  return nullptr;
}

template <>
Zol::Ptr<Zol::Entity> childOf<Ucd9012DiagModeConfig>(Zol::Entity& holder, std::string_view name,
                                                     Zol::String8 const* key) {
  auto& entity = static_cast<Ucd9012DiagModeConfig&>(holder);
#include "generic/stamp_children.h"
#include "schema/ucd9012_diag_mode_config.def"
  return nullptr;
}

Zol::String8 keyTextOfRail(Zol::Entity const& rail) {
  return std::to_string(static_cast<VoltageRailConfig const&>(rail).zolKey());
}

}  // namespace Hardware::Ucd9012
