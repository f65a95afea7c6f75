// Does every operation on every attribute of every class, as the registry has them, and compares
// with what the attribute's kind allows.
#include "generic/samples.h"

#include <set>

namespace Hardware::Ucd9012::Test {
namespace {

using Zol::AttrFlags;

constexpr std::int32_t kOps[] = {-1, 0, 1, 2, 3, 4, 127, 128, 129, 130};

template <class X>
Zol::Ptr<X> made() {
  if constexpr (std::is_base_of_v<ControllerConfig, X>) {
    return new X("x", "customer", nullptr, nullptr, nullptr);
  } else if constexpr (std::same_as<X, VoltageRailConfig>) {
    return new X(3, nullptr, nullptr);
  } else {
    return new X("x");
  }
}

// Hears of changes as a tool would.
template <class X>
class Watcher : public X::GenericIf_ {
 public:
  using X::GenericIf_::GenericIf_;
  void onAttribute(Zol::AttributeId id) override { heard.push_back(std::to_string(id)); }
  void onAttribute(Zol::AttributeId id, Zol::Ptr<GenericIf const>& key) override {
    heard.push_back(std::to_string(id) + " " + std::string(key->strRep().view()));
  }
  std::vector<std::string> heard;
};

template <class X>
class EveryAttribute : public ::testing::Test {
 protected:
  using Heard = std::vector<std::string>;

  Zol::Ptr<X> entity = made<X>();
  Zol::Ptr<Watcher<X>> generic{new Watcher<X>(entity.get(), false)};
  Zol::Ptr<Watcher<X>> constant{new Watcher<X>(entity.get(), true)};
  ZolAttr const* attr = nullptr;

  // What has happened to the entity since the last call.
  struct Happened {
    std::uint32_t mutations;
    std::uint32_t reads;
    Heard heard;
    friend bool operator==(Happened const&, Happened const&) = default;
    friend void PrintTo(Happened const& self, std::ostream* out) {
      *out << self.mutations << " mutations, " << self.reads << " reads, heard "
           << ::testing::PrintToString(self.heard);
    }
  };
  Happened happened() {
    Happened const result{entity->mutationCounter() - mutations_, entity->readCounter() - reads_,
                          std::move(generic->heard)};
    mutations_ = entity->mutationCounter();
    reads_ = entity->readCounter();
    generic->heard.clear();
    return result;
  }
  Generic op(std::int32_t id, Generic const& index = nullptr, Generic const& value = nullptr) {
    return generic->attributeOp({attr->attrId(), id}, index, value);
  }
  template <class T>
  T opAs(std::int32_t id, Generic const& index = nullptr) {
    return Zol::unwrapped<T>(*op(id, index));
  }
  std::string attrName() const { return std::string(attr->name().view()); }
  std::string id() const { return std::to_string(attr->attrId()); }
  Heard told(Generic const& key) const {
    return {id() + (key ? " " + std::string(key->strRep().view()) : "")};
  }

  void refusesWhatItsKindDoesNotHave(std::set<std::int32_t> const& ops) {
    Generic const index = attr->keyType() ? sample(*attr->keyType(), 0) : number(1);
    for (std::int32_t const each : kOps) {
      SCOPED_TRACE(each);
      if (each >= 128) {
        expectFailure<Zol::ConstException>(
            [&] {
              constant->attributeOp({attr->attrId(), each}, nullptr, nullptr);
            },
            "attempting to modify a const instance");
      }
      if (!attr->keyType()) {
        expectFailure<Zol::BadIndexAttrException>([&] { op(each, index); }, attrName());
      }
      if (ops.contains(each)) continue;
      try {
        op(each, attr->keyType() ? index : nullptr);
        ADD_FAILURE() << "was not refused";
      } catch (Zol::OpNotSupportedException const& failure) {
        EXPECT_EQ(failure.what(), attrName());
        EXPECT_EQ(failure.op(), each);
      }
    }
    EXPECT_EQ(happened(), Happened());
  }
  // Writes a value twice, then reads it.
  void takes(Generic const& value, Generic const& index) {
    EXPECT_EQ(op(GenericIf::attrOpWrite, index, value), nullptr);
    EXPECT_EQ(happened(), (Happened{1, 0, told(index)}));
    EXPECT_EQ(op(GenericIf::attrOpWrite, index, value), nullptr);
    EXPECT_EQ(happened(), Happened());
    gives(value, index);
  }
  void gives(Generic const& value, Generic const& index) {
    Generic const read = op(GenericIf::attrOpRead, index);
    EXPECT_EQ(read->strRep(), value->strRep());
    EXPECT_EQ(read->type(), attr->type()->isEntity() ? value->type() : attr->type());
    EXPECT_FALSE(read->isConst());
    EXPECT_TRUE(constant->attributeOp({attr->attrId(), 0}, index, nullptr)->isConst());
    EXPECT_EQ(happened(), (Happened{0, 2, {}}));
  }
  void refusesAMissingValue(Generic const& index) {
    expectFailure<Zol::TypeException>([&] { op(128, index); }, attrName());
    Generic const wrong = foreignEntity(*Fru::Gpo::_fwkType(), "wrong");
    expectFailure<Zol::TypeException>([&] { op(128, index, wrong); }, "Gpo");
    EXPECT_EQ(happened(), Happened());
  }

