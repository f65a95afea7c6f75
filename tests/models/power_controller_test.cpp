// The base controllers: what they hold, what each effective change counts and tells, and what they
// refuse.
#include "host/models/power_controller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/models/siblings.h"

namespace Hardware::PowerController {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using ConfigState = ControllerConfig::ControllerState;
using StatusState = ControllerStatus::ControllerState;

// A mixin for listeners that write down what they are told.
template <class Slots>
class Recorder : public Slots {
 public:
  std::vector<std::string> heard;
  bool throwing = false;

  using Slots::onNotificationException;
  void onNotificationException(Zol::AttributeId id) override {
    heard.push_back("exception in " + std::to_string(id));
  }

 protected:
  void hear(char const* slot) {
    heard.emplace_back(slot);
    if (throwing) throw std::runtime_error(slot);
  }
};

class ConfigListener : public Recorder<ControllerConfig::Notifiee> {
 public:
  void onAutoStartPowerProgram() override { hear("autoStartPowerProgram"); }
  void onControllerState() override { hear("controllerState"); }
};

class StatusListener : public Recorder<ControllerStatus::Notifiee> {
 public:
  void onControllerState() override { hear("controllerState"); }
  void onControllerVersion() override { hear("controllerVersion"); }
};

template <class Listener, class Entity>
Zol::Ptr<Listener> listenTo(Zol::Ptr<Entity> const& entity) {
  Zol::Ptr<Listener> listener = new Listener;
  listener->isRegisteredNotifieeIs(true);
  listener->notifierIs(entity);
  return listener;
}

class BaseControllers : public ::testing::Test {
 protected:
  Zol::Ptr<Hardware::DexoDesc> dexo = new Hardware::DexoDesc("dexo");
  Zol::Ptr<Gpio::PinConfig> pinConfig = new Gpio::PinConfig("pinConfig");
  Zol::Ptr<Gpio::PinStatus const> pinStatus = new Gpio::PinStatus("pinStatus");
  Zol::Ptr<ControllerConfig> config =
      new ControllerConfig("main", "customer", dexo, pinConfig, pinStatus);
  Zol::Ptr<ControllerStatus> status = new ControllerStatus("main");
};

TEST_F(BaseControllers, HoldWhatTheyAreMadeFromAndStartAtZero) {
  EXPECT_EQ(config->name(), Zol::Name("main"));
  EXPECT_EQ(config->customerName(), Zol::Name("customer"));
  EXPECT_EQ(config->dexoDesc(), dexo);
  EXPECT_EQ(config->resetGpioPinConfig(), pinConfig);
  EXPECT_EQ(config->resetGpioPinStatus(), pinStatus);
  EXPECT_FALSE(config->autoStartPowerProgram());
  EXPECT_EQ(config->controllerState(), static_cast<ConfigState>(0));
  EXPECT_EQ(status->controllerState(), static_cast<StatusState>(0));
  EXPECT_TRUE(status->controllerVersion().empty());
}

TEST_F(BaseControllers, CountTheReferencesThatTheyHold) {
  EXPECT_EQ(dexo->references(), 2u);
  EXPECT_EQ(pinStatus->references(), 2u);
  config = nullptr;
  EXPECT_EQ(dexo->references(), 1u);
  EXPECT_EQ(pinStatus->references(), 1u);
}

TEST_F(BaseControllers, AcceptNullReferences) {
  config = new ControllerConfig("bare", "", nullptr, nullptr, nullptr);
  EXPECT_FALSE(config->dexoDesc());
  EXPECT_FALSE(config->resetGpioPinConfig());
  EXPECT_FALSE(config->resetGpioPinStatus());
}

TEST_F(BaseControllers, CountEachReadButNotThatOfTheName) {
  static_cast<void>(config->name());
  EXPECT_EQ(config->readCounter(), 0u);
  static_cast<void>(config->customerName());
  static_cast<void>(config->resetGpioPinStatus());
  static_cast<void>(config->autoStartPowerProgram());
  EXPECT_EQ(config->readCounter(), 3u);
  static_cast<void>(status->controllerVersion());
  EXPECT_EQ(status->readCounter(), 1u);
}

TEST_F(BaseControllers, CountChangesWithAndWithoutListeners) {
  config->autoStartPowerProgramIs(true);
  EXPECT_EQ(config->mutationCounter(), 1u);
  auto const listener = listenTo<ConfigListener>(config);
  config->controllerStateIs(ConfigState::on);
  EXPECT_EQ(config->mutationCounter(), 2u);
  EXPECT_EQ(config->readCounter(), 0u);
}

TEST_F(BaseControllers, TellEachChangeThroughItsSlot) {
  auto const configListener = listenTo<ConfigListener>(config);
  config->autoStartPowerProgramIs(true);
  config->controllerStateIs(ConfigState::off);
  EXPECT_THAT(configListener->heard, ElementsAre("autoStartPowerProgram", "controllerState"));

  auto const statusListener = listenTo<StatusListener>(status);
  status->controllerVersionIs("1.2");
  status->controllerStateIs(StatusState::failed);
  EXPECT_THAT(statusListener->heard, ElementsAre("controllerVersion", "controllerState"));
  EXPECT_EQ(status->controllerVersion(), Zol::String8("1.2"));
  EXPECT_EQ(status->controllerState(), StatusState::failed);
}

TEST_F(BaseControllers, DoNothingForTheValueTheyHold) {
  status->controllerVersionIs("1.2");
  auto const listener = listenTo<StatusListener>(status);
  status->controllerVersionIs("1.2");
  status->controllerStateIs(StatusState::unknown);
  EXPECT_THAT(listener->heard, IsEmpty());
  EXPECT_EQ(status->mutationCounter(), 1u);
}

TEST_F(BaseControllers, GoOnBehindAListenerThatThrows) {
  auto const thrower = listenTo<ConfigListener>(config);
  thrower->throwing = true;
  auto const other = listenTo<ConfigListener>(config);
  config->autoStartPowerProgramIs(true);
  EXPECT_THAT(thrower->heard, ElementsAre("autoStartPowerProgram", "exception in 262"));
  EXPECT_THAT(other->heard, ElementsAre("autoStartPowerProgram"));
  EXPECT_TRUE(config->autoStartPowerProgram());
}

TEST_F(BaseControllers, LeaveTheirListenersAloneWhenTheyDie) {
  auto const listener = listenTo<StatusListener>(status);
  listener->isWeakReferenceIs(true);
  status = nullptr;
  EXPECT_FALSE(listener->notifier());
  EXPECT_EQ(listener->name(), Zol::Name());
}

TEST_F(BaseControllers, AreNoNotifiersOfEachOthersListeners) {
  auto const listener = listenTo<StatusListener>(status);
  EXPECT_EQ(listener->notifier(), status);
  listener->notifierIs(config);
  EXPECT_FALSE(listener->notifier());
  EXPECT_TRUE(status->zolNotifiees().empty());
}

TEST_F(BaseControllers, NameTheirAttributes) {
  EXPECT_EQ(config->attributeString(258), Zol::String8("customerName"));
  EXPECT_EQ(config->attributeString(263), Zol::String8("controllerState"));
  EXPECT_EQ(status->attributeString(258), Zol::String8("controllerState"));
  EXPECT_EQ(status->attributeString(259), Zol::String8("controllerVersion"));
  EXPECT_EQ(config->attributeString(264), Zol::String8("unknown"));
  EXPECT_EQ(status->attributeString(260), Zol::String8("unknown"));
}

// A controller of one make, with an attribute of its own beside those of the base.
class FanController : public ControllerConfig {
 public:
  class NotifieeConst;

