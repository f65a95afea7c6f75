// A root and its members in one collection, beyond what the models of all attributes show: what a
// listener finds when it is told, refusals, iterators, and lifetimes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <hwrailseq.h>

#include <functional>

#include "entities/listen_to.h"

namespace Hardware::Ucd9012::Test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class ConfigListener : public Config::Notifiee {
 public:
  std::vector<std::string> heard;
  std::function<void()> reaction = [] {};

  using Config::Notifiee::onRealPsocController;
  using Config::Notifiee::onRealUcd9012Controller;
  void onRealUcd9012Controller(Zol::Name name) override { hear(name); }
  void onRealPsocController(Zol::Name name) override { hear("psoc " + name); }
  using Config::Notifiee::onNotificationException;
  void onNotificationException(Zol::AttributeId id) override {
    heard.push_back("exception in " + std::to_string(id));
  }

 private:
  void hear(Zol::String8 const& name) {
    heard.emplace_back(name.view());
    reaction();
  }
};

struct Root : ::testing::Test {
  auto is(char const* name) {
    return config->realUcd9012ControllerIs(name, "J12", dexo, pinConfig, pinStatus);
  }
  std::vector<std::string> heard() { return std::exchange(listener->heard, {}); }
  // The text that refuses to make "main" with these parameters.
  std::string refusal(char const* customer, Zol::Ptr<Hardware::DexoDesc> const& desc,
                      Zol::Ptr<Gpio::PinConfig> const& pin,
                      Zol::Ptr<Gpio::PinStatus const> const& status) {
    try {
      config->realUcd9012ControllerIs("main", customer, desc, pin, status);
    } catch (Zol::NameInUseException const& failure) {
      return failure.what();
    }
    return {};
  }

  Zol::Ptr<Hardware::DexoDesc> dexo = new Hardware::DexoDesc("dexo");
  Zol::Ptr<Gpio::PinConfig> pinConfig = new Gpio::PinConfig("pinConfig");
  Zol::Ptr<Gpio::PinStatus const> pinStatus = new Gpio::PinStatus("pinStatus");
  Zol::Ptr<Config> config = configFactory("board");
  // Weak, so that it hears of the end of the root too.
  Zol::Ptr<ConfigListener> listener = [this] {
    auto const made = listenTo<ConfigListener>(config);
    made->isWeakReferenceIs(true);
    return made;
  }();
};

TEST_F(Root, HasAMemberInPlaceWhenItTellsOfItAndOutWhenItTellsOfItsEnd) {
  bool inPlaceWhenTold = false;
  listener->reaction = [&] {
    auto const main = config->realUcd9012Controller("main");
    inPlaceWhenTold = main && main->parent() == config && config->mutationCounter() == 1;
  };
  Zol::Ptr<Ucd9012ControllerConfig> const main = is("main");
  EXPECT_TRUE(inPlaceWhenTold);
  EXPECT_EQ(main->dexoDesc(), dexo);
  EXPECT_EQ(main->resetGpioPinConfig(), pinConfig);
  EXPECT_EQ(main->resetGpioPinStatus(), pinStatus);
  EXPECT_EQ(main->fullName(), "board/realUcd9012Controller[main]");
  EXPECT_EQ(main->uriPath(), main->fullName());
  EXPECT_EQ(main->references(), 2u);

  bool outWhenTold = false;
  listener->reaction = [&] {
    outWhenTold = !main->parent() && !config->realUcd9012Controller("main");
  };
  EXPECT_EQ(config->realUcd9012ControllerDel(Zol::Name("main")), main);
  EXPECT_TRUE(outWhenTold);
  EXPECT_EQ(main->references(), 1u);
  EXPECT_EQ(main->fullName(), "main");
}

TEST_F(Root, CountsReadsByNameAndThoseOfTheParametersThatItCompares) {
  auto const main = is("main");
  EXPECT_EQ(is("main"), main);
  EXPECT_EQ(main->readCounter(), 4u);
  EXPECT_EQ(config->readCounter(), 0u);
  for (char const* const name : {"main", "absent"}) (void)config->realUcd9012Controller(name);
  EXPECT_EQ(config->readCounter(), 2u);
}

TEST_F(Root, RefusesTheFirstOtherParameterAndSaysWhich) {
  auto const text = [](std::string const& parameter, std::string const& values) {
    return "Reinstantiating the entity with name 'main' where constructor parameter attribute _" +
           parameter + " has a different value of " + values + " not allowed";
  };
  is("main");
  EXPECT_EQ(refusal("it's", nullptr, nullptr, nullptr),
            text("customerName", "'it\\'s' than the current value of 'J12'"));
  EXPECT_EQ(refusal("J12", nullptr, nullptr, nullptr),
            text("dexoDesc",
                 "Entity('Hardware::DexoDesc', None) than the current value of "
                 "Entity('Hardware::DexoDesc', 'dexo')"));
  EXPECT_EQ(refusal("J12", dexo, new Gpio::PinConfig("x"), nullptr),
            text("resetGpioPinConfig",
                 "Entity('Hardware::Gpio::PinConfig', 'x') than the current value of "
                 "Entity('Hardware::Gpio::PinConfig', 'pinConfig')"));
  EXPECT_EQ(refusal("J12", dexo, pinConfig, new Gpio::PinStatus("x")),
            text("resetGpioPinStatus",
                 "Entity('Hardware::Gpio::PinStatus', 'x') than the current value of "
                 "Entity('Hardware::Gpio::PinStatus', 'pinStatus')"));
  EXPECT_EQ(config->mutationCounter(), 1u);
  EXPECT_THAT(heard(), ElementsAre("main"));
}

