// Random changes of a hashed collection against an ordinary ordered map, for each kind of key; the
// seeds are fixed.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

#include "zol/hash_entry.h"

namespace Zol::Test {
namespace {

template <class Key>
Key keyOf(std::uint32_t number);
template <>
std::uint32_t keyOf(std::uint32_t number) {
  return number % 3 == 0 ? number << 24 : number;
}
template <>
Name keyOf(std::uint32_t number) {
  return "rail " + std::to_string(number);
}
template <>
ClashKey keyOf(std::uint32_t number) {
  return {(number % 5) << 29, number};
}

struct WalkOrder {
  template <class Key>
  bool operator()(Key const& a, Key const& b) const {
    auto const mine = keyHash(a);
    auto const theirs = keyHash(b);
    return mine != theirs ? mine < theirs : a < b;
  }
};

template <class Key>
class HashedModel : public ::testing::Test {
 protected:
  using Entry = HashEntry<Key>;
  using Map = HashMap<Entry, Key, Entry>;

  std::uint32_t upTo(std::uint32_t limit) {
    return std::uniform_int_distribution<std::uint32_t>(0, limit)(random);
  }
  Key anyKey() { return keyOf<Key>(upTo(keys)); }
  void add(Key const& key) {
    int const value = static_cast<int>(upTo(1000));
    map.newMember(new Entry(key, value));
    model[key] = value;
  }
  void del(Key const& key) {
    if (Entry* const entry = map[key]) map.deleteMember(entry);
    model.erase(key);
  }
  void delAll() {
    for (typename Map::Iterator it(&map); it; ++it) map.deleteMember(it.entry());
    model.clear();
  }
  void change() {
    std::uint32_t const dice = upTo(999);
    if (dice == 0) return delAll();
    dice < 600 ? add(anyKey()) : del(anyKey());
  }
  void expectSame() {
    ASSERT_EQ(map.count(), model.size());
    typename Map::IteratorConst it(&map);
    for (auto const& [key, value] : model) {
      ASSERT_TRUE(it);
      ASSERT_TRUE(it.key() == key);
      ASSERT_EQ(it->value, value);
      ASSERT_EQ(map[key], it.entry());
      ++it;
    }
    ASSERT_FALSE(it);
  }

  std::mt19937 random;
  std::uint32_t keys = 300;
  Map map;
  std::map<Key, int, WalkOrder> model;
};

using Keys = ::testing::Types<std::uint32_t, Name, ClashKey>;
TYPED_TEST_SUITE(HashedModel, Keys);

TYPED_TEST(HashedModel, HoldsTheSameMembersInTheSameOrder) {
  for (std::uint32_t seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(seed);
    this->random.seed(seed);
    for (int step = 0; step < 2500; ++step) {
      this->change();
      auto const probe = this->anyKey();
      ASSERT_EQ(this->map[probe] != nullptr, this->model.count(probe) == 1);
      if (step % 10 != 0) continue;
      ASSERT_NO_FATAL_FAILURE(this->expectSame());
    }
    this->delAll();
    ASSERT_NO_FATAL_FAILURE(this->expectSame());
  }
}

TYPED_TEST(HashedModel, IsWalkedInOrderWithoutSkippingWhatStaysThroughout) {
  using Walk = typename TestFixture::Map::IteratorConst;
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    this->random.seed(seed);
    this->delAll();
    for (int i = 0; i < 60; ++i) this->add(this->anyKey());
    std::set<TypeParam, WalkOrder> throughout;
    for (auto const& [key, value] : this->model) throughout.insert(key);
    std::set<TypeParam, WalkOrder> visited;
    for (Walk it(&this->map); it; ++it) {
      // Each member stands behind all that have been visited: so none is seen twice.
      ASSERT_TRUE(visited.empty() || WalkOrder()(*visited.rbegin(), it.key()));
      visited.insert(it.key());
      if (this->upTo(3) == 0) this->del(it.key());
      if (this->upTo(3) == 0) this->add(it.key());
      for (std::uint32_t changes = this->upTo(4); changes > 0; --changes) this->change();
      std::erase_if(throughout, [&](auto const& key) {
        return visited.count(key) == 0 && this->model.count(key) == 0;
      });
    }
    for (auto const& key : throughout) ASSERT_EQ(visited.count(key), 1u);
  }
}

}  // namespace
}  // namespace Zol::Test
