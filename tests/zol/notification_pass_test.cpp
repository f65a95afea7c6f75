// The pass that tells the listeners of one change: who hears it, in which order, and what happens
// when listeners come, go, throw or change the entity meanwhile.
#include "host/zol/notification_pass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "zol/lamp.h"

namespace Zol::Test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Pass : public ::testing::Test {
 protected:
  Ptr<Lamp::Listener> listen(std::string const& mark) { return register_(make(mark)); }
  Ptr<Lamp::Listener> make(std::string const& mark) { return new Lamp::Listener(log, mark); }
  Ptr<Lamp::Listener> register_(Ptr<Lamp::Listener> const& listener) {
    listener->isRegisteredNotifieeIs(true);
    listener->notifierIs(lamp);
    return listener;
  }
  // What a change tells, in the order of telling.
  std::vector<std::string> heard() {
    log.clear();
    lamp->levelIs(lamp->level() + 1);
    return log;
  }

  std::vector<std::string> log;
  Ptr<Lamp> lamp = new Lamp("lamp");
  Ptr<Lamp::Listener> a = listen("a");
  Ptr<Lamp::Listener> b = listen("b");
  Ptr<Lamp::Listener> c = listen("c");
};

TEST_F(Pass, TellsEachListenerOnceInListOrder) {
  EXPECT_THAT(heard(), ElementsAre("a", "b", "c"));
  a->isRegisteredNotifieeIs(false);
  a->isRegisteredNotifieeIs(true);
  EXPECT_THAT(heard(), ElementsAre("b", "c", "a"));
  log.clear();
  lamp->levelIs(lamp->level());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Pass, LeavesAnAddedListenerToTheNextChange) {
  auto const late = make("late");
  a->reaction = [&] { register_(late); };
  EXPECT_THAT(heard(), ElementsAre("a", "b", "c"));
  a->reaction = [] {};
  EXPECT_THAT(heard(), ElementsAre("a", "b", "c", "late"));
}

TEST_F(Pass, PassesOverListenersThatOnlyThePassHolds) {
  a->reaction = [&] { b = c = nullptr; };
  EXPECT_THAT(heard(), ElementsAre("a"));
  EXPECT_THAT(listenersOf(*lamp), ElementsAre(a.get()));
}

TEST_F(Pass, TellsAListenerThatLeftTheListWhileSomebodyHoldsIt) {
  a->reaction = [&] { b->isRegisteredNotifieeIs(false); };
  EXPECT_THAT(heard(), ElementsAre("a", "b", "c"));
  EXPECT_THAT(heard(), ElementsAre("a", "c"));
}

TEST_F(Pass, TellsTheFirstListenerThoughNobodyElseHoldsIt) {
  for (auto* const held : {&a, &b, &c}) *held = nullptr;
  for (char const* const mark : {"first", "second"}) {
    auto* const unheld = new Lamp::Listener(log, mark);
    unheld->isRegisteredNotifieeIs(true);
    unheld->notifierIs(lamp);
  }
  EXPECT_THAT(heard(), ElementsAre("first"));
  EXPECT_THAT(listenersOf(*lamp), IsEmpty());
}

TEST_F(Pass, TellsAThrowerOfItsExceptionAndGoesOn) {
  a->reaction = [] { throw std::runtime_error("a"); };
  c->reaction = [] { throw 1; };
  EXPECT_THAT(heard(), ElementsAre("a", "a!300", "b", "c", "c!300"));
  EXPECT_EQ(lamp->level(), 1);
  EXPECT_EQ(lamp->mutationCounter(), 1u);
}

TEST_F(Pass, EndsWithAnExceptionOutOfTheHandler) {
  b->reaction = b->reactionToException = [] { throw std::runtime_error("b"); };
  EXPECT_THROW(lamp->levelIs(1), std::runtime_error);
  EXPECT_THAT(log, ElementsAre("a", "b", "b!300"));
  EXPECT_EQ(lamp->level(), 1);
  EXPECT_EQ(lamp->mutationCounter(), 1u);
  for (auto const& listener : {a, b, c}) EXPECT_EQ(listener->references(), 2u);
}

TEST_F(Pass, TellsAnyNumberOfListenersInOrder) {
  std::vector<Ptr<Lamp::Listener>> many;
  std::vector<std::string> expected = {"a", "b", "c"};
  for (int i = 4; i <= 40; ++i) {
    many.push_back(listen(std::to_string(i)));
    expected.push_back(std::to_string(i));
    ASSERT_EQ(heard(), expected);
  }
  for (auto const& listener : many) EXPECT_EQ(listener->references(), 1u);
}

TEST_F(Pass, RunsInsideAnotherWhenAListenerChangesTheEntity) {
  a->reaction = [&] {
    if (lamp->level() == 1) lamp->levelIs(2);
  };
  EXPECT_THAT(heard(), ElementsAre("a", "a", "b", "c", "b", "c"));
  EXPECT_EQ(lamp->mutationCounter(), 2u);
}

TEST_F(Pass, OpensAScopeAroundEachCallAndClosesItBeforeTheHandler) {
  std::vector<unsigned int> depths;
  a->reaction = [&] {
    depths.push_back(Expect::depth());
    if (lamp->level() < 2) lamp->levelIs(2);
    throw 1;
  };
  a->reactionToException = [&] { depths.push_back(Expect::depth()); };
  lamp->levelIs(1);
  EXPECT_THAT(depths, ElementsAre(1, 2, 1, 0));
  EXPECT_EQ(Expect::depth(), 0u);
}

TEST_F(Pass, OutlivesAnEntityThatAListenerDrops) {
  for (auto const& listener : {a, b, c}) listener->isWeakReferenceIs(true);
  a->reaction = [&] { lamp = nullptr; };
  lamp->levelIs(1);
  EXPECT_THAT(log, ElementsAre("a", "a0", "b0", "c0", "b", "c"));
  EXPECT_EQ(b->zolNotifier(), nullptr);
}

TEST(ExpectScope, CountsOnlyScopesOfListenersAndIsLeftByAnException) {
  try {
    Expect const outer(0);
    Expect const other(7);
    EXPECT_EQ(Expect::depth(), 1u);
    throw 1;
  } catch (int) {
    EXPECT_EQ(Expect::depth(), 0u);
  }
}

using EndOfLastReference = Pass;

TEST_F(EndOfLastReference, IsToldWithItsOwnIdWhileTheEntityIsStillWhole) {
  for (auto const& listener : {a, b, c}) listener->isWeakReferenceIs(true);
  Name seen;
  b->reaction = [&] {
    Ptr<Entity const> const brief = static_cast<Entity const*>(b->zolNotifier());
    seen = brief->name();
    throw 1;
  };
  lamp = nullptr;
  EXPECT_THAT(log, ElementsAre("a0", "b0", "b!5", "c0"));
  EXPECT_EQ(seen, Name("lamp"));
}

TEST_F(EndOfLastReference, IsTakenBackByAListenerThatTakesTheEntity) {
  for (auto const& listener : {a, b, c}) listener->isWeakReferenceIs(true);
  Lamp* const raw = lamp.get();
  a->reaction = [&] { lamp = raw; };
  lamp = nullptr;
  ASSERT_TRUE(lamp);
  EXPECT_EQ(lamp->references(), 1u);
  a->reaction = [] {};
  EXPECT_THAT(heard(), ElementsAre("a", "b", "c"));
}

}  // namespace
}  // namespace Zol::Test
