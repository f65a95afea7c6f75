// What a program hears that gives the reactor a target of its own before it loads the library.
#include <gmock/gmock.h>

#include <algorithm>

#include "load/loaded_library.h"
#include "load/reports.h"
#include "registry/expected_schema.h"

namespace {

class RecordedLoad : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    target() = new WritingTarget;
    Zol::IntrospectionReactor::global()->targetIs(target());
    library() = loadLibrary();
  }
  static Zol::Ptr<WritingTarget>& target() {
    static Zol::Ptr<WritingTarget> made;
    return made;
  }
  static void*& library() {
    static void* loaded = nullptr;
    return loaded;
  }
  static auto count(std::string const& start) {
    return std::ranges::count_if(target()->reports(), [&start](std::string const& report) {
      return report.starts_with(start);
    });
  }
};

TEST_F(RecordedLoad, TellsTheWholeSchemaInOrder) {
  Reports const expected = expectedReports();
  Reports const& found = target()->reports();
  auto const [e, f] = std::ranges::mismatch(expected, found);
  EXPECT_TRUE(e == expected.end() && f == found.end())
      << "report " << (f - found.begin()) << "\nexpected " << (e == expected.end() ? "nothing" : *e)
      << "\nheard    " << (f == found.end() ? "nothing" : *f);
}

TEST_F(RecordedLoad, ClosesEveryTypeAndBothNamespaces) {
  EXPECT_EQ(count("type "), 24);
  EXPECT_EQ(count("scope ends"), 26);
  EXPECT_EQ(count("attribute ends"), count("attribute ") - count("attribute ends"));
}

TEST_F(RecordedLoad, IsNotRepeatedByAnAccessor) {
  std::size_t const before = target()->reports().size();
  Zol::IntrospectionReactor* const reactor = Zol::IntrospectionReactor::global().get();
  EXPECT_EQ(typeOfClass(library(), "Config"), typeOfClass(library(), "Config"));
  EXPECT_EQ(target()->reports().size(), before);
  EXPECT_EQ(reactor->references(), 1U) << "somebody kept the reactor";
}

TEST_F(RecordedLoad, GivesEachTypeItsFullName) {
  for (auto const& type : ExpectedSchema::types()) {
    EXPECT_NE(Zol::ZolType::typeNode(fullName(type)), nullptr) << fullName(type);
  }
}

TEST_F(RecordedLoad, KeepsTheAttributesThatAnEntityTypeDefinesItself) {
  for (auto const& type : ExpectedSchema::types()) {
    if (type.kind != ExpectedSchema::Kind::entity) continue;
    SCOPED_TRACE(type.name);
    Zol::ZolType const* const object = typeOfClass(library(), type.name);
    auto const cached = [&](Zol::AttributeId id) { return cachedAttr(library(), type.name, id); };
    EXPECT_EQ(cached(153), object->attr("zolNboAttrLogSaForMsgChannel").get());
    EXPECT_EQ(cached(154), object->attr("zolHasAttrLogInterface").get());
    for (auto const& attr : type.attrs) {
      ASSERT_NE(cached(attr.id), nullptr) << attr.name;
      EXPECT_EQ(cached(attr.id)->name(), Zol::Name(attr.name));
    }
    EXPECT_EQ(cached(0) != nullptr, !type.ownKey.empty());
    EXPECT_EQ(cached(130), nullptr) << "inherited ones are not kept";
  }
}

TEST_F(RecordedLoad, AChipVariantKeepsNoAttributeOfItsBase) {
  EXPECT_NE(cachedAttr(library(), "ControllerConfig", 402), nullptr);
  EXPECT_EQ(cachedAttr(library(), "PsocControllerConfig", 402), nullptr);
}

}  // namespace
