// What a program hears that gives the reactor a target of its own before it loads the library.
#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "host/zol/registry/introspection_reactor.h"
#include "load/loaded_library.h"
#include "registry/expected_schema.h"

namespace {

using Reports = std::vector<std::string>;
using ExpectedSchema::Kind;

// Without the names of scopes: while the library registers its types they have no full names yet.
std::string bare(std::string line) {
  auto const inName = [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; };
  for (std::size_t end; (end = line.find("::")) != std::string::npos;) {
    std::size_t start = end;
    while (start > 0 && inName(static_cast<unsigned char>(line[start - 1]))) --start;
    line.erase(start, end + 2 - start);
  }
  return line;
}

std::string nameOf(Zol::ZolType const* type) {
  return type ? std::string(type->name().view()) : std::string();
}

void expectAttr(Reports& reports, ExpectedSchema::Attr const& attr) {
  reports.insert(reports.end(),
                 {"attribute " + bare(ExpectedSchema::lineOf(attr)), "attribute ends"});
}

void expectOwn(Reports& reports, ExpectedSchema::Attr const& attr) {
  if (ExpectedSchema::isBuilt(attr)) return expectAttr(reports, attr);
  reports.push_back("define " + bare(ExpectedSchema::lineOf(attr)));
}

void expectType(Reports& reports, ExpectedSchema::Type const& type) {
  reports.push_back("type " + type.name + " base " + bare(type.base));
  if (type.kind == Kind::entity) {
    for (auto const& attr : ExpectedSchema::allAttrs(ExpectedSchema::type(type.base))) {
      expectAttr(reports, attr);
    }
    expectOwn(reports, {"zolHasAttrLogInterface", 154, "L", "bool"});
  }
  int number = 0;
  for (std::string const& name : type.enumerators) {
    expectOwn(reports, {name, number++, "E", type.name});
  }
  for (auto const& attr : type.attrs) expectOwn(reports, attr);
  if (!type.ownKey.empty()) expectOwn(reports, {"fwkKey", 0, "K", type.ownKey});
  reports.emplace_back("scope ends");
}

// Writes down each report as one line of text.
class WritingTarget final : public Zol::IntrospectionTarget {
 public:
  Reports reports;

  void handleNameSpace(Zol::String8 const& name) override {
    reports.push_back("namespace " + std::string(name.view()));
  }
  void handleType(Zol::ZolType* type, Zol::ZolType* base) override {
    reports.push_back("type " + nameOf(type) + " base " + nameOf(base));
  }
  void handleAttr(Zol::ZolAttr const& attr) override {
    reports.push_back("attribute " + bare(ExpectedSchema::lineOf(attr)));
  }
  void handleAttrContextExit() override { reports.emplace_back("attribute ends"); }
  void handleScopeExit() override { reports.emplace_back("scope ends"); }
  void defNoninstantiatingAttr(Zol::ZolAttr const& attr) override {
    reports.push_back("define " + bare(ExpectedSchema::lineOf(attr)));
  }
};

Reports expectedReports() {
  Reports reports = {"namespace Hardware", "namespace Ucd9012"};
  for (auto const& type : ExpectedSchema::types()) expectType(reports, type);
  reports.insert(reports.end(), 2, "scope ends");
  return reports;
}

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
};

TEST_F(RecordedLoad, TellsTheWholeSchemaInOrder) {
  Reports const expected = expectedReports();
  Reports const& found = target()->reports;
  auto const [e, f] = std::ranges::mismatch(expected, found);
  EXPECT_TRUE(e == expected.end() && f == found.end())
      << "report " << (f - found.begin()) << "\nexpected " << (e == expected.end() ? "nothing" : *e)
      << "\nheard    " << (f == found.end() ? "nothing" : *f);
}

TEST_F(RecordedLoad, IsNotRepeatedByAnAccessor) {
  std::size_t const before = target()->reports.size();
  Zol::IntrospectionReactor* const reactor = Zol::IntrospectionReactor::global().get();
  EXPECT_NE(typeOfClass(library(), "Config"), nullptr);
  EXPECT_EQ(target()->reports.size(), before);
  EXPECT_EQ(reactor->references(), 1U) << "somebody kept the reactor";
}

TEST_F(RecordedLoad, KeepsTheAttributesThatAnEntityTypeDefinesItselfAndNoneOfItsBase) {
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
    for (auto const& attr : allAttrs(ExpectedSchema::type(type.base))) {
      EXPECT_EQ(cached(attr.id) != nullptr, attr.id == 153 || attr.id == 154) << attr.name;
    }
  }
}

}  // namespace
