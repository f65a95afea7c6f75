// What must not allocate: changes without listeners or with up to 16, reads, lookups and steps.
#include <gtest/gtest.h>

#include "support/allocation_count.h"
#include "zol/hash_entry.h"
#include "zol/lamp.h"

namespace Zol::Test {
namespace {

std::vector<std::string> unusedLog;

class QuietListener : public Lamp::Listener {
 public:
  QuietListener() : Listener(unusedLog, "") {}
  void onLevel() override { ++calls; }
  int calls = 0;
};

using test::allocationsOf;

class Allocations : public ::testing::Test {
 protected:
  Ptr<Lamp> lamp = new Lamp("lamp");
};

TEST_F(Allocations, AreCounted) {
  EXPECT_EQ(allocationsOf([] { Ptr<Lamp> const made = new Lamp(Name()); }), 1u);
  EXPECT_EQ(allocationsOf([] { String8 const text("made by the library"); }), 1u);
}

TEST_F(Allocations, AreNotMadeByAChangeThatNobodyHears) {
  String8 const text = "made before";
  EXPECT_EQ(allocationsOf([&] {
              lamp->levelIs(1);
              lamp->labelIs(text);
              lamp->labelIs(text);
            }),
            0u);
}

TEST_F(Allocations, AreNotMadeByAPassOfSixteenListeners) {
  std::vector<Ptr<QuietListener>> listeners;
  for (int i = 0; i < 16; ++i) {
    listeners.emplace_back(new QuietListener);
    listeners.back()->isRegisteredNotifieeIs(true);
    listeners.back()->notifierIs(lamp);
  }
  EXPECT_EQ(allocationsOf([&] { lamp->levelIs(1); }), 0u);
  EXPECT_EQ(listeners.back()->calls, 1);
}

TEST_F(Allocations, AreNotMadeByReadsLookupsAndSteps) {
  HashMap<HashEntry<Name>, Name, HashEntry<Name>> map;
  for (int i = 0; i < 50; ++i) map.newMember(new HashEntry<Name>(std::to_string(i), i));
  Name const present = "7";
  Name const absent = "none";
  int found = 0;
  EXPECT_EQ(allocationsOf([&] {
              if (map[present]) ++found;
              if (map[absent]) ++found;
              for (decltype(map)::IteratorConst it(&map); it; ++it) ++found;
              found += lamp->level();
              if (lamp->name() == present) ++found;
            }),
            0u);
  EXPECT_EQ(found, 51);
}

}  // namespace
}  // namespace Zol::Test
