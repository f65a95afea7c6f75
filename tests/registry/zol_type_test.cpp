// Type objects as such: their directory of attributes, their names, and what a plain type refuses.
#include "host/zol/registry/zol_type.h"

#include <gmock/gmock.h>

#include "host/zol/attrlog/in.h"
#include "host/zol/registry/model_type.h"

namespace {

using testing::ElementsAre;
using Zol::FlagClass::kS;

std::vector<std::string> names(Zol::ZolType const& type) {
  std::vector<std::string> found;
  for (auto it = type.attributeQIteratorConst(); it; ++it) found.emplace_back(it->name().view());
  return found;
}

class ZolTypeTest : public testing::Test {
 protected:
  Zol::Ptr<Zol::ZolAttr> enter(char const* name, Zol::AttributeId id) {
    auto const attr = type->attrIs(name, u32, nullptr, nullptr, kS.flags, id);
    type->attributeQEnq(attr);
    return attr;
  }

  Zol::ZolType* const u32 = Zol::Builtin<unsigned int>::_fwkType();
  Zol::Ptr<Zol::ZolType> const type = new Zol::ZolType("Lamp", nullptr, nullptr, {});
};

TEST_F(ZolTypeTest, AnswersByNameAndByIdButIsWalkedOverWhatIsEnteredOnly) {
  auto const colour = type->attrIs("colour", u32, nullptr, nullptr, kS.flags, 258);
  EXPECT_EQ(type->attr("colour"), colour);
  EXPECT_THAT(names(*type), ElementsAre());
  type->attributeQEnq(colour);
  EXPECT_THAT(names(*type), ElementsAre("colour"));
  EXPECT_EQ(type->attr("colour"), colour);
  EXPECT_EQ(type->attr(258), colour.get());
  EXPECT_EQ(type->attr("Colour"), nullptr);
  EXPECT_EQ(type->attr(259), nullptr);
}

TEST_F(ZolTypeTest, ARedefinitionTakesThePlaceOfTheFormerOne) {
  enter("colour", 258);
  enter("height", 259);
  auto const again = enter("colour", 300);
  EXPECT_THAT(names(*type), ElementsAre("colour", "height"));
  EXPECT_EQ(type->attr("colour"), again);
  EXPECT_EQ(type->attr(300), again.get());
  EXPECT_EQ(type->attr(258), nullptr);
}

TEST_F(ZolTypeTest, ADeletedAttributeIsGoneFromEveryWay) {
  enter("colour", 258);
  enter("height", 259);
  type->attrDel("colour");
  type->attrDel("never there");
  EXPECT_THAT(names(*type), ElementsAre("height"));
  EXPECT_EQ(type->attr("colour"), nullptr);
  EXPECT_EQ(type->attr(258), nullptr);
}

TEST_F(ZolTypeTest, ATypeWithoutAttributesAnswersForItsBaseByIdOnly) {
  enter("colour", 258);
  Zol::Ptr<Zol::ZolType> const derived = new Zol::ZolType("DeskLamp", nullptr, type.get(), {});
  EXPECT_EQ(derived->attr(258), type->attr(258));
  EXPECT_EQ(derived->attr("colour"), nullptr);
  EXPECT_TRUE(derived->isA(type.get()));
  EXPECT_FALSE(type->isA(derived.get()));
}

TEST_F(ZolTypeTest, APlainTypeRefusesToMakeEntitiesAndSaysWhich) {
  try {
    static_cast<void>(type->newEntity("x", nullptr));
    FAIL() << "made an entity";
  } catch (Zol::InternalException const& exception) {
    EXPECT_THAT(exception.what(), testing::HasSubstr("Lamp"));
  }
  EXPECT_THROW(static_cast<void>(type->newEntity(nullptr, {}, 0, nullptr)), Zol::InternalException);
}

}  // namespace
