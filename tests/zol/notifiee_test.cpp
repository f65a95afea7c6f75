// Joining and leaving the list of an entity's listeners, the counts that this moves, and the orders
// in which entities and listeners may die.
#include "host/zol/notifiee.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "zol/lamp.h"

namespace Zol::Test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Listeners : public ::testing::Test {
 protected:
  Ptr<Lamp::Listener> make() { return new Lamp::Listener(log, "l"); }
  Ptr<Lamp::Listener> listening(Ptr<Lamp> const& to) {
    Ptr<Lamp::Listener> const listener = make();
    listener->isRegisteredNotifieeIs(true);
    listener->notifierIs(to);
    return listener;
  }

  std::vector<std::string> log;
  Ptr<Lamp> lamp = new Lamp("lamp");
  Ptr<Lamp> other = new Lamp("other");
};

TEST_F(Listeners, StandInTheListExactlyWhenRegisteredAndWithANotifier) {
  auto const listener = make();
  EXPECT_TRUE(listener->hasNotificationActive() && !listener->isWeakReference());
  listener->notifierIs(lamp);
  EXPECT_THAT(listenersOf(*lamp), IsEmpty());
  EXPECT_EQ(listener->name(), Name("lamp"));
  listener->isRegisteredNotifieeIs(true);
  EXPECT_THAT(listenersOf(*lamp), ElementsAre(listener.get()));
  listener->notifierIs(nullptr);
  EXPECT_THAT(listenersOf(*lamp), IsEmpty());
  EXPECT_TRUE(listener->isRegisteredNotifiee());
  listener->notifierIs(lamp);
  EXPECT_THAT(listenersOf(*lamp), ElementsAre(listener.get()));
  listener->isRegisteredNotifieeIs(false);
  EXPECT_THAT(listenersOf(*lamp), IsEmpty());
  EXPECT_EQ(listener->zolNotifier(), lamp.get());
}

TEST_F(Listeners, ChangeNothingWhenGivenWhatTheyHave) {
  auto const listener = listening(lamp);
  auto const behind = listening(lamp);
  auto const version = lamp->zolNotifiees().version();
  listener->notifierIs(lamp);
  listener->isRegisteredNotifieeIs(true);
  EXPECT_EQ(lamp->zolNotifiees().version(), version);
  EXPECT_EQ(lamp->references(), 3u);
  EXPECT_THAT(listenersOf(*lamp), ElementsAre(listener.get(), behind.get()));
}

TEST_F(Listeners, MayLeaveFromAnywhereAndComeBackAtTheEnd) {
  auto const a = listening(lamp);
  auto const b = listening(lamp);
  auto const c = listening(lamp);
  for (auto const& leaving : {b, a, c}) {
    auto const version = lamp->zolNotifiees().version();
    leaving->isRegisteredNotifieeIs(false);
    EXPECT_EQ(lamp->zolNotifiees().count(), 2u);
    leaving->isRegisteredNotifieeIs(true);
    EXPECT_EQ(listenersOf(*lamp).back(), leaving.get());
    EXPECT_EQ(lamp->zolNotifiees().version(), version + 2);
  }
  EXPECT_THAT(listenersOf(*lamp), ElementsAre(b.get(), a.get(), c.get()));
}

TEST_F(Listeners, HoldTheirNotifierUnlessWeak) {
  auto const listener = listening(lamp);
  EXPECT_EQ(lamp->references(), 2u);
  listener->notifierIs(other);
  EXPECT_EQ(lamp->references(), 1u);
  EXPECT_EQ(other->references(), 2u);
  EXPECT_THAT(listenersOf(*lamp), IsEmpty());
  EXPECT_THAT(listenersOf(*other), ElementsAre(listener.get()));
  listener->notifierIs(lamp);
  listener->isWeakReferenceIs(true);
  listener->isWeakReferenceIs(true);
  EXPECT_EQ(lamp->references(), 1u);
  listener->notifierIs(other);
  EXPECT_EQ(lamp->references(), 1u);
  EXPECT_EQ(other->references(), 1u);
  listener->isWeakReferenceIs(false);
  EXPECT_EQ(other->references(), 2u);
}

using WeakListeners = Listeners;

TEST_F(WeakListeners, ForgetAnEntityThatDiesFirst) {
  auto const a = listening(lamp);
  auto const b = listening(lamp);
  for (auto const& listener : {a, b}) listener->isWeakReferenceIs(true);
  lamp = nullptr;
  for (auto const& listener : {a, b}) {
    EXPECT_EQ(listener->zolNotifier(), nullptr);
    EXPECT_TRUE(listener->name().empty());
    listener->notifierIs(other);
  }
  EXPECT_THAT(listenersOf(*other), ElementsAre(a.get(), b.get()));
}

TEST_F(WeakListeners, MayDieBeforeTheirEntityOrAfterOneWhoseListTheyHadLeft) {
  listening(lamp);
  EXPECT_THAT(listenersOf(*lamp), IsEmpty());
  auto first = listening(lamp);
  first->zolMarkedForDeletionIs(true);
  auto last = listening(lamp);
  for (auto const& listener : {first, last}) listener->isWeakReferenceIs(true);
  first = nullptr;
  EXPECT_THAT(listenersOf(*lamp), ElementsAre(last.get()));
  last->isRegisteredNotifieeIs(false);
  lamp = nullptr;
  last = nullptr;
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(WeakListeners, EndTheirEntityWhenTheyGiveUpItsLastReference) {
  auto const listener = listening(lamp);
  lamp = nullptr;
  listener->isWeakReferenceIs(true);
  EXPECT_EQ(listener->zolNotifier(), nullptr);
  EXPECT_THAT(log, ElementsAre("l0"));
}

TEST_F(WeakListeners, AreForgottenByAnEntityWithoutItsOwnDestructor) {
  class Plain : public Entity::Notifiee {};
  Ptr<Entity> entity = new Entity("plain");
  Ptr<Plain> const listener = new Plain;
  listener->isRegisteredNotifieeIs(true);
  listener->isWeakReferenceIs(true);
  listener->notifierIs(entity);
  EXPECT_EQ(entity->references(), 1u);
  entity = nullptr;
  EXPECT_EQ(listener->zolNotifier(), nullptr);
}

}  // namespace
}  // namespace Zol::Test
