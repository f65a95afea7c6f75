// The whole schema as a tool sees it: only walks over what the registry has, compared with the
// expected table.
#include <gmock/gmock.h>

#include <map>
#include <set>

#include "entities/config.h"
#include "entities/status.h"
#include "host/zol/registry/recording_target.h"
#include "registry/expected_schema.h"
#include "values/ucd_cause.h"

namespace {

using ExpectedSchema::Kind;
using testing::ElementsAre;

std::vector<std::string> texts(Zol::TextQueue::IteratorConst it) {
  std::vector<std::string> found;
  for (; it; ++it) found.emplace_back((*it).view());
  return found;
}

std::vector<std::string> firsts(std::vector<std::pair<std::string, std::string>> const& pairs) {
  std::vector<std::string> found;
  for (auto const& pair : pairs) found.push_back(pair.first);
  return found;
}

std::vector<std::string> seconds(std::vector<std::pair<std::string, std::string>> const& pairs) {
  std::vector<std::string> found;
  for (auto const& pair : pairs) found.push_back(pair.second);
  return found;
}

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
    EXPECT_NE(Hardware::Ucd9012::Config::_fwkType(), nullptr);
  }

  ExpectedSchema::Type const& expected = GetParam();
  Zol::ZolType* const type = registered(ExpectedSchema::fullName(GetParam()));
};

TEST_P(SchemaWalk, TypeIsOfItsKind) {
  EXPECT_EQ(type->name(), Zol::Name(expected.name));
  EXPECT_EQ(nameOf(type->baseType()), expected.base);
  EXPECT_EQ(type->isEntity(), expected.kind == Kind::entity);
  EXPECT_EQ(type->isValue(), expected.kind != Kind::entity);
  EXPECT_EQ(type->isEnumType(), expected.kind == Kind::enumeration);
  EXPECT_TRUE(type->hasGenericIfSupport());
  EXPECT_EQ(type->valAttr(), nullptr);
  EXPECT_FALSE(type->typeFlagsDoEmbeddedWriteConstraints());
  if (expected.kind == Kind::enumeration) {
    EXPECT_EQ(type->size(), 4U);
  }
}

TEST_P(SchemaWalk, ConstructorArgumentsStandAsTexts) {
  EXPECT_EQ(texts(type->constructorArgNameQIteratorConst()), firsts(expected.args));
  EXPECT_EQ(texts(type->constructorArgTypeQIteratorConst()), seconds(expected.args));
}

TEST_P(SchemaWalk, AttributesAreWalkedInOrderWithAllThatIsKnownOfThem) {
  auto it = type->attributeQIteratorConst();
  for (ExpectedSchema::Attr const& attr : ExpectedSchema::allAttrs(expected)) {
    SCOPED_TRACE(attr.name);
    ASSERT_TRUE(it);
    ExpectedSchema::Flags const flags = ExpectedSchema::flagsOf(attr.attrClass);
    auto const args = ExpectedSchema::argsOf(attr);
    EXPECT_EQ(it->name(), Zol::Name(attr.name));
    EXPECT_EQ(it->attrId(), attr.id);
    EXPECT_EQ(it->flags().low, flags.low);
    EXPECT_EQ(it->flags().high, flags.high);
    EXPECT_EQ(it->introspectionFlags(), flags.introspection);
    EXPECT_EQ(nameOf(it->type()), attr.value);
    EXPECT_EQ(nameOf(it->keyType()), attr.key);
    EXPECT_EQ(it->keyFieldName(), Zol::Name(attr.keyField));
    EXPECT_EQ(texts(it->constructorArgNameQIteratorConst()), firsts(args));
    EXPECT_EQ(texts(it->constructorArgTypeQIteratorConst()), seconds(args));
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

TEST(RegisteredTypes, SizesAreThoseOfTheClasses) {
  EXPECT_EQ(Hardware::Ucd9012::Config::_fwkType()->size(), sizeof(Hardware::Ucd9012::Config));
  EXPECT_EQ(Hardware::Ucd9012::Status::_fwkType()->size(), sizeof(Hardware::Ucd9012::Status));
  EXPECT_EQ(Hardware::Ucd9012::UcdCause::_fwkType()->size(), sizeof(Hardware::Ucd9012::UcdCause));
}

TEST(RegisteredTypes, AnObjectGivesTheTypeOfItsOwnClass) {
  Zol::Ptr<Zol::Entity> const entity = Hardware::Ucd9012::configFactory("board");
  EXPECT_EQ(entity->fwkType(), Hardware::Ucd9012::Config::_fwkType());
  EXPECT_EQ(entity->fwkType()->fwkType(), Zol::ZolType::_fwkType());
  EXPECT_EQ(Hardware::Ucd9012::UcdCause().fwkType(), Hardware::Ucd9012::UcdCause::_fwkType());
}

TEST(RegisteredTypes, AccessorsMakeNoFurtherReport) {
  struct Counter final : Zol::IntrospectionTarget {
    void handleNameSpace(Zol::String8 const&) override { ++calls; }
    void handleType(Zol::ZolType*, Zol::ZolType*) override { ++calls; }
    void handleAttr(Zol::ZolAttr const&) override { ++calls; }
    void handleAttrContextExit() override { ++calls; }
    void handleScopeExit() override { ++calls; }
    void defNoninstantiatingAttr(Zol::ZolAttr const&) override { ++calls; }
    int calls = 0;
  };
  auto const reactor = Zol::IntrospectionReactor::global();
  auto const before = reactor->target();
  Zol::Ptr<Counter> const counter = new Counter;
  reactor->targetIs(counter);
  EXPECT_NE(Hardware::Ucd9012::Config::_fwkType(), nullptr);
  EXPECT_NE(Hardware::Ucd9012::_fwkType_ReloadCauses(), nullptr);
  reactor->targetIs(before);
  EXPECT_EQ(counter->calls, 0);
}

}  // namespace
