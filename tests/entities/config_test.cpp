// The configuration root: its three collections of controllers, which behave alike and do not know
// each other, what it tells of them, and its end.
#include "entities/config.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "entities/config_collections.h"
#include "host/models/siblings.h"
#include "host/zol/digest.h"

namespace Hardware::Ucd9012::Test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class Root : public ::testing::TestWithParam<CollectionOfControllers> {
 protected:
  CollectionOfControllers const& all = GetParam();

  Zol::Ptr<ControllerConfig> is(std::string const& name) {
    return all.is(*config, name, "J12", dexo, pinConfig, pinStatus);
  }
  // What has been told since the last call; each entry is "<attr> <name>".
  std::vector<std::string> heard() { return std::exchange(listener->heard, {}); }
  std::string change(std::string const& name) const { return all.attribute + (" " + name); }
  // The text that refuses to make "main" with these parameters; empty when nothing refuses.
  std::string refusal(char const* customer, Zol::Ptr<Hardware::DexoDesc> const& desc,
                      Zol::Ptr<Gpio::PinConfig> const& pin,
                      Zol::Ptr<Gpio::PinStatus const> const& status) {
    try {
      all.is(*config, "main", customer, desc, pin, status);
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

INSTANTIATE_TEST_SUITE_P(Collections, Root, ::testing::ValuesIn(collectionsOfControllers()),
                         [](auto const& row) { return row.param.attribute; });

TEST_P(Root, StartsWithoutMembersAndParent) {
  EXPECT_EQ(config->fullName(), "board");
  EXPECT_FALSE(config->parent());
  EXPECT_EQ(config->parentAttrId(), 136);
  EXPECT_FALSE(all.get(*config, "main"));
  EXPECT_THAT(all.names(*config), IsEmpty());
  all.delAll(*config);
  EXPECT_FALSE(all.del(*config, "main"));
  EXPECT_EQ(config->mutationCounter(), 0u);
  EXPECT_THAT(heard(), IsEmpty());
}

TEST_P(Root, NamesItsAttributes) {
  EXPECT_EQ(config->attributeString(all.id), all.attribute.c_str());
  EXPECT_EQ(config->attributeString(258), "dexoDesc");
  EXPECT_EQ(config->attributeString(130), "name");
  for (int const id : {257, 263, -all.id}) EXPECT_EQ(config->attributeString(id), "unknown");
}

TEST_P(Root, MakesAMemberBelowItCountsItAndTellsOfIt) {
  bool inPlaceWhenTold = false;
  listener->reaction = [&] {
    auto const main = all.get(*config, "main");
    inPlaceWhenTold = main && main->parent() == config && config->mutationCounter() == 1;
  };
  auto const main = is("main");
  EXPECT_TRUE(inPlaceWhenTold);
  EXPECT_THAT(heard(), ElementsAre(change("main")));
  EXPECT_EQ(main->customerName(), "J12");
  EXPECT_EQ(main->dexoDesc(), dexo);
  EXPECT_EQ(main->resetGpioPinConfig(), pinConfig);
  EXPECT_EQ(main->resetGpioPinStatus(), pinStatus);
  EXPECT_EQ(main->parentAttrId(), all.id);
  EXPECT_EQ(main->fullName(), "board/" + all.attribute + "[main]");
  EXPECT_EQ(main->uriPath(), main->fullName());
  EXPECT_EQ(main->references(), 2u);
}

TEST_P(Root, GivesTheMemberAgainForTheSameParameters) {
  auto const main = is("main");
  EXPECT_EQ(is("main"), main);
  EXPECT_EQ(config->mutationCounter(), 2u);
  EXPECT_EQ(main->readCounter(), 4u);
  EXPECT_THAT(heard(), ElementsAre(change("main")));
  auto const bare = all.is(*config, "bare", "", nullptr, nullptr, nullptr);
  EXPECT_EQ(all.is(*config, "bare", "", nullptr, nullptr, nullptr), bare);
  EXPECT_EQ(config->readCounter(), 0u) << "only reads by name count";
  for (char const* const name : {"main", "absent"}) all.get(*config, name);
  EXPECT_EQ(config->readCounter(), 2u);
}

TEST_P(Root, RefusesTheFirstOtherParameterAndSaysWhich) {
  auto const text = [](std::string const& parameter, std::string const& values) {
    return "Reinstantiating the entity with name 'main' where constructor parameter attribute _" +
           parameter + " has a different value of " + values + " not allowed";
  };
  auto const main = is("main");
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
  EXPECT_EQ(all.get(*config, "main"), main);
  EXPECT_EQ(config->mutationCounter(), 1u);
  EXPECT_THAT(heard(), ElementsAre(change("main")));
}

TEST_P(Root, TakesAMemberOutAndTellsOfIt) {
  auto const main = is("main");
  heard();
  bool outWhenTold = false;
  listener->reaction = [&] { outWhenTold = !main->parent() && !all.get(*config, "main"); };
  EXPECT_EQ(all.del(*config, "main"), main);
  EXPECT_TRUE(outWhenTold);
  EXPECT_FALSE(all.del(*config, "main"));
  EXPECT_THAT(heard(), ElementsAre(change("main")));
  EXPECT_EQ(config->mutationCounter(), 2u);
  EXPECT_EQ(main->references(), 1u);
  EXPECT_EQ(main->fullName(), "main");
}

TEST_P(Root, TakesOutWhatAnIteratorStandsOnOnce) {
  for (char const* const name : {"a", "b", "c"}) is(name);
  heard();
  auto const names = all.names(*config);
  EXPECT_THAT(names, UnorderedElementsAre("a", "b", "c"));
  EXPECT_THAT(all.namesFrom(*config, names[1]), ElementsAre(names[1], names[2]));
  EXPECT_THAT(all.namesFrom(*config, "absent"), IsEmpty());
  EXPECT_THAT(all.delTwiceAtEach(*config), ElementsAre(names[0], names[1], names[2]));
  EXPECT_THAT(heard(), ElementsAre(change(names[0]), change(names[1]), change(names[2])));
  EXPECT_EQ(config->mutationCounter(), 6u);
}

TEST_P(Root, TakesAllOutOneByOneThoughItIsDroppedMeanwhile) {
  std::vector<std::string> changes;
  for (int i = 0; i < 40; ++i) is(std::to_string(i));
  for (auto const& name : all.names(*config)) changes.push_back(change(name));
  heard();
  listener->reaction = [this] { config = nullptr; };
  all.delAll(*config);
  EXPECT_EQ(heard(), changes);
  EXPECT_EQ(listener->zolNotifier(), nullptr);
}

TEST_P(Root, TellsOfAMemberOnDemandWithItsIdForTheHandlerOfExceptions) {
  listener->reaction = [] { throw 1; };
  all.notify(*config, "any");
  EXPECT_THAT(heard(), ElementsAre(change("any"), "exception in " + std::to_string(all.id)));
  EXPECT_EQ(config->mutationCounter(), 0u);
}

TEST_P(Root, MakesAMemberSilentlyInThePlaceOfAnother) {
  auto const old = all.make(*config, "main");
  auto const made = all.make(*config, "main");
  EXPECT_EQ(all.get(*config, "main"), made);
  EXPECT_EQ(made->parent(), config);
  EXPECT_EQ(made->parentAttrId(), all.id);
  EXPECT_EQ(config->mutationCounter(), 0u);
  EXPECT_THAT(heard(), IsEmpty());
  EXPECT_FALSE(old->parent());
  config = nullptr;
  EXPECT_EQ(old->fullName(), "main");
}

TEST_P(Root, LetsAListenerTakeOutWhatItIsToldOf) {
  listener->reaction = [this] { all.del(*config, "main"); };
  auto const main = is("main");
  EXPECT_THAT(heard(), ElementsAre(change("main"), change("main")));
  EXPECT_EQ(main->references(), 1u);
  EXPECT_FALSE(main->parent());
}

TEST_P(Root, HoldsOneNameInEachCollectionAndEndsThemInOrderOfTheIds) {
  std::vector<std::string> changes;
  for (auto const& each : collectionsOfControllers()) {
    each.is(*config, "main", each.attribute, nullptr, nullptr, nullptr);
    changes.push_back(each.attribute + " main");
  }
  EXPECT_EQ(heard(), changes);
  auto const held = all.get(*config, "main");
  EXPECT_EQ(held->customerName(), all.attribute);
  held->pollingEnabledIs(false);
  config = nullptr;
  EXPECT_EQ(heard(), changes);
  EXPECT_EQ(held->references(), 1u);
  EXPECT_FALSE(held->parent());
  EXPECT_FALSE(held->pollingEnabled());
}

TEST_P(Root, HasADigestOfItsMembersWhateverTheOrderOfMaking) {
  auto const other = configFactory("board");
  for (int i = 0; i < 30; ++i) {
    all.make(*config, std::to_string(i));
    all.make(*other, std::to_string(29 - i));
  }
  EXPECT_EQ(Zol::digest(*config), Zol::digest(*other));
  all.get(*config, "7")->readyIs(true);
  EXPECT_NE(Zol::digest(*config), Zol::digest(*other));
  all.get(*other, "7")->readyIs(true);
  EXPECT_EQ(Zol::digest(*config), Zol::digest(*other));
}

TEST_P(Root, IsTheOnlyThingThatItsListenersTake) {
  listener->notifierIs(is("main"));
  EXPECT_FALSE(listener->notifier());
  EXPECT_TRUE(config->zolNotifiees().empty());
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
