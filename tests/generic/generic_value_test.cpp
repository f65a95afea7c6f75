// Generic objects of values, their type objects, and queued delivery.
#include "generic/samples.h"

namespace Hardware::Ucd9012::Test {
namespace {

TEST(ValueObjects, HoldACopyThatOnlyTheirOwnTypeReaches) {
  UcdCause cause(ReloadCauses::cpu, CauseType::gpio, 7, true);
  Generic const generic = Zol::wrapped(cause, false);
  EXPECT_EQ(Zol::unwrapped<UcdCause>(*generic), cause);
  EXPECT_EQ(generic->strRep(), valueToStrep(cause));
  EXPECT_EQ(generic->type(), UcdCause::_fwkType());
  expectFailure<Zol::TypeException>([&] { (void)generic->voidPtrIs(PsocCause::_fwkType()); },
                                    "UcdCause");
  EXPECT_TRUE(generic->isRegisteredNotifiee());
  EXPECT_EQ(generic->zolNotifier(), nullptr);

  auto const constant = UcdCause::GenericIf_::GenericIf_Is(cause, true);
  Generic const copy = constant->clone();
  constant->valIs(UcdCause());
  EXPECT_EQ(Zol::unwrapped<UcdCause>(*constant), UcdCause());
  EXPECT_EQ(Zol::unwrapped<UcdCause>(*copy), cause);
  EXPECT_TRUE(copy->isConst());

  generic->hasNotificationActiveIs(false);
  EXPECT_FALSE(generic->isRegisteredNotifiee());
  generic->hasNotificationActiveIs(true);
  EXPECT_TRUE(generic->isRegisteredNotifiee());
  generic->zolDoZombieReactors(true);
  EXPECT_TRUE(generic->zolMarkedForDeletion());
}

TEST(ValueObjects, OfRecordsGiveTheirAttributesAndTakeNone) {
  PageFaultCause const cause(ReloadCauses::watchdog, 3, 9);
  Generic const generic = Zol::wrapped(cause, true);
  std::string read;
  for (auto it = generic->type()->attributeQIteratorConst(); it; ++it) {
    Generic const value = generic->attributeOp({it->attrId(), 0}, nullptr, nullptr);
    EXPECT_TRUE(value->isConst());
    EXPECT_EQ(generic->attributeId(it->name()), it->attrId());
    read += std::string(value->strRep().view()) + " ";
  }
  EXPECT_EQ(read, "'watchdog' 3 9 ");
  Generic const mutableOne = Zol::wrapped(cause, false);
  Zol::AttributeId const id = mutableOne->attributeId("id");
  try {
    mutableOne->attributeOp({id, 128}, nullptr, number(1));
    ADD_FAILURE();
  } catch (Zol::OpNotSupportedException const& failure) {
    EXPECT_EQ(failure.what(), std::string("id"));
    EXPECT_EQ(failure.op(), 128);
  }
  expectFailure<Zol::BadIndexAttrException>(
      [&] {
        mutableOne->attributeOp({id, 128}, number(0), nullptr);
      },
      "id");
  expectFailure<Zol::ConstException>(
      [&] {
        generic->attributeOp({99, 128}, nullptr, nullptr);
      },
      "attempting to modify a const instance");
  expectFailure<Zol::UnknownAttrException>([&] { (void)generic->attributeId("none"); }, "none");
}

TEST(ValueObjects, OfEnumerationsHaveTheAttributeValueWhichIsThemselves) {
  Generic const generic = Zol::wrapped(CauseType::mon, true);
  EXPECT_EQ(generic->attributeId("value"), 1);
  expectFailure<Zol::UnknownAttrException>([&] { (void)generic->attributeId("mon"); }, "mon");
  Generic const again = generic->attributeOp({1, 128}, number(4), number(5));
  EXPECT_EQ(Zol::unwrapped<CauseType>(*again), CauseType::mon);
  EXPECT_FALSE(again->isConst());
  expectFailure<Zol::UnknownAttrException>(
      [&] {
        generic->attributeOp({2, 0}, nullptr, nullptr);
      },
      "CauseType");
}

TEST(TypeObjects, MakeRecordsFromListsOfNoneOrAllTheirAttributes) {
  ZolType const& type = *UcdCause::_fwkType();
  auto const from = [&](ZolType const& t, std::vector<Generic> const& arguments) {
    return t.genericIf(listOf(arguments).get(), true);
  };
  Generic const empty = from(type, {});
  EXPECT_EQ(Zol::unwrapped<UcdCause>(*empty), UcdCause());
  EXPECT_FALSE(empty->isConst());
  Generic const key = Zol::wrapped(ReloadCauses::cpu, false);
  Generic const gpio = Zol::wrapped(CauseType::gpio, false);
  Generic const yes = Zol::wrapped(true, false);
  EXPECT_EQ(Zol::unwrapped<UcdCause>(*from(type, {key, gpio, number(5), yes})),
            UcdCause(ReloadCauses::cpu, CauseType::gpio, 5, true));
  expectFailure<Zol::TypeException>([&] { from(type, {key}); }, "type");
  expectFailure<Zol::TypeException>([&] { from(type, {key, number(1)}); }, "U32");
  expectFailure<Zol::UnknownArgException>(
      [&] {
        from(type, {key, gpio, number(5), yes, yes});
      },
      "UcdCause");
  ZolType const& rail = *ExternalVoltageRail::_fwkType();
  Generic const one = Zol::wrapped(std::uint8_t{1}, false);
  expectFailure<Zol::TypeException>([&] { from(rail, {one, nullptr}); }, "faultType");
  expectFailure<Zol::TypeException>([&] { (void)rail.genericIf(one.get(), false); },
                                    "Zol::GenericIf::List_");
}

TEST(TypeObjects, MakeValuesFromTextsAndRootsFromNames) {
  EXPECT_EQ(Zol::unwrapped<unsigned int>(
                *Zol::Builtin<unsigned int>::_fwkType()->genericIf("4294967295", false)),
            4294967295u);
  expectFailure<Zol::RangeException>(
      [] { (void)Zol::Builtin<unsigned char>::_fwkType()->genericIf("256", false); },
      "expected a number from 0 to 255 at column 0 but found '256'");
  for (char const* const written : {"0.85", "-inf", "nan", "1e+300"}) {
    EXPECT_EQ(Units::Volts::_fwkType()->genericIf(written, true)->strRep(), written);
  }
  EXPECT_THROW((void)Units::Volts::_fwkType()->genericIf("1V", true), Zol::RangeException);
  Generic const null = _fwkType_CauseType()->genericIf(static_cast<void const*>(nullptr), false);
  EXPECT_EQ(Zol::unwrapped<CauseType>(*null), CauseType::other);

  for (ZolType* const type : {Config::_fwkType(), Status::_fwkType()}) {
    std::string const bare(type->name().view());
    Generic const root = type->genericIf(listOf({name("r")}).get(), true);
    EXPECT_FALSE(root->isConst());
    EXPECT_EQ(root->type(), type);
    EXPECT_EQ(root->attributeOp({root->attributeId("name"), 0}, nullptr, nullptr)->strRep(), "'r'");
    expectFailure<Zol::TypeException>([&] { (void)type->genericIf(listOf({}).get(), false); },
                                      "name");
    expectFailure<Zol::TypeException>(
        [&] { (void)type->genericIf(listOf({nullptr}).get(), false); }, "name");
    expectFailure<Zol::UnknownArgException>(
        [&] {
          (void)type->genericIf(listOf({name("r"), number(1)}).get(), false);
        },
        bare);
    EXPECT_EQ(type->newEntity("n", nullptr)->name(), Zol::Name("n"));
  }
  EXPECT_THROW((void)VoltageRailConfig::_fwkType()->newEntity("n", nullptr),
               Zol::InternalException);
}

TEST(GenericObjects, OfAnEntityTakeNoneOfAnotherClass) {
  Zol::Ptr<Config::GenericIf_> const generic(
      new Config::GenericIf_(configFactory("c").get(), false));
  EXPECT_TRUE(generic->obj());
  generic->notifierIs(statusFactory("s"));
  EXPECT_FALSE(generic->obj());
  EXPECT_FALSE(generic->voidPtrIs(Config::_fwkType()));
}

TEST(TypeObjects, FindAnEntityByTheTextOfAReference) {
  auto const config = configFactory("generic-text");
  auto const main = config->realPsocControllerIs("p", "", nullptr, nullptr, nullptr);
  Zol::Dir::root().entryIs(config);
  Zol::String8 const reference = Zol::valueToStrepOfRawPtr(main.get(), typeid(Zol::Entity));
  for (ZolType* type = PsocControllerConfig::_fwkType(); type != Zol::Entity::_fwkType();
       type = type->baseType()) {
    Generic const generic = type->genericIf(reference, true);
    EXPECT_EQ(generic->type(), type);
    EXPECT_EQ(generic->voidPtrIs(type), main.get());
  }
  EXPECT_THROW((void)Status::_fwkType()->genericIf(reference, false), Zol::RangeException);
  EXPECT_THROW((void)Fru::Gpo::_fwkType()->genericIf(reference, false), Zol::RangeException);
  Zol::Dir::root().entryDel("generic-text");
}

// Notes what it hears.
struct Tool : Ucd9012DiagConfig::GenericIf_ {
  using GenericIf_::GenericIf_;
  void onAttribute(Zol::AttributeId id) override {
    heard += std::to_string(id) + " ";
    if (during) std::exchange(during, nullptr)();
  }
  void onAttribute(Zol::AttributeId id, Zol::Ptr<GenericIf const>& key) override {
    heard += std::to_string(id) + "[" + std::string(key->strRep().view()) + "] ";
    if (during) std::exchange(during, nullptr)();
  }
  std::string taken() { return std::exchange(heard, {}); }
  std::string heard;
  std::function<void()> during;
};

struct QueuedDelivery : ::testing::Test {
  Zol::Ptr<Ucd9012DiagConfig> entity{new Ucd9012DiagConfig("d")};
  Zol::Ptr<Tool> tool{new Tool(entity.get(), false)};
  Zol::Ptr<Zol::Activity> activity{new Zol::Activity};
};

TEST_F(QueuedDelivery, TellsOfOneChangeByItsKeyAndOfSeveralAsAWhole) {
  entity->parameterIs(1, "a");
  EXPECT_EQ(tool->taken(), "259[1] ");
  tool->activityIs(activity);
  entity->parameterIs(1, "b");
  EXPECT_EQ(tool->taken(), "");
  EXPECT_TRUE(activity->run());
  EXPECT_EQ(tool->taken(), "259[1] ");
  entity->parameterIs(1, "c");
  entity->parameterIs(1, "d");
  activity->run();
  EXPECT_EQ(tool->taken(), "259 ");
  entity->epochIs(5);
  activity->run();
  EXPECT_EQ(tool->taken(), "260 ");
  EXPECT_FALSE(activity->run());
  // Changes of several attributes wait as a change of all.
  entity->epochIs(6);
  entity->parameterIs(2, "e");
  activity->run();
  EXPECT_EQ(tool->taken(), "258 259[2] 260 ");
  for (unsigned int i = 0; i < 300; ++i) entity->parameterIs(i, "many");
  activity->run();
  EXPECT_EQ(tool->taken(), "259 ");
  EXPECT_FALSE(activity->run());
}

TEST_F(QueuedDelivery, QueuesWhatChangesMeanwhileAndHoldsItsListener) {
  tool->activityIs(activity);
  for (unsigned int const changes : {1U, 2U}) {
    tool->during = [this] { entity->epochIs(entity->epoch() + 1); };
    for (unsigned int i = 0; i < changes; ++i)
      entity->parameterIs(1, std::to_string(changes * 8 + i));
    activity->run();
    EXPECT_EQ(tool->taken(), changes == 1 ? "259[1] " : "259 ");
    EXPECT_FALSE(activity->empty());
    activity->run();
    EXPECT_EQ(tool->taken(), "260 ");
  }

  entity->epochIs(7);
  std::uint32_t const held = tool->references();
  Tool* const raw = tool.get();
  EXPECT_EQ(held, 2u);
  tool->activityIs(nullptr);
  EXPECT_EQ(raw->taken(), "");
  entity->epochIs(3);
  EXPECT_EQ(raw->taken(), "260 ");
  activity->run();
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
