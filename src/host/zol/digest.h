// A 64-bit digest of the replicated state of an entity and all that it owns.
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>

#include "host/zol/entity.h"

namespace Zol {

// The digest of an entity and of all that it owns, by names and values: it does not depend on ids,
// counters, the order of insertion or addresses, and is the same in every process. A reference
// counts by the path of what it refers to; 0.0 and -0.0 count as equal, and all not-a-numbers as
// the same value. Equal on a source and its replica once the log between them has drained.
[[nodiscard]] ZOL_EXPORT std::uint64_t digest(Entity const& entity);

// Collects the attributes of one entity; each class adds its own, in any order.
class ZOL_EXPORT Digest {
 public:
  // An unkeyed attribute.
  template <class T>
  void attribute(std::string_view name, T const& value) {
    add(name, {}, valueOf(value));
  }
  void attribute(std::string_view name, String8 const& value) {
    add(name, {}, textOf(value.view()));
  }
  void attribute(std::string_view name, Name const& value) { add(name, {}, textOf(value.view())); }
  // A reference to an entity, or to none.
  void reference(std::string_view name, Entity const* entity);
  // A member of a keyed attribute.
  void member(std::string_view name, Name const& key, Entity const& child) {
    add(name, key.view(), digest(child));
  }

  [[nodiscard]] std::uint64_t sum() const noexcept { return sum_; }

 private:
  template <class T>
  [[nodiscard]] static std::uint64_t valueOf(T const& value) {
    if constexpr (std::is_floating_point_v<T>) {
      return doubleOf(static_cast<double>(value));
    } else {
      return static_cast<std::uint64_t>(value) + 1;
    }
  }
  [[nodiscard]] static std::uint64_t doubleOf(double value);
  [[nodiscard]] static std::uint64_t textOf(std::string_view text);
  void add(std::string_view name, std::string_view key, std::uint64_t value);

  std::uint64_t sum_ = 0;
};

}  // namespace Zol
