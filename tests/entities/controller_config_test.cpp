// The configuration of a controller, in its own class and in those of the three chips: what each
// attribute starts with, and what a change of it counts and tells.
#include "entities/controller_config.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "entities/controller_attributes.h"
#include "entities/psoc_controller_config.h"
#include "entities/ucd9012_controller_config.h"
#include "entities/ucd9032_controller_config.h"
#include "entities/voltage_rail_config.h"
#include "host/models/siblings.h"
#include "host/zol/digest.h"

namespace Hardware::Ucd9012::Test {
namespace {

using ::testing::ElementsAre;

template <class Controller>
class ControllerClass : public ::testing::Test {
 protected:
  Zol::Ptr<Controller> make() {
    return new Controller("main", "customer", nullptr, nullptr, nullptr);
  }

  Zol::Ptr<Controller> controller = make();
  Zol::Ptr<ControllerListener> listener = listenTo<ControllerListener>(controller);
};

using Classes = ::testing::Types<ControllerConfig, Ucd9012ControllerConfig, Ucd9032ControllerConfig,
                                 PsocControllerConfig>;
TYPED_TEST_SUITE(ControllerClass, Classes);

TYPED_TEST(ControllerClass, HoldsWhatItIsMadeFromAndStartsWithTheDefaults) {
  auto const& made = *this->controller;
  EXPECT_EQ(made.name(), "main");
  EXPECT_EQ(made.customerName(), "customer");
  EXPECT_EQ(made.parentAttrId(), 136);
  EXPECT_FALSE(made.parent());
  EXPECT_EQ(made.mutationCounter(), 0u);
  for (auto const& attribute : controllerAttributes()) {
    EXPECT_EQ(attribute.get(made), 0u) << attribute.name;
  }
}

TYPED_TEST(ControllerClass, NamesItsOwnAttributesAndThoseOfItsBases) {
  for (auto const& attribute : controllerAttributes()) {
    EXPECT_EQ(this->controller->attributeString(attribute.id), attribute.name.c_str());
  }
  std::pair<Zol::AttributeId, char const*> const others[] = {
      {390, "voltageRail"},     {397, "diagCommandConfig"},
      {258, "customerName"},    {262, "autoStartPowerProgram"},
      {263, "controllerState"}, {130, "name"},
      {385, "unknown"},         {408, "unknown"},
      {-386, "unknown"},        {0, "unknown"}};
  for (auto const& [id, name] : others) EXPECT_EQ(this->controller->attributeString(id), name);
}

TYPED_TEST(ControllerClass, PassesOverListenersOfTheBaseForItsOwnAttributes) {
  class BaseListener : public PowerController::ControllerConfig::Notifiee {
   public:
    int autoStarts = 0;
    int exceptions = 0;
    void onAutoStartPowerProgram() override { ++autoStarts; }
    using Notifiee::onNotificationException;
    void onNotificationException(Zol::AttributeId) override { ++exceptions; }
  };
  auto const base = listenTo<BaseListener>(this->controller);
  this->controller->pollingEnabledIs(false);
  this->controller->autoStartPowerProgramIs(true);
  EXPECT_EQ(base->autoStarts, 1);
  EXPECT_EQ(base->exceptions, 0);
  EXPECT_THAT(this->listener->heard, ElementsAre("pollingEnabled", "autoStartPowerProgram"));
}

TYPED_TEST(ControllerClass, TellsListenersOfItsOwnClass) {
  class OwnListener : public TypeParam::Notifiee {
   public:
    int calls = 0;
    void onReady() override { ++calls; }
  };
  auto const own = listenTo<OwnListener>(this->controller);
  this->controller->readyIs(true);
  EXPECT_EQ(own->calls, 1);
  EXPECT_EQ(own->notifier(), this->controller);
}

TYPED_TEST(ControllerClass, HasADigestOfItsValuesAlone) {
  auto const other = this->make();
  for (auto const& attribute : controllerAttributes()) {
    attribute.set(*this->controller, 1);
    EXPECT_NE(Zol::digest(*this->controller), Zol::digest(*other)) << attribute.name;
    attribute.set(*other, attribute.count - 1);
    attribute.set(*other, 1);
    EXPECT_EQ(Zol::digest(*this->controller), Zol::digest(*other)) << attribute.name;
  }
}

TYPED_TEST(ControllerClass, AgreesWithAPlainRecordUnderRandomChangesThatAThrowerHears) {
  auto const& attributes = controllerAttributes();
  for (std::uint32_t seed = 1; seed <= 3; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    auto const changed = this->make();
    auto const heardBy = listenTo<ControllerListener>(changed);
    heardBy->throwing = true;
    std::vector<std::size_t> record(attributes.size(), 0);
    std::uint32_t mutations = 0;
    for (std::uint32_t step = 0; step < 500; ++step) {
      std::size_t const chosen = random() % attributes.size();
      std::size_t const nth = random() % attributes[chosen].count;
      attributes[chosen].set(*changed, nth);
      ASSERT_EQ(attributes[chosen].get(*changed), nth) << attributes[chosen].name;
      bool const changes = std::exchange(record[chosen], nth) != nth;
      if (changes) ++mutations;
      std::vector<std::string> told;
      if (changes) {
        told = {attributes[chosen].name, "exception in " + std::to_string(attributes[chosen].id)};
      }
      ASSERT_EQ(heardBy->heardNow(), told);
      ASSERT_EQ(changed->mutationCounter(), mutations);
      ASSERT_EQ(changed->readCounter(), step + 1) << "one read and no write";
    }
    for (std::size_t i = 0; i < attributes.size(); ++i) {
      EXPECT_EQ(attributes[i].get(*changed), record[i]) << attributes[i].name;
    }
  }
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

TEST(ControllerListeners, OfAnotherClassHearTheSharedAttributesOnly) {
  Zol::Ptr<PowerController::ControllerConfig> const base =
      new PowerController::ControllerConfig("main", "", nullptr, nullptr, nullptr);
  auto const listener = listenTo<ControllerListener>(base);
  base->autoStartPowerProgramIs(true);
  EXPECT_THAT(listener->heard, ElementsAre("autoStartPowerProgram"));
  EXPECT_FALSE(listener->notifier());

  class PsocListener : public PsocControllerConfig::Notifiee {
   public:
    int calls = 0;
    void onReady() override { ++calls; }
  };
  Zol::Ptr<Ucd9012ControllerConfig> const controller =
      new Ucd9012ControllerConfig("main", "", nullptr, nullptr, nullptr);
  auto const ofPsoc = listenTo<PsocListener>(controller);
  controller->readyIs(true);
  EXPECT_EQ(ofPsoc->calls, 1);
  EXPECT_FALSE(ofPsoc->notifier());
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
