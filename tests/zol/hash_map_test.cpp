// Hashed collections: hashes and buckets, lookup, replacement, growth, walks and their iterators.
#include "host/zol/hash_map.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "zol/hash_entry.h"

namespace Zol::Test {
namespace {

using ::testing::ElementsAre;

using Entry = HashEntry<std::uint32_t>;
using Map = HashMap<Entry, std::uint32_t, Entry>;

TEST(KeyHash, ReversesTheBitsOfANumberAndOfANamesHash) {
  EXPECT_EQ(keyHash(0u), 0u);
  EXPECT_EQ(keyHash(1u), 0x80000000u);
  EXPECT_EQ(keyHash(0x80000000u), 1u);
  EXPECT_EQ(keyHash(0x12345678u), 0x1e6a2c48u);
  EXPECT_EQ(keyHash(Name("main")), bitReverse(Name("main").hash()));
}

TEST(KeyHash, SelectsTheBucketByItsTopBits) {
  EXPECT_EQ(HashMapGeneric(4).bucketOf(keyHash(1u)), 8u);
  EXPECT_EQ(HashMapGeneric(4).bucketOf(keyHash(16u)), 0u);
  EXPECT_EQ(HashMapGeneric(0).bucketOf(0xffffffff), 0u);
}

class HashedCollection : public ::testing::Test {
 protected:
  Ptr<Entry> add(std::uint32_t key, int value = 0) {
    Ptr<Entry> const entry = new Entry(key, value);
    map.newMember(entry.get());
    return entry;
  }
  std::vector<std::uint32_t> keys() const {
    std::vector<std::uint32_t> walked;
    for (Map::IteratorConst it(&map); it; ++it) walked.push_back(it.key());
    return walked;
  }

  Map map;
};

TEST_F(HashedCollection, PutsANewEntryInThePlaceOfTheOldOne) {
  add(23);
  auto const old = add(7, 1);
  add(39);
  auto const version = map.version();
  Ptr<Entry> const fresh = new Entry(7, 2);
  EXPECT_EQ(map.newMember(fresh.get()), old);
  EXPECT_FALSE(map.newMember(new Entry(8, 0)));
  EXPECT_EQ(map[7], fresh.get());
  EXPECT_EQ(map.count(), 4u);
  EXPECT_GT(map.version(), version);
  EXPECT_THAT(keys(), ElementsAre(8, 7, 39, 23));
  EXPECT_EQ(old->references(), 1u);
  EXPECT_FALSE(old->zolHashLink_.next);
}

TEST_F(HashedCollection, IgnoresTheDeletionOfWhatIsNoMember) {
  Ptr<Entry> const stranger = new Entry(7, 0);
  map.deleteMember(stranger.get());
  add(7);
  auto const version = map.version();
  map.deleteMember(stranger.get());
  EXPECT_EQ(map.count(), 1u);
  EXPECT_EQ(map.version(), version);
}

TEST_F(HashedCollection, GrowsWithItsMembers) {
  for (std::uint32_t key = 0; key < 1000; ++key) add(key);
  EXPECT_GE(map.generic().bucketCount(), 512u);
}

TEST_F(HashedCollection, ReleasesItsMembersAtItsEnd) {
  Ptr<Entry> const outside = new Entry(0, 5);
  {
    Map brief;
    brief.newMember(outside.get());
    brief.newMember(new Entry(16, 0));
    EXPECT_EQ(outside->references(), 2u);
  }
  EXPECT_EQ(outside->references(), 1u);
  EXPECT_EQ(outside->value, 5);
  EXPECT_FALSE(outside->zolHashLink_.next);
}

TEST(ClashingKeys, MayFillOneChainOfAnyLength) {
  using Clash = HashEntry<ClashKey>;
  HashMap<Clash, ClashKey, Clash> map;
  constexpr std::uint32_t kMany = 200000;
  for (std::uint32_t rank = kMany; rank > 0; --rank) map.newMember(new Clash({3, rank}, 0));
  EXPECT_EQ(map.count(), kMany);
  EXPECT_TRUE(map[(ClashKey{3, 1})]);
}

// The keys 0, 32, 16 share a bucket and stand in this order.
class HashedIterator : public HashedCollection {
 protected:
  HashedIterator() {
    for (std::uint32_t const key : {16u, 0u, 32u, 1u}) add(key, static_cast<int>(key) * 10);
  }
  void del(std::uint32_t key) { map.deleteMember(map[key]); }
};

TEST_F(HashedIterator, StandsOnNothingWithoutAMapOrAMember) {
  Map const empty;
  for (Map::IteratorConst it : {Map::IteratorConst(nullptr), Map::IteratorConst(nullptr, 7),
                                Map::IteratorConst(&empty), Map::IteratorConst(&map, 99)}) {
    EXPECT_FALSE(it);
    ++it;
    EXPECT_FALSE(it);
  }
}

TEST_F(HashedIterator, GoesOnFromAKeyAndStaysAtTheEnd) {
  Map::IteratorConst it(&map, 32);
  EXPECT_EQ(it->value, 320);
  for (std::uint32_t const next : {16u, 1u}) {
    ++it;
    EXPECT_EQ(it.key(), next);
    EXPECT_EQ(it.ptr().get(), map[next]);
  }
  ++it;
  ++it;
  EXPECT_FALSE(it);
  add(3);
  ++it;
  EXPECT_FALSE(it);
}

TEST_F(HashedIterator, StartsAtTheFollowerOfAnAbsentKey) {
  EXPECT_EQ(Map::IteratorConst::notBefore(&map, 32).key(), 32u);
  del(32);
  EXPECT_EQ(Map::IteratorConst::notBefore(&map, 32).key(), 16u);
  EXPECT_EQ(Map::IteratorConst::notBefore(&map, 8).key(), 1u);
  EXPECT_FALSE(Map::IteratorConst::notBefore(&map, 0xffffffff));
}

TEST_F(HashedIterator, ReadsItsReplacedEntryAndGoesOnBehindIt) {
  Map::IteratorConst it(&map, 32);
  add(32, 1);
  EXPECT_EQ(it->value, 320);
  EXPECT_EQ(map[32]->value, 1);
  ++it;
  EXPECT_EQ(it.key(), 16u);
}

TEST_F(HashedIterator, SeesWhatTheEndOfItsOwnEntryChanges) {
  Map::IteratorConst it(&map);
  map[0]->atEnd = [this] { del(32); };
  del(0);
  ++it;
  EXPECT_EQ(it.key(), 32u);
  ++it;
  EXPECT_EQ(it.key(), 16u);
}

}  // namespace
}  // namespace Zol::Test