  using ControllerConfig::ControllerConfig;
  void speedIs(double value);

 private:
  double speed_ = 0;
};

class FanController::NotifieeConst : public ControllerConfig::NotifieeConst {
 public:
  static constexpr char kListenerClass = 0;

  NotifieeConst() : ControllerConfig::NotifieeConst(&kListenerClass) {}
  static bool isListener(Zol::Entity::NotifieeConst const& listener) {
    return listener.zolListenerClass() == &kListenerClass;
  }

  virtual void onSpeed() {}
};

void FanController::speedIs(double value) { assign(speed_, value, 386, &NotifieeConst::onSpeed); }

class FanListener : public Recorder<FanController::NotifieeConst> {
 public:
  void onAutoStartPowerProgram() override { hear("autoStartPowerProgram"); }
  void onSpeed() override { hear("speed"); }
};

TEST(ControllersOfOneMake, TellTheirOwnChangesToTheirOwnListenersOnly) {
  Zol::Ptr<FanController> const fans = new FanController("fans", "", nullptr, nullptr, nullptr);
  auto const baseListener = listenTo<ConfigListener>(fans);
  auto const fanListener = listenTo<FanListener>(fans);
  fans->speedIs(0.5);
  EXPECT_THAT(baseListener->heard, IsEmpty());
  EXPECT_THAT(fanListener->heard, ElementsAre("speed"));
  fans->autoStartPowerProgramIs(true);
  EXPECT_THAT(baseListener->heard, ElementsAre("autoStartPowerProgram"));
  EXPECT_THAT(fanListener->heard, ElementsAre("speed", "autoStartPowerProgram"));
}

TEST(ControllersOfOneMake, TellEachAssignmentOfAValueThatIsNoNumber) {
  Zol::Ptr<FanController> const fans = new FanController("fans", "", nullptr, nullptr, nullptr);
  auto const listener = listenTo<FanListener>(fans);
  fans->speedIs(-0.0);
  EXPECT_THAT(listener->heard, IsEmpty());
  fans->speedIs(std::nan(""));
  fans->speedIs(std::nan(""));
  EXPECT_THAT(listener->heard, ElementsAre("speed", "speed"));
}

template <class Controller>
std::string refusalOf(unsigned int number) {
  try {
    Controller::ControllerStateInstance(number);
  } catch (Zol::RangeException const& failure) {
    return failure.what();
  }
  return "accepted";
}

TEST(ControllerStates, ComeFromTheirNumbersOnly) {
  EXPECT_EQ(ControllerConfig::ControllerStateInstance(2), ConfigState::on);
  EXPECT_EQ(ControllerStatus::ControllerStateInstance(5), StatusState::failed);
  EXPECT_EQ(refusalOf<ControllerConfig>(3), "ControllerState");
  EXPECT_EQ(refusalOf<ControllerStatus>(6), "ControllerState");
  EXPECT_EQ(refusalOf<ControllerStatus>(0xffffffff), "ControllerState");
}

}  // namespace
}  // namespace Hardware::PowerController
