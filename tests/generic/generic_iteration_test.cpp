// Walks of the members of keyed attributes through generic objects.
#include "generic/samples.h"

#include <set>

#include "support/allocation_count.h"

namespace Hardware::Ucd9012::Test {
namespace {

std::string keysFrom(GenericIf::AttributeIteratorConst it) {
  std::string keys;
  for (; it; ++it) keys += std::string(it.key()->strRep().view()) + " ";
  return keys;
}

struct Walks : ::testing::Test {
  Zol::Ptr<Ucd9012DiagConfig> entity{new Ucd9012DiagConfig("d")};
  Generic generic = ZolType::genericIf(entity.get(), false);
  Zol::AttributeId parameter = generic->attributeId("parameter");
  void SetUp() override {
    for (unsigned int key : {2u, 1u, 3u}) entity->parameterIs(key, std::to_string(key));
  }
};

TEST_F(Walks, GiveKeysAndValuesInOrderAndKeepTheirPlaceWhenMembersGo) {
  auto it = generic->attributeIteratorConst(parameter);
  EXPECT_EQ(keysFrom(it), "1 2 3 ");
  ++it;
  auto const standing = it;
  generic->attributeOp({parameter, GenericIf::attrOpDelete}, number(2), nullptr);
  EXPECT_EQ(it.key()->strRep(), "2");
  EXPECT_EQ(it.obj()->strRep(), "'2'");
  ++it;
  EXPECT_EQ(it.key()->strRep(), "3");
  EXPECT_EQ(standing.key()->strRep(), "2");
  EXPECT_TRUE(it.key()->isConst());
  EXPECT_FALSE(it.obj()->isConst());
  ++it;
  EXPECT_FALSE(it);
  EXPECT_EQ(it.key(), nullptr);
  EXPECT_EQ(it.obj(), nullptr);

  // A value taken earlier is a copy.
  auto const first = generic->attributeIteratorConst(parameter);
  Generic const value = first.obj();
  entity->parameterIs(1, "changed");
  EXPECT_EQ(value->strRep(), "'1'");
  EXPECT_EQ(first.obj()->strRep(), "'changed'");
}

TEST_F(Walks, EndAfterAsManyStepsAsThereWereMembersThatTheyDelete) {
  int steps = 0;
  for (auto it = generic->attributeIteratorConst(parameter); it; ++it, ++steps) {
    generic->attributeOp({parameter, GenericIf::attrOpDelete}, it.key(), nullptr);
  }
  EXPECT_EQ(steps, 3);
  EXPECT_EQ(entity->parameterCount(), 0u);
  EXPECT_FALSE(generic->attributeIteratorConst(parameter));
}

TEST_F(Walks, BeginAtExactlyTheKeyOrNowhere) {
  EXPECT_EQ(keysFrom(generic->attributeIteratorKeyConst(parameter, number(2))), "2 3 ");
  for (unsigned int const absent : {0u, 4u}) {
    auto it = generic->attributeIteratorKeyConst(parameter, number(absent));
    EXPECT_FALSE(it);
    ++it;
    EXPECT_FALSE(it);
  }
  expectFailure<Zol::TypeException>(
      [&] { (void)generic->attributeIteratorKeyConst(parameter, nullptr); }, "zol_index");
  expectFailure<Zol::TypeException>(
      [&] { (void)generic->attributeIteratorKeyConst(parameter, text("2")); }, "String8");
  EXPECT_THROW((void)generic->attributeIteratorConst(generic->attributeId("epoch")),
               Zol::UnknownAttrException);
  EXPECT_THROW((void)number(1)->attributeIteratorConst(1), Zol::UnknownAttrException);
}

TEST_F(Walks, HoldTheirObjectAndEndOnce) {
  auto it = generic->attributeIteratorConst(parameter);
  auto const copy = it;
  generic = nullptr;
  entity = nullptr;
  EXPECT_EQ(keysFrom(std::move(it)), "1 2 3 ");
  EXPECT_EQ(copy.key()->strRep(), "1");
  Generic const holder = copy.generic();
  holder->attributeIterator_iterDel(copy);
  EXPECT_FALSE(copy);
  EXPECT_FALSE(holder->attributeIterator_nonNull(copy));
  EXPECT_EQ(keysFrom(holder->attributeIteratorConst(copy.attributeId())), "1 2 3 ");
}

TEST_F(Walks, AndLookupsOfNamesAllocateNothingAtASingleStep) {
  auto const it = generic->attributeIteratorConst(parameter);
  Zol::String8 const known = "epoch";
  EXPECT_EQ(test::allocationsOf([&] {
              generic->attributeIterator_iterInc(it);
              EXPECT_TRUE(generic->attributeIterator_nonNull(it));
              EXPECT_EQ(generic->attributeId(known), Ucd9012DiagConfig::Id::epoch);
            }),
            0u);
  EXPECT_EQ(test::allocationsOf([&] { auto const copy = it; }), 1u);
}

TEST(WalksOfEntities, GiveTheMembersOfEveryKindOfCollection) {
  auto const config = configFactory("c");
  auto const main = config->realUcd9012ControllerIs("main", "", nullptr, nullptr, nullptr);
  config->realUcd9012ControllerIs("aux", "", nullptr, nullptr, nullptr);
  config->controllerIs(Zol::Ptr<ControllerConfig>(main));
  main->externalVoltageRailIs(7, {1, 2});
  main->voltageRailIs(9, nullptr, nullptr);

  Generic const root = ZolType::genericIf(config.get(), true);
  std::set<std::string> names;
  Zol::AttributeId const controllers = root->attributeId("realUcd9012Controller");
  for (auto it = root->attributeIteratorConst(controllers); it; ++it) {
    names.insert(std::string(it.key()->strRep().view()));
    EXPECT_TRUE(it.obj()->isConst());
    EXPECT_EQ(it.obj()->type(), Ucd9012ControllerConfig::_fwkType());
  }
  EXPECT_EQ(names, (std::set<std::string>{"'aux'", "'main'"}));
  auto const reference =
      root->attributeIteratorKeyConst(root->attributeId("controller"), name("main"));
  EXPECT_EQ(Zol::unwrappedEntity<ControllerConfig>(reference.obj().get()), main.get());
  expectFailure<Zol::TypeException>(
      [&] { (void)root->attributeIteratorKeyConst(controllers, nullptr); }, "name");
  EXPECT_FALSE(root->attributeIteratorKeyConst(controllers, name("none")));

  Generic const controller = ZolType::genericIf(main.get(), false);
  auto const rail = controller->attributeIteratorConst(controller->attributeId("voltageRail"));
  EXPECT_EQ(rail.key()->strRep(), "9");
  EXPECT_EQ(rail.key()->type(), Zol::Builtin<unsigned char>::_fwkType());
  expectFailure<Zol::TypeException>(
      [&] {
        (void)controller->attributeIteratorKeyConst(controller->attributeId("voltageRail"),
                                                    nullptr);
      },
      "id");
  auto const external =
      controller->attributeIteratorConst(controller->attributeId("externalVoltageRail"));
  EXPECT_EQ(external.obj()->strRep(), valueToStrep(ExternalVoltageRail(1, 2)));
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