  void parameter() {
    refusesWhatItsKindDoesNotHave({0});
    (void)op(GenericIf::attrOpRead);
    EXPECT_EQ(happened().mutations, 0u);
  }
  void scalar() {
    refusesWhatItsKindDoesNotHave({0, 128});
    refusesAMissingValue(nullptr);
    // The second value differs from the first, and one of them from the default.
    op(128, nullptr, sample(*attr->type(), 1));
    (void)happened();
    takes(sample(*attr->type(), 0), nullptr);
  }
  void reference() {
    refusesWhatItsKindDoesNotHave({0, 128});
    takes(sample(*attr->type(), 0), nullptr);
    EXPECT_EQ(op(128), nullptr);
    EXPECT_EQ(happened(), (Happened{1, 0, told(nullptr)}));
    EXPECT_EQ(objOf(op(0)), nullptr);
    (void)happened();
  }
  static Zol::Ptr<Zol::PtrInterface> objOf(Generic const& generic) {
    return dynamic_cast<Zol::GenericIfPtrInterface&>(*generic).obj();
  }

  // What is refused of an argument list.
  void refusesWrongLists(Generic const& good) {
    expectFailure<Zol::TypeException>([&] { op(128); }, "Zol::GenericIf::List_");
    expectFailure<Zol::TypeException>([&] { op(128, nullptr, number(1)); },
                                      "Zol::GenericIf::List_");
    std::string const first(attr->constructorArgNameQIteratorConst()->view());
    expectFailure<Zol::TypeException>([&] { op(128, nullptr, listOf({})); }, first);
    expectFailure<Zol::TypeException>([&] { op(128, nullptr, listOf({nullptr})); }, first);
    auto longer = good->clone();
    static_cast<GenericIf::List_&>(*longer).valueEnq(number(1));
    expectFailure<Zol::UnknownArgException>([&] { op(128, nullptr, longer); }, attrName());
    EXPECT_EQ(happened(), Happened());
  }
  void singleton() {
    refusesWhatItsKindDoesNotHave({0, 128, 129});
    refusesWrongLists(argumentsOf(*attr, 0));
    Generic const child = op(128, nullptr, argumentsOf(*attr, 0));
    EXPECT_EQ(child->type(), attr->type());
    EXPECT_EQ(happened().heard, told(nullptr));
    EXPECT_EQ(objOf(op(0)), objOf(child));
    EXPECT_EQ(objOf(op(128, nullptr, argumentsOf(*attr, 0))), objOf(child));
    EXPECT_NE(objOf(op(128, nullptr, argumentsOf(*attr, 1))), objOf(child));
    (void)happened();
    Generic const current = op(0);
    EXPECT_EQ(objOf(op(129)), objOf(current));
    EXPECT_EQ(happened(), (Happened{1, 1, told(nullptr)}));
    EXPECT_EQ(objOf(op(129)), nullptr);
    EXPECT_EQ(happened(), Happened());
  }