TEST_F(Root, TakesOutWhatAnIteratorStandsOnOnce) {
  for (char const* const name : {"a", "b", "c"}) is(name);
  heard();
  std::vector<std::string> out;
  for (auto it = config->realUcd9012ControllerIterator(); it; ++it) {
    while (auto const member = config->realUcd9012ControllerDel(it)) {
      out.emplace_back(member->name().view());
    }
  }
  EXPECT_THAT(out, UnorderedElementsAre("a", "b", "c"));
  EXPECT_EQ(heard(), out);
  EXPECT_EQ(config->mutationCounter(), 6u);
  EXPECT_FALSE(config->realUcd9012ControllerIteratorConst("a"));
}

TEST_F(Root, TakesAllOutOneByOneThoughItIsDroppedMeanwhile) {
  for (int i = 0; i < 40; ++i) is(std::to_string(i).c_str());
  heard();
  listener->reaction = [this] { config = nullptr; };
  config->realUcd9012ControllerDelAll();
  EXPECT_EQ(heard().size(), 40u);
  EXPECT_EQ(listener->zolNotifier(), nullptr);
}

TEST_F(Root, TellsOfAMemberOnDemandWithItsIdForTheHandlerOfExceptions) {
  listener->reaction = [] { throw 1; };
  config->realUcd9012ControllerNotify("any");
  EXPECT_THAT(heard(), ElementsAre("any", "exception in 259"));
  EXPECT_EQ(config->mutationCounter(), 0u);
}

TEST_F(Root, LetsAListenerTakeOutWhatItIsToldOf) {
  listener->reaction = [this] { config->realUcd9012ControllerDel(Zol::Name("main")); };
  auto const main = is("main");
  EXPECT_THAT(heard(), ElementsAre("main", "main"));
  EXPECT_EQ(main->references(), 1u);
  EXPECT_FALSE(main->parent());
}

TEST_F(Root, HoldsOneNameInEachCollectionAndEndsThemInOrderOfTheIds) {
  auto const main = is("main");
  config->realPsocControllerIs("main", "", nullptr, nullptr, nullptr);
  heard();
  config = nullptr;
  EXPECT_THAT(heard(), ElementsAre("main", "psoc main"));
  EXPECT_EQ(main->references(), 1u);
  EXPECT_FALSE(main->parent());
}

TEST_F(Root, HasADigestOfItsMembersWhateverTheOrderOfMaking) {
  auto const other = configFactory("board");
  for (int i = 0; i < 30; ++i) {
    config->newRealPsocController(std::to_string(i), "", nullptr, nullptr, nullptr);
    other->newRealPsocController(std::to_string(29 - i), "", nullptr, nullptr, nullptr);
  }
  EXPECT_EQ(Zol::digest(*config), Zol::digest(*other));
  config->realPsocController("7")->readyIs(true);
  EXPECT_NE(Zol::digest(*config), Zol::digest(*other));
  other->realPsocController("7")->readyIs(true);
  EXPECT_EQ(Zol::digest(*config), Zol::digest(*other));
}

// A class's own attributes and those of its bases, by the ids of the registry.
TEST(Attributes, AreNamedByTheirIds) {
  Zol::Ptr<Zol::Entity> const entities[] = {
      configFactory("c"),
      statusFactory("s"),
      new VoltageRailConfig(1, nullptr, nullptr),
      new PsocControllerConfig("p", "", nullptr, nullptr, nullptr),
      new PsocControllerStatus("p"),
      new Ucd9012DiagConfig("d"),
      new Ucd9012DiagModeConfig("d"),
      new Ucd9012DiagStatus("d")};
  for (Zol::Ptr<Zol::Entity> const& entity : entities) {
    SCOPED_TRACE(entity->fwkType()->fullName());
    int named = 0;
    for (auto it = entity->fwkType()->attributeQIteratorConst(); it; ++it) {
      if (it->attrId() < 258) continue;
      EXPECT_EQ(entity->attributeString(it->attrId()), it->name());
      ++named;
    }
    EXPECT_GT(named, 1);
    EXPECT_EQ(entity->attributeString(130), "name");
    for (int const id : {257, 500, -258, 0}) EXPECT_EQ(entity->attributeString(id), "unknown");
  }
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
