// The tables of docs/values.md hold: each example reads as the page says, and each failure has the
// text that the page gives.
#include <gtest/gtest.h>
#include <hwrailseq.h>

#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace Hardware::Ucd9012;
using Zol::String8;

using Row = std::vector<std::string>;

// The cells of a line, without their backticks.
Row cellsOf(std::string const& line) {
  Row cells;
  std::size_t start = 1;
  for (std::size_t bar; (bar = line.find('|', start)) != std::string::npos; start = bar + 1) {
    std::string cell = line.substr(start + 1, bar - start - 2);
    if (cell.size() > 1 && cell.front() == '`') cell = cell.substr(1, cell.size() - 2);
    cells.push_back(cell);
  }
  return cells;
}

std::vector<Row> tableUnder(std::string const& heading) {
  std::ifstream page(HWRAILSEQ_VALUES_PAGE);
  std::vector<Row> rows;
  bool within = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) within = line == "## " + heading;
    if (within && line.starts_with("| ")) rows.push_back(cellsOf(line));
  }
  if (!rows.empty()) rows.erase(rows.begin());
  return rows;
}

// Reads a text and writes what came out.
using Passage = std::function<String8(String8 const&)>;

template <class T>
String8 passed(String8 const& text) {
  return valueToStrep(Zol::strepToValue<T>(text));
}

template <class X>
String8 referencePassed(String8 const& text) {
  return Zol::valueToStrepOfRawPtr(Zol::strepToValue<Zol::Ptr<X>>(text).get(), typeid(X));
}

Passage passageOf(std::string const& type) {
  static std::map<std::string, Passage> const passages = {
      {"text",
       [](String8 const& text) { return Zol::valueToStrep(Zol::strepToValue<String8>(text)); }},
      {"bool",
       [](String8 const& text) { return Zol::valueToStrep(Zol::strepToValue<bool>(text)); }},
      {"number",
       [](String8 const& text) {
         return Zol::valueToStrep(
             static_cast<unsigned long long>(Zol::strepToValue<long long>(text)));
       }},
      {"Config", referencePassed<Config>},
      {"ControllerConfig", referencePassed<ControllerConfig>},
#define ZOL_ENUM_TYPE(X) {#X, passed<X>},
#define ZOL_RECORD_TYPE(X) {#X, passed<X>},
#include "schema/types.def"
  };
  auto const found = passages.find(type);
  return found == passages.end() ? Passage() : found->second;
}

class ValuesPage : public testing::Test {
 protected:
  ValuesPage() {
    auto const config = configFactory("board");
    config->realUcd9012ControllerIs("main", "", nullptr, nullptr, nullptr);
    Zol::Dir::root().entryIs(config);
  }
  ~ValuesPage() override { Zol::Dir::root().entryDel("board"); }
};

TEST_F(ValuesPage, ExamplesReadAsItSays) {
  std::vector<Row> const rows = tableUnder("Examples");
  ASSERT_GT(rows.size(), 15u);
  for (Row const& row : rows) {
    SCOPED_TRACE(row.at(0) + " " + row.at(1));
    Passage const passage = passageOf(row.at(0));
    ASSERT_TRUE(passage);
    EXPECT_EQ(passage(row.at(1)), String8(row.at(2)));
    EXPECT_EQ(passage(row.at(2)), String8(row.at(2)));
  }
}

TEST_F(ValuesPage, FailuresHaveTheTextsThatItGives) {
  std::vector<Row> const rows = tableUnder("Failures");
  ASSERT_GT(rows.size(), 30u);
  for (Row const& row : rows) {
    SCOPED_TRACE(row.at(0) + " " + row.at(1));
    Passage const passage = passageOf(row.at(0));
    ASSERT_TRUE(passage);
    try {
      ADD_FAILURE() << "read as " << passage(row.at(1));
    } catch (Zol::RangeException const& failure) {
      EXPECT_EQ(failure.what(), row.at(2));
    }
  }
}

}  // namespace