  void keyedQueriesAre(std::uint32_t count, Generic const& key, bool present) {
    EXPECT_EQ(opAs<unsigned int>(1), count);
    EXPECT_EQ(opAs<unsigned int>(1, number(9)), count);
    EXPECT_EQ(opAs<bool>(3, key), present);
    unsigned int const version = opAs<unsigned int>(2);
    EXPECT_EQ(version, opAs<unsigned int>(2, number(9)));
    EXPECT_EQ(happened(), Happened());
  }
  void refusesAMissingIndex(char const* keyName, std::set<std::int32_t> const& ops) {
    for (std::int32_t const each : ops) {
      expectFailure<Zol::TypeException>([&] { op(each); }, keyName);
      Generic const wrong = Zol::wrapped(CauseType::gpio, false);
      expectFailure<Zol::TypeException>([&] { op(each, wrong, number(1)); }, "CauseType");
    }
    EXPECT_EQ(happened(), Happened());
  }
  void takesOut(Generic const& key, Generic const& given) {
    keyedQueriesAre(1, key, true);
    Generic const taken = op(129, key);
    if (attr->type()->isEntity()) {
      EXPECT_EQ(objOf(taken), objOf(given));
    } else {
      EXPECT_EQ(taken->strRep(), given->strRep());
    }
    EXPECT_EQ(happened(), (Happened{1, 0, told(key)}));
    (void)op(129, key);
    EXPECT_EQ(happened(), Happened());
    keyedQueriesAre(0, key, false);
  }
  void values() {
    Generic const key = sample(*attr->keyType(), 0);
    refusesWhatItsKindDoesNotHave({0, 1, 2, 3, 128, 129});
    refusesAMissingIndex("zol_index", {0, 3, 128, 129});
    refusesAMissingValue(key);
    EXPECT_EQ(op(0, key)->strRep(),
              attr->type()->genericIf(static_cast<void const*>(nullptr), false)->strRep());
    (void)happened();
    takes(sample(*attr->type(), 0), key);
    takesOut(key, sample(*attr->type(), 0));
  }
  void children() {
    Generic const key = sample(*attr->keyType(), 0);
    char const* const keyName = attr->keyFieldName() == "id" ? "id" : "name";
    refusesWhatItsKindDoesNotHave({0, 1, 2, 3, 128, 129});
    refusesAMissingIndex(keyName, {0, 3, 129});
    Generic const arguments = argumentsOf(*attr, 0, key, attr->keyFieldName());
    refusesWrongLists(arguments);
    expectFailure<Zol::BadIndexAttrException>([&] { op(128, key, arguments); }, attrName());
    EXPECT_EQ(objOf(op(0, key)), nullptr);
    (void)happened();
    Generic const child = op(128, nullptr, arguments);
    EXPECT_EQ(happened(), (Happened{1, 0, told(key)}));
    EXPECT_EQ(child->type(), attr->type());
    gives(child, key);
    takesOut(key, child);
  }
  void references() {
    refusesWhatItsKindDoesNotHave({0, 1, 2, 3, 128, 129});
    refusesAMissingIndex("name", {0, 3, 129});
    Generic const referred = foreignEntity(*attr->type(), "1");
    Generic const key = name("1");
    expectFailure<Zol::BadIndexAttrException>([&] { op(128, key, referred); }, attrName());
    std::string const holder(entity->fwkType()->fullName().view());
    expectFailure<Zol::RangeException>(
        [&] { op(128); },
        "null _controller parameter to mutator for " + holder + "::controller not allowed\"");
    op(128, nullptr, referred);
    EXPECT_EQ(happened(), (Happened{1, 0, told(key)}));
    gives(referred, key);
    takesOut(key, referred);
  }

