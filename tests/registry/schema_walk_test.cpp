// The whole schema as a tool sees it: only walks over what the registry has, compared with the
// expected table; and what the type objects can make, knowing only the type.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "entities/config.h"
#include "entities/status.h"
#include "entities/voltage_rail_config.h"
#include "host/models/siblings.h"
#include "host/zol/attrlog/in.h"
#include "host/zol/registry/recording_target.h"
#include "registry/expected_schema.h"
#include "values/ucd_cause.h"

namespace {

using ExpectedSchema::Kind;
using namespace Hardware::Ucd9012;

std::string nameOf(Zol::ZolType const* type) {
  return type ? std::string(type->fullName().view()) : std::string();
}

Zol::ZolType* registered(std::string const& fullName) {
  Zol::ZolType* const type = Zol::ZolType::typeNode(fullName);
  if (!type) throw std::logic_error(fullName + " is not registered");
  return type;
}

class SchemaWalk : public testing::TestWithParam<ExpectedSchema::Type> {
 protected:
  SchemaWalk() {
    // The library is loaded before the process begins; a reference to it keeps the linker from
    // leaving it out.
    EXPECT_NE(Config::_fwkType(), nullptr);
  }

  ExpectedSchema::Type const& expected = GetParam();
  Zol::ZolType* const type = registered(ExpectedSchema::fullName(GetParam()));
};

TEST_P(SchemaWalk, TypeIsOfItsKindAndMadeFromItsArguments) {
  EXPECT_EQ(type->name(), Zol::Name(expected.name));
  EXPECT_EQ(nameOf(type->baseType()), expected.base);
  EXPECT_EQ(type->isEntity(), expected.kind == Kind::entity);
  EXPECT_EQ(type->isValue(), expected.kind != Kind::entity);
  EXPECT_EQ(type->isEnumType(), expected.kind == Kind::enumeration);
  EXPECT_TRUE(type->hasGenericIfSupport());
  EXPECT_EQ(type->valAttr(), nullptr);
  EXPECT_FALSE(type->typeFlagsDoEmbeddedWriteConstraints());
  EXPECT_TRUE(expected.kind != Kind::enumeration || type->size() == 4U);
  EXPECT_EQ(ExpectedSchema::lineOf(type->constructorArgNameQIteratorConst(),
                                   type->constructorArgTypeQIteratorConst()),
            ExpectedSchema::lineOf(expected.args));
}

TEST_P(SchemaWalk, AttributesAreWalkedInOrderWithAllThatIsKnownOfThem) {
  auto it = type->attributeQIteratorConst();
  for (ExpectedSchema::Attr const& attr : ExpectedSchema::allAttrs(expected)) {
    SCOPED_TRACE(attr.name);
    ASSERT_TRUE(it);
    EXPECT_EQ(ExpectedSchema::lineOf(*it), ExpectedSchema::lineOf(attr));
    EXPECT_EQ(it->owner(), type) << "each type has attributes of its own";
    EXPECT_EQ(type->attr(attr.id), it.ptr().get());
    EXPECT_EQ(type->attr(Zol::Name(attr.name)), it.ptr());
    ++it;
  }
  EXPECT_FALSE(it) << "more than expected, from " << it->name();
}

INSTANTIATE_TEST_SUITE_P(, SchemaWalk, testing::ValuesIn(ExpectedSchema::types()),
                         [](auto const& each) { return each.param.name; });

TEST(RegisteredTypes, StandInOrderOfRegistration) {
  auto const recording =
      Zol::ptrCast<Zol::RecordingTarget>(Zol::IntrospectionReactor::global()->target());
  ASSERT_TRUE(recording);
  std::vector<std::string> found;
  for (Zol::ZolType const* type : recording->types()) found.push_back(nameOf(type));
  std::vector<std::string> expected;
  for (auto const& type : ExpectedSchema::types()) expected.push_back(fullName(type));
  EXPECT_EQ(found, expected);
}

TEST(RegisteredTypes, BasesListTheTypesDerivedFromThem) {
  std::map<std::string, std::set<std::string>> expected;
  for (auto const& type : ExpectedSchema::types()) {
    if (!type.base.empty()) expected[type.base].insert(fullName(type));
  }
  for (auto const& [base, derived] : expected) {
    std::set<std::string> found;
    for (auto it = registered(base)->derivedTypeQIteratorConst(); it; ++it) {
      std::string const name = nameOf(it.ptr().get());
      if (name.starts_with("Hardware::Ucd9012::")) found.insert(name);
    }
    EXPECT_EQ(found, derived) << "below " << base;
  }
}

TEST(RegisteredTypes, AreThoseOfTheClassesAndOfTheirObjects) {
  EXPECT_EQ(Config::_fwkType()->size(), sizeof(Config));
  EXPECT_EQ(Status::_fwkType()->size(), sizeof(Status));
  EXPECT_EQ(UcdCause::_fwkType()->size(), sizeof(UcdCause));

  Zol::Ptr<Zol::Entity> const entity = configFactory("board");
  EXPECT_EQ(entity->fwkType(), Config::_fwkType());
  EXPECT_EQ(entity->fwkType()->fwkType(), Zol::ZolType::_fwkType());
  EXPECT_EQ(UcdCause().fwkType(), UcdCause::_fwkType());
}

TEST(EntityFromName, OnlyRootsAreMade) {
  auto const config = Zol::ptrCast<Config>(Config::_fwkType()->newEntity("board", nullptr));
  ASSERT_TRUE(config);
  EXPECT_EQ(config->name(), "board");
  EXPECT_FALSE(config->parent());
  EXPECT_TRUE(Zol::ptrCast<Status>(Status::_fwkType()->newEntity("board", nullptr)));
  EXPECT_THROW(static_cast<void>(ControllerConfig::_fwkType()->newEntity("main", nullptr)),
               Zol::InternalException);
}

TEST(EntityFromStream, ARailMayHaveNoReferencesAndLeavesWhatFollowsIt) {
  constexpr std::array<std::uint8_t, 18> kMessage = {200, 0, 0, 0, 0, 0, 0, 0, 0,
                                                     0,   0, 0, 0, 0, 0, 0, 0, 77};
  Zol::Ptr<Zol::NboAttrLog::In> const in = new Zol::NboAttrLog::In(1024);
  std::ranges::copy(kMessage, in->room().begin());
  in->received(kMessage.size());
  in->boundIs(in->position() + kMessage.size());
  auto const rail =
      Zol::ptrCast<VoltageRailConfig>(VoltageRailConfig::_fwkType()->newEntity(in, {}, 0, nullptr));
  ASSERT_TRUE(rail);
  EXPECT_EQ(rail->id(), 200);
  EXPECT_FALSE(rail->voltageRailEnvConfig());
  EXPECT_FALSE(rail->voltageRailEnvStatus());
  EXPECT_EQ(in->nextU8(), 77U);
}

TEST(EntityTypes, TakePartInTheDigest) {
  EXPECT_NE(Config::_fwkType()->digestFn(), nullptr);
  EXPECT_NE(ControllerConfig::_fwkType()->digestFn(), nullptr);
}

}  // namespace
