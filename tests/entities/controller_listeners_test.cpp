// Listeners of the classes of a controller's chain, which stand in one list.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <hwrailseq.h>

#include <cmath>

#include "entities/listen_to.h"

namespace Hardware::Ucd9012::Test {
namespace {

// Counts the shared attribute of the base, and exceptions.
template <class Notifiee>
class CountingBase : public Notifiee {
 public:
  int autoStarts = 0;
  int exceptions = 0;
  void onAutoStartPowerProgram() override { ++autoStarts; }
  using Notifiee::onNotificationException;
  void onNotificationException(Zol::AttributeId) override { ++exceptions; }
};

// And an attribute of the derived class.
template <class Notifiee>
class Counting : public CountingBase<Notifiee> {
 public:
  int ready = 0;
  void onReady() override { ++ready; }
};

TEST(ControllerListeners, HearWhatTheirClassHasAndAreOtherwisePassedOver) {
  Zol::Ptr<Ucd9012ControllerConfig> const controller =
      new Ucd9012ControllerConfig("main", "", nullptr, nullptr, nullptr);
  auto const ofBase =
      listenTo<CountingBase<PowerController::ControllerConfig::Notifiee>>(controller);
  auto const ofClass = listenTo<Counting<ControllerConfig::Notifiee>>(controller);
  auto const ofChip = listenTo<Counting<Ucd9012ControllerConfig::Notifiee>>(controller);
  auto const ofOtherChip = listenTo<Counting<PsocControllerConfig::Notifiee>>(controller);
  controller->autoStartPowerProgramIs(true);
  controller->readyIs(true);
  EXPECT_EQ(ofBase->autoStarts, 1);
  EXPECT_EQ(ofBase->exceptions, 0);
  EXPECT_EQ(ofClass->autoStarts + ofClass->ready, 2);
  EXPECT_EQ(ofChip->autoStarts + ofChip->ready, 2);
  EXPECT_EQ(ofOtherChip->ready, 1);
  EXPECT_EQ(ofChip->notifier(), controller);
  EXPECT_FALSE(ofOtherChip->notifier());

  Zol::Ptr<PowerController::ControllerConfig> const base =
      new PowerController::ControllerConfig("main", "", nullptr, nullptr, nullptr);
  auto const ofDerived = listenTo<Counting<ControllerConfig::Notifiee>>(base);
  base->autoStartPowerProgramIs(true);
  EXPECT_EQ(ofDerived->autoStarts, 1);
  EXPECT_FALSE(ofDerived->notifier());
}

// Whoever only waits for an entity's end needs no slots of its class.
TEST(ControllerListeners, OfTheFrameHearOfTheEndOfAnyEntityAndOfNothingElse) {
  class Watching : public Zol::Entity::Notifiee {
   public:
    int ends = 0;
    virtual void wrongSlot() { ADD_FAILURE(); }
    virtual void anotherWrongSlot() { ADD_FAILURE(); }
    void onZeroReferences() override { ++ends; }
  };
  auto config = configFactory("c");
  Zol::Ptr<ControllerConfig> chip =
      config->realPsocControllerIs("p", "", nullptr, nullptr, nullptr);
  auto const ofConfig = listenTo<Watching>(config);
  auto const ofChip = listenTo<Watching>(chip);
  for (auto const& listener : {ofConfig, ofChip}) listener->isWeakReferenceIs(true);
  chip->autoStartPowerProgramIs(true);
  chip->readyIs(true);
  config->realPsocControllerDel("p");
  EXPECT_EQ(ofChip->ends, 0);
  chip = nullptr;
  config = nullptr;
  EXPECT_EQ(ofChip->ends, 1);
  EXPECT_EQ(ofConfig->ends, 1);
}

TEST(ControllerListeners, TakeNoRoot) {
  auto const listener = listenTo<Counting<ControllerConfig::Notifiee>>(configFactory("c"));
  EXPECT_EQ(listener->zolNotifier(), nullptr);
}

TEST(VoltageRail, TellsEachAssignmentOfALimitThatIsNoNumber) {
  class RailListener : public VoltageRailConfig::Notifiee {
   public:
    int calls = 0;
    void onOverrideVoutUvLimit() override { ++calls; }
  };
  Zol::Ptr<VoltageRailConfig> const rail = new VoltageRailConfig(1, nullptr, nullptr);
  rail->overrideVoutUvLimitIs(Units::Volts(0.0));
  auto const listener = listenTo<RailListener>(rail);
  rail->overrideVoutUvLimitIs(Units::Volts(-0.0));
  EXPECT_EQ(listener->calls, 0);
  for (int i = 0; i < 2; ++i) rail->overrideVoutUvLimitIs(Units::Volts(std::nan("")));
  EXPECT_EQ(listener->calls, 2);
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
