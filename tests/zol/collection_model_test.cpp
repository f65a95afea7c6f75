// Random changes of a collection of each kind and key against an ordinary ordered map; the seeds
// are fixed.
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
std::uint8_t keyOf(std::uint32_t number) {
  return static_cast<std::uint8_t>(number);
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

template <class K>
struct Hashed {
  using Key = K;
  using Map = HashMap<HashEntry<K>, K, HashEntry<K>>;
  using Order = WalkOrder;
};
template <class K>
struct Ordered {
  using Key = K;
  using Map = RbTreeMap<HashEntry<K>, K, HashEntry<K>>;
  using Order = std::less<K>;
};

// The number of black members on each way down from the top; -1 where the ways differ, where a red
// member stands on a red one, or where a link does not lead back.
template <class Entry>
int blackHeight(PtrInterface const* member, RbTreeLink const* parent) {
  if (!member) return 0;
  RbTreeLink const& link = static_cast<Entry const*>(member)->zolTreeLink_;
  if (link.parent != parent || (link.red && parent && parent->red)) return -1;
  int const left = blackHeight<Entry>(link.left, &link);
  int const right = blackHeight<Entry>(link.right, &link);
  if (left < 0 || left != right) return -1;
  return left + (link.red ? 0 : 1);
}

template <class Kind>
class CollectionModel : public ::testing::Test {
 protected:
  using Key = typename Kind::Key;
  using Entry = HashEntry<Key>;
  using Map = typename Kind::Map;

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
    if constexpr (std::is_same_v<typename Kind::Order, std::less<Key>>) expectBalanced();
  }
  void expectBalanced() {
    typename Map::IteratorConst const first(&map);
    if (!first) return;
    RbTreeLink const* top = &first->zolTreeLink_;
    while (top->parent) top = top->parent;
    Entry const* root = first.entry();
    for (typename Map::IteratorConst it(&map); it; ++it) {
      if (&it->zolTreeLink_ == top) root = it.entry();
    }
    ASSERT_GE(blackHeight<Entry>(root, nullptr), 1);
  }

  std::mt19937 random;
  std::uint32_t keys = 300;
  Map map;
  std::map<Key, int, typename Kind::Order> model;
};

using Kinds = ::testing::Types<Hashed<std::uint32_t>, Hashed<Name>, Hashed<ClashKey>,
                               Ordered<std::uint8_t>, Ordered<std::uint32_t>>;
TYPED_TEST_SUITE(CollectionModel, Kinds);

TYPED_TEST(CollectionModel, HoldsTheSameMembersInTheSameOrder) {
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

TYPED_TEST(CollectionModel, IsWalkedInOrderWithoutSkippingWhatStaysThroughout) {
  using Walk = typename TestFixture::Map::IteratorConst;
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    this->random.seed(seed);
    this->delAll();
    for (int i = 0; i < 60; ++i) this->add(this->anyKey());
    std::set<typename TypeParam::Key, typename TypeParam::Order> throughout;
    for (auto const& [key, value] : this->model) throughout.insert(key);
    std::set<typename TypeParam::Key, typename TypeParam::Order> visited;
    for (Walk it(&this->map); it; ++it) {
      // Each member stands behind all that have been visited: so none is seen twice.
      ASSERT_TRUE(visited.empty() || typename TypeParam::Order()(*visited.rbegin(), it.key()));
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

TEST(OrderedCollection, StartsAtAKeyOrTheLeastGreaterOne) {
  using Map = RbTreeMap<HashEntry<std::uint8_t>, std::uint8_t, HashEntry<std::uint8_t>>;
  Map map;
  for (int const key : {0, 0x7f, 0x80, 0xff}) {
    map.newMember(new HashEntry(static_cast<std::uint8_t>(key), key));
  }
  Map::Iterator at(&map, 0x7f);
  EXPECT_EQ(at.key(), 0x7f);
  EXPECT_EQ(Map::Iterator(&map, 0x81).key(), 0xff);
  map.deleteMember(map[0xff]);
  EXPECT_FALSE(Map::Iterator(&map, 0x81));
  EXPECT_FALSE(Map::Iterator(nullptr, 3));
  Map::Iterator const copy = at;
  map.deleteMember(at.entry());
  EXPECT_EQ((++at).key(), 0x80);
  EXPECT_EQ(copy.key(), 0x7f) << "a copy keeps its own entry";
  EXPECT_FALSE(++at);
  EXPECT_FALSE(++at);
  EXPECT_FALSE(at.hasBookmark());
  EXPECT_FALSE(Map::Iterator(&map).hasBookmark()) << "the key 0 is none";
  EXPECT_TRUE(copy.hasBookmark());
}

TEST(OrderedCollection, IsReadThroughAnIteratorOnAnEntryThatWasReplaced) {
  using Map = RbTreeMap<HashEntry<std::uint32_t>, std::uint32_t, HashEntry<std::uint32_t>>;
  Map map;
  for (std::uint32_t const key : {1u, 2u, 3u}) map.newMember(new HashEntry(key, 0));
  Map::Iterator it(&map, 2);
  EXPECT_EQ(map.newMember(new HashEntry(2u, 7)).get(), it.entry());
  EXPECT_EQ(it->value, 0);
  EXPECT_EQ(map[2]->value, 7);
  EXPECT_EQ(map.count(), 3u);
  EXPECT_EQ((++it).key(), 3u);
}

}  // namespace
}  // namespace Zol::Test