 private:
  std::uint32_t mutations_ = 0;
  std::uint32_t reads_ = 0;
};

using Classes =
    ::testing::Types<VoltageRailConfig, Ucd9012DiagConfig, Ucd9012DiagModeConfig, Ucd9012DiagStatus,
                     ControllerConfig, Ucd9012ControllerConfig, Ucd9032ControllerConfig,
                     PsocControllerConfig, ControllerStatus, Ucd9012ControllerStatus,
                     Ucd9032ControllerStatus, PsocControllerStatus, Config, Status>;
TYPED_TEST_SUITE(EveryAttribute, Classes);

TYPED_TEST(EveryAttribute, AllowsTheOperationsOfItsKind) {
  std::size_t tried = 0;
  for (auto it = TypeParam::_fwkType()->attributeQIteratorConst(); it; ++it) {
    AttrFlags const flags = it->flags();
    if (!flags.has(AttrFlags::kByName) || Zol::Entity::_fwkType()->attr(it->name())) continue;
    this->attr = &*it;
    SCOPED_TRACE(this->attrName());
    EXPECT_EQ(this->generic->attributeId(it->name()), it->attrId());
    bool const isMade = flags.has(AttrFlags::kInstantiating);
    if (flags.has(AttrFlags::kConstructorParameter)) {
      this->parameter();
    } else if (flags.has(AttrFlags::kKeyed)) {
      if (isMade) {
        this->children();
      } else if (flags.has(AttrFlags::kHoldsEntity)) {
        this->references();
      } else {
        this->values();
      }
    } else if (isMade) {
      this->singleton();
    } else if (flags.has(AttrFlags::kHoldsEntity)) {
      this->reference();
    } else {
      this->scalar();
    }
    ++tried;
    if (this->HasFailure()) break;
  }
  EXPECT_GE(tried, 2u);
}

TYPED_TEST(EveryAttribute, OfTheFrameCanBeReadAndNeverWritten) {
  this->entity->parentAttrIdIs(7);
  for (auto const& [attribute, expected] : std::map<std::string, std::string>{
           {"name", std::string(Zol::valueToStrep(this->entity->name()).view())},
           {"parentAttrId", "7"},
           {"zolHasAttrLogInterface", this->entity->zolHasAttrLogInterface() ? "True" : "False"},
           {"fullName", std::string(Zol::valueToStrep(this->entity->fullName()).view())}}) {
    Zol::AttributeId const id = this->generic->attributeId(attribute);
    EXPECT_EQ(this->generic->attributeOp({id, 0}, nullptr, nullptr)->strRep(), expected);
    expectFailure<Zol::OpNotSupportedException>(
        [&] {
          this->generic->attributeOp({id, 128}, nullptr, nullptr);
        },
        attribute);
  }
  EXPECT_EQ(this->entity->readCounter(), 0u);
  if (TypeParam::_fwkType()->attr("fwkKey")) {
    std::string const key(this->generic->attributeOp({0, 0}, nullptr, nullptr)->strRep().view());
    EXPECT_EQ(key, (std::same_as<TypeParam, VoltageRailConfig>) ? "3" : "'x'");
  }
  expectFailure<Zol::UnknownAttrException>([&] { (void)this->generic->attributeId("noSuchThing"); },
                                           "noSuchThing");
  expectFailure<Zol::ConstException>(
      [&] {
        this->constant->attributeOp({99999, 128}, nullptr, nullptr);
      },
      "attempting to modify a const instance");
}

// A class and its bases, and nothing else.
TYPED_TEST(EveryAttribute, IsReachedThroughItsClassAndTheBasesOfIt) {
  Zol::PtrInterface* const object = this->entity.get();
  for (ZolType* type = TypeParam::_fwkType(); type; type = type->baseType()) {
    EXPECT_EQ(this->generic->voidPtrIs(type), static_cast<void*>(object));
  }
  std::string const bare(TypeParam::_fwkType()->name().view());
  expectFailure<Zol::TypeException>([&] { (void)this->generic->voidPtrIs(Fru::Gpo::_fwkType()); },
                                    bare);
  EXPECT_EQ(this->generic->type(), TypeParam::_fwkType());
  EXPECT_EQ(this->generic->obj(), this->entity);
  EXPECT_EQ(this->generic->strRep(),
            Zol::valueToStrepOfRawPtr(this->entity.get(), typeid(Zol::Entity)));

  Generic const copy = this->constant->clone();
  EXPECT_TRUE(copy->isConst());
  EXPECT_EQ(this->objOf(copy), this->entity);

  Generic const none = TypeParam::_fwkType()->genericIf_(nullptr, false);
  EXPECT_EQ(this->objOf(none), nullptr);
  EXPECT_EQ(none->voidPtrIs(TypeParam::_fwkType()), nullptr);
  std::string const full(TypeParam::_fwkType()->fullName().view());
  auto const first = TypeParam::_fwkType()->attributeQIteratorConst();
  expectFailure<Zol::RangeException>(
      [&] {
        none->attributeOp({first->attrId(), 0}, nullptr, nullptr);
      },
      full + ": there is no object");
  Zol::Ptr<Fru::Gpo> const other(new Fru::Gpo("g"));
  EXPECT_EQ(this->objOf(TypeParam::_fwkType()->genericIf_(other.get(), false)), nullptr);
}

TYPED_TEST(EveryAttribute, IsNoLongerHeardByAZombieOrASwitchedOffObject) {
  auto const listeners = [&] { return this->entity->zolNotifiees().count(); };
  std::uint32_t const both = listeners();
  this->generic->zolDoZombieReactors(true);
  EXPECT_EQ(listeners(), both - 1);
  EXPECT_TRUE(this->generic->zolMarkedForDeletion());
  EXPECT_FALSE(this->generic->hasNotificationActive());
  this->generic->zolDoZombieReactors(false);
  EXPECT_EQ(listeners(), both);
  EXPECT_TRUE(this->generic->hasNotificationActive());
  this->generic->hasNotificationActiveIs(false);
  EXPECT_EQ(listeners(), both - 1);
  this->generic->hasNotificationActiveIs(true);
  EXPECT_EQ(listeners(), both);
  // The object holds its entity; its listening half does not.
  EXPECT_EQ(this->entity->references(), 3u);
  this->generic = nullptr;
  EXPECT_EQ(listeners(), both - 1);
  EXPECT_EQ(this->entity->references(), 2u);
}

}  // namespace
}  // namespace Hardware::Ucd9012::Test
