// Reading of JSON with the places of its values, and the refusal of what is none.
#include <gmock/gmock.h>

#include "railseq/json/json_tree.h"
#include "tool/temp_file.h"

namespace RailSeq {
namespace {

using testing::StartsWith;

std::string refusalOf(std::string_view text, JsonLimits const& limits = {}) {
  try {
    static_cast<void>(parseJson("f", text, limits));
  } catch (InputError const& error) {
    return error.what();
  }
  return "accepted";
}

TEST(JsonTree, EveryValueAndKeyKnowsItsPlace) {
  JsonNode const root = parseJson("f", "{\n  \"a\": [1, \"x\"],\n\t\"\xc3\xa9\": {\"b\": null}}");
  EXPECT_EQ(root.at, (Position{1, 1}));
  ASSERT_EQ(root.members.size(), 2U);
  EXPECT_EQ(root.members[0].keyAt, (Position{2, 3}));
  EXPECT_EQ(root.members[0].value.items.at(1).at, (Position{2, 12}));
  EXPECT_EQ(root.members[1].value.at, (Position{3, 7})) << "one column for a tab and for a letter";
  EXPECT_EQ(root.members[1].value.members.at(0).value.at, (Position{3, 13}));
}

TEST(JsonTree, EscapesAreDecodedAndDoNotShiftPlaces) {
  JsonNode const root = parseJson("f", R"(["\"],[\u00e9\\", 5])");
  EXPECT_EQ(root.items.at(0).text, "\"],[\xc3\xa9\\");
  EXPECT_EQ(root.items.at(1).at, (Position{1, 19}));
}

TEST(JsonTree, NumbersKeepTheirDigits) {
  JsonNode const root = parseJson("f", "[4294967296, -7, 1.50]");
  EXPECT_EQ(root.items.at(0).text, "4294967296");
  EXPECT_EQ(root.items.at(1).text, "-7");
  EXPECT_EQ(root.items.at(2).text, "1.50");
}

TEST(JsonRefusal, NamesThePlaceAndWhatWasExpected) {
  std::pair<char const*, char const*> const refusals[] = {

      {"", "f:1:1: found the end of the file, expected a value"},
      {"{\"a\": 1", "f:1:8: found the end of the file, expected ',' or '}'"},
      {"[1,\n2\n", "f:3:1: found the end of the file, expected ',' or ']'"},
      {"{\"a\":1,}", "f:1:8: found \"}\", expected a key in double quotes"},
      {"{\"a\" 1}", "f:1:6: found \"1\", expected ':'"},
      {"[1 2]", "f:1:4: found \"2\", expected ',' or ']'"},
      {"[1,,2]", "f:1:4: found \",\", expected a value"},
      {"{} []", "f:1:4: found \"[\", expected the end of the file"},
      {"{\"a\":tru}", "f:1:6: found \"tru\" (invalid literal), expected a value"},
      {"[1e999]", "f:1:2: found \"1e999\" (number out of range), expected a value"},
      {"{\"a\":1,\n \"a\":2}",
       "f:2:2: found the key \"a\" again after line 1, column 2, expected each key once in an "
       "object"}};
  for (auto const& [text, refusal] : refusals) EXPECT_EQ(refusalOf(text), refusal) << text;
}

TEST(JsonTree, BrokenTextsAreRefusedWhereTheyBegin) {
  EXPECT_THAT(refusalOf("[1, \"abc]"), StartsWith("f:1:5: found \"\\\"abc]\" (invalid string"));
  EXPECT_THAT(refusalOf("[\"\xff\"]"), StartsWith("f:1:2: "));
  EXPECT_THAT(refusalOf("[\"a\nb\"]"), StartsWith("f:1:2: "));
}

TEST(JsonTree, LimitsHold) {
  std::string const deepest = std::string(64, '[') + std::string(64, ']');
  EXPECT_EQ(refusalOf(deepest), "accepted");
  EXPECT_EQ(refusalOf("[" + deepest + "]"),
            "f:1:65: found one more level of nesting, expected at most 64 levels");
  JsonLimits const few{.values = 3};
  EXPECT_EQ(refusalOf("[1, 2]", few), "accepted");
  EXPECT_EQ(refusalOf("[1, 2, 3]", few),
            "f:1:8: found one more value, expected at most 3 values in one file");
}

TEST(ReadFile, RefusesWhatIsMissingOrTooLong) {
  TempFile const file("12345");
  EXPECT_THROW(static_cast<void>(readFile(file.path() + ".missing")), InputError);
  EXPECT_THROW(static_cast<void>(readFile(testing::TempDir())), InputError);
  EXPECT_EQ(readFile(file.path(), 5), "12345");
  EXPECT_THROW(static_cast<void>(readFile(file.path(), 4)), InputError);
}

}  // namespace
}  // namespace RailSeq
