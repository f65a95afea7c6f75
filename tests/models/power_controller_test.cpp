// The base controllers: what they hold, what each effective change counts and tells, and what they
// refuse.
#include "host/models/power_controller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "host/models/siblings.h"

namespace Hardware::PowerController {
namespace {

using ::testing::ElementsAre;

using ConfigState = ControllerConfig::ControllerState;
using StatusState = ControllerStatus::ControllerState;

// Writes down each slot that it hears, and throws in it to be told of its id.
template <class Slots>
class Recorder : public Slots {
 public:
  std::vector<std::string> heard;

  using Slots::onNotificationException;
  void onNotificationException(Zol::AttributeId id) override {
    heard.back() += " " + std::to_string(id);
  }
  void onControllerState() override { hear("controllerState"); }

 protected:
  void hear(char const* slot) {
    heard.emplace_back(slot);
    throw std::runtime_error(slot);
  }
};

class ConfigListener final : public Recorder<ControllerConfig::Notifiee> {
  void onAutoStartPowerProgram() override { hear("autoStartPowerProgram"); }
};

class StatusListener final : public Recorder<ControllerStatus::Notifiee> {
  void onControllerVersion() override { hear("controllerVersion"); }
};

class BaseControllers : public ::testing::Test {
 protected:
  template <class Listener, class Entity>
  Zol::Ptr<Listener> listenTo(Zol::Ptr<Entity> const& entity) {
    Zol::Ptr<Listener> const listener = new Listener;
    listener->isRegisteredNotifieeIs(true);
    listener->notifierIs(entity);
    return listener;
  }

  Zol::Ptr<Hardware::DexoDesc> dexo = new Hardware::DexoDesc("dexo");
  Zol::Ptr<Gpio::PinStatus const> pinStatus = new Gpio::PinStatus("pinStatus");
  Zol::Ptr<ControllerConfig> config =
      new ControllerConfig("main", "customer", dexo, nullptr, pinStatus);
  Zol::Ptr<ControllerStatus> status = new ControllerStatus("main");
};

TEST_F(BaseControllers, StartAtZeroAndHoldTheirReferencesUntilTheyEnd) {
  EXPECT_EQ(config->controllerState(), static_cast<ConfigState>(0));
  EXPECT_EQ(status->controllerState(), StatusState::unknown);
  EXPECT_TRUE(status->controllerVersion().empty());
  EXPECT_EQ(dexo->references(), 2u);
  EXPECT_EQ(pinStatus->references(), 2u);
  config = nullptr;
  EXPECT_EQ(dexo->references(), 1u);
  EXPECT_EQ(pinStatus->references(), 1u);
}

TEST_F(BaseControllers, TellEachChangeOnceThroughItsSlot) {
  auto const configListener = listenTo<ConfigListener>(config);
  auto const statusListener = listenTo<StatusListener>(status);
  for (int i = 0; i < 2; ++i) {
    config->autoStartPowerProgramIs(true);
    config->controllerStateIs(ConfigState::on);
    status->controllerVersionIs("1.2");
    status->controllerStateIs(StatusState::failed);
  }
  EXPECT_THAT(configListener->heard,
              ElementsAre("autoStartPowerProgram 262", "controllerState 263"));
  EXPECT_THAT(statusListener->heard, ElementsAre("controllerVersion 259", "controllerState 258"));
  EXPECT_EQ(status->controllerVersion(), Zol::String8("1.2"));
  EXPECT_EQ(status->controllerState(), StatusState::failed);
  EXPECT_EQ(status->mutationCounter(), 2u);
  EXPECT_EQ(status->readCounter(), 2u);
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
