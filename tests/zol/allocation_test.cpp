// What must not allocate: changes without listeners or with up to 16, reads, lookups and steps.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "zol/hash_entry.h"
#include "zol/lamp.h"

namespace {
std::atomic<std::size_t> allocated = 0;
}

// Counts what the test program and the libraries allocate.
void* operator new(std::size_t size) {
  ++allocated;
  if (void* const place = std::malloc(size ? size : 1)) return place;
  throw std::bad_alloc();
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }

namespace Zol::Test {
namespace {

std::vector<std::string> unusedLog;

class QuietListener : public Lamp::Listener {
 public:
  QuietListener() : Listener(unusedLog, "") {}
  void onLevel() override { ++calls; }
  int calls = 0;
};

template <class Action>
std::size_t allocationsOf(Action const& action) {
  std::size_t const before = allocated;
  action();
  return allocated - before;
}

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
