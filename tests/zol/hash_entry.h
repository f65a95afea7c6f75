// Entries of hashed and ordered collections for tests: with numbers, with names, and with keys
// whose hashes the test chooses.
#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <utility>

#include "host/zol/hash_map.h"
#include "host/zol/rb_tree_map.h"

namespace Zol::Test {

// A key whose hash is its group, so that keys of one group clash.
struct ClashKey {
  std::uint32_t group = 0;
  std::uint32_t rank = 0;
  friend auto operator<=>(ClashKey const&, ClashKey const&) = default;
};
using Zol::keyHash;
inline std::uint32_t keyHash(ClashKey const& key) noexcept { return key.group; }

template <class Key>
class HashEntry : public PtrInterface {
 public:
  HashEntry(Key key, int entryValue) : value(entryValue), key_(std::move(key)) {}
  ~HashEntry() override { atEnd(); }

  [[nodiscard]] Key const& zolKey() const { return key_; }

  int value;
  std::function<void()> atEnd = [] {};
  HashLink zolHashLink_;
  RbTreeLink zolTreeLink_;

 private:
  Key key_;
};

}  // namespace Zol::Test
