// A 64-bit digest of the replicated state of an entity and all that it owns.
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>

#include "host/zol/entity.h"
#include "host/zol/value_text.h"

namespace Zol {

// The digest of an entity and of all that it owns, by names and values: it does not depend on ids,
// counters, the order of insertion or addresses, and is the same in every process. A reference
// counts by the path of what it refers to, and one out of the tree by type and name, since a
// replica has such an entity without the tree that it stands in at the source; 0.0 and -0.0 count
// as equal, and all not-a-numbers as the same value. Equal on a source and its replica once the log
// between them has drained.
[[nodiscard]] ZOL_EXPORT std::uint64_t digest(Entity const& entity);

// Collects the attributes of one entity; each class adds its own, in any order.
class ZOL_EXPORT Digest {
 public:
  // Of no entity, whose tree no reference lies in.
  Digest() = default;
  explicit Digest(Entity const& of) : of_(&of) {}

  // An unkeyed attribute.
  template <class T>
  void attribute(std::string_view name, T const& value) {
    add(name, {}, valueOf(value));
  }
  // A reference to an entity, or none.
  void reference(std::string_view name, Entity const* entity);
  // A child, or none.
  void child(std::string_view name, Entity const* child) {
    add(name, {}, child ? digest(*child) : 0);
  }
  // A member of a keyed attribute: a value, a child, a reference.
  template <class Key, class T>
  void value(std::string_view name, Key const& key, T const& value) {
    add(name, keyText(key).view(), valueOf(value));
  }
  template <class Key>
  void member(std::string_view name, Key const& key, Entity const& child) {
    add(name, keyText(key).view(), digest(child));
  }
  template <class Key>
  void referred(std::string_view name, Key const& key, Entity const& entity) {
    add(name, keyText(key).view(), referenceOf(entity));
  }

  [[nodiscard]] std::uint64_t sum() const noexcept { return sum_; }

 private:
  template <class T>
  [[nodiscard]] static std::uint64_t valueOf(T const& value) {
    if constexpr (std::is_floating_point_v<T>) {
      return doubleOf(static_cast<double>(value));
    } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
      return static_cast<std::uint64_t>(value) + 1;
    } else if constexpr (std::is_convertible_v<T, String8>) {
      return textOf(String8(value).view());
    } else if constexpr (requires { value.value(); }) {
      return valueOf(value.value());
    } else {
      return textOf(valueToStrep(value).view());
    }
  }
  static String8 keyText(Name const& key) { return key; }
  static String8 keyText(std::uint32_t key) { return std::to_string(key); }
  [[nodiscard]] std::uint64_t referenceOf(Entity const& entity) const;
  [[nodiscard]] static std::uint64_t doubleOf(double value);
  [[nodiscard]] static std::uint64_t textOf(std::string_view text);
  void add(std::string_view name, std::string_view key, std::uint64_t value);

  Entity const* of_ = nullptr;
  std::uint64_t sum_ = 0;
};

}  // namespace Zol
