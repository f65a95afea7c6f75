// Type objects as such: their directory of attributes, their names, and what a plain type refuses.
#include "host/zol/registry/zol_type.h"

#include <gmock/gmock.h>

#include "host/zol/attrlog/in.h"
#include "host/zol/registry/model_type.h"

namespace {

using testing::ElementsAre;
using Zol::FlagClass::kP;
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

TEST_F(ZolTypeTest, AnswersByNameAndById) {
  auto const colour = enter("colour", 258);
  EXPECT_EQ(type->attr("colour"), colour);
  EXPECT_EQ(type->attr(258), colour.get());
  EXPECT_EQ(type->attr("Colour"), nullptr);
  EXPECT_EQ(type->attr(259), nullptr);
}

TEST_F(ZolTypeTest, AnAttributeIsWalkedOnlyOnceItIsEntered) {
  auto const made = type->attrIs("colour", u32, nullptr, nullptr, kS.flags, 258);
  EXPECT_EQ(type->attr("colour"), made);
  EXPECT_THAT(names(*type), ElementsAre());
  type->attributeQEnq(made);
  EXPECT_THAT(names(*type), ElementsAre("colour"));
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

TEST_F(ZolTypeTest, ACopyOfAnAttributeSaysTheSameOfAnotherType) {
  auto const colour = enter("colour", 258);
  colour->keyTypeIs(u32);
  colour->keyFieldNameIs("id");
  colour->introspectionFlagsIs(0x22);
  colour->constructorArgNameQEnq("name");
  colour->constructorArgTypeQEnq("Zol::Name");
  Zol::Ptr<Zol::ZolType> const derived = new Zol::ZolType("DeskLamp", nullptr, type.get(), {});
  auto const copy = colour->copyFor(derived.get());
  EXPECT_EQ(copy->owner(), derived.get());
  EXPECT_EQ(copy->name(), "colour");
  EXPECT_EQ(copy->attrId(), 258);
  EXPECT_EQ(copy->flags(), kS.flags);
  EXPECT_EQ(copy->introspectionFlags(), 0x22U);
  EXPECT_EQ(copy->type(), u32);
  EXPECT_EQ(copy->keyType(), u32);
  EXPECT_EQ(copy->keyFieldName(), "id");
  EXPECT_EQ(*copy->constructorArgNameQIteratorConst(), "name");
  EXPECT_EQ(*copy->constructorArgTypeQIteratorConst(), "Zol::Name");
}

TEST_F(ZolTypeTest, TheFullNameComesWithTheNodeAndLeadsBack) {
  type->referencesLeak();
  EXPECT_EQ(type->fullName(), "Lamp");
  Zol::ZolType::typeNodeIs(type.get(), "House::Lamp");
  EXPECT_EQ(type->fullName(), "House::Lamp");
  EXPECT_EQ(type->name(), "Lamp");
  EXPECT_EQ(Zol::ZolType::typeNode("House::Lamp"), type.get());
  EXPECT_EQ(Zol::ZolType::typeNode("Lamp"), nullptr);
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

TEST(ModelTypeTest, AnEntityTypeTakesTheAttributesOfItsBase) {
  Zol::ZolType* const entity = Zol::Entity::_fwkType();
  Zol::ZolType* const type = Zol::ModelType::entity("House::Door", 8, entity)
                                 .arg("name", "Zol::Name")
                                 .plain<bool>("open", 258, kP)
                                 .type();
  EXPECT_THAT(names(*type), ElementsAre("name", "parent", "parentAttrId", "fullName",
                                        "zolNboAttrLogSaForMsgChannel", "open"));
  EXPECT_EQ(type->name(), "Door");
  EXPECT_EQ(type->fullName(), "House::Door");
  EXPECT_TRUE(type->isEntity());
  EXPECT_NE(type->attr("name"), entity->attr("name")) << "the copy is the type's own";
  bool listed = false;
  for (auto it = entity->derivedTypeQIteratorConst(); it; ++it) {
    listed = listed || it.ptr().get() == type;
  }
  EXPECT_TRUE(listed);
}

TEST(BuiltinTypeTest, EachIsOneTypeUnderItsName) {
  EXPECT_EQ(Zol::Builtin<bool>::_fwkType()->fullName(), "bool");
  EXPECT_EQ(Zol::Builtin<unsigned char>::_fwkType()->fullName(), "U8");
  EXPECT_EQ(Zol::Builtin<unsigned short>::_fwkType()->fullName(), "U16");
  EXPECT_EQ(Zol::Builtin<unsigned int>::_fwkType()->fullName(), "U32");
  EXPECT_EQ(Zol::Builtin<Zol::String8>::_fwkType()->fullName(), "Zol::String8");
  EXPECT_EQ(Zol::Name::_fwkType()->fullName(), "Zol::Name");
  EXPECT_EQ(Zol::typeOf<unsigned char>(), Zol::Builtin<unsigned char>::_fwkType());
  EXPECT_TRUE(Zol::Builtin<bool>::_fwkType()->isValue());
  EXPECT_FALSE(Zol::Builtin<bool>::_fwkType()->isEntity());
}

}  // namespace
