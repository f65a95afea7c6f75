// Boards in the form in which attributes stand by name.
#include <gmock/gmock.h>

#include "tool/bad_board.h"

namespace RailSeq {
namespace {

using testing::ElementsAre;

// A board of one controller with these members; they begin in line 3, column 1.
std::string boardWith(std::string const& members) {
  return "{\"config\": {\"realUcd9012Controller\": {\n\"main\": {\n" + members + "}}}}";
}

TEST(AttributeForm, TakesControllersOfAllThreeChips) {
  BoardDescription const board = parseBoard("b.json", R"({"config": {"name": "top",
    "realUcd9012Controller": {"a": {"customerName": "A"}, "b": {}},
    "realUcd9032Controller": {"a": {}}, "realPsocController": {"c": {}}}})");
  EXPECT_EQ(board.configName, "top");
  ASSERT_EQ(board.controllers.size(), 4U);
  EXPECT_EQ(board.controllers[0].customerName, "A");
  EXPECT_EQ(board.controllers[1].chip, Chip::ucd9012);
  EXPECT_EQ(board.controllers[2].chip, Chip::ucd9032);
  EXPECT_EQ(board.controllers[2].name, "a") << "each chip has names of its own";
  EXPECT_EQ(board.controllers[3].chip, Chip::psoc);
  EXPECT_TRUE(board.notes.empty());
}

TEST(AttributeForm, TakesEachKindOfValue) {
  BoardDescription const board =
      parseBoard("b.json", boardWith(R"("pollingEnabled": false, "reloadCauseSortKey": 4294967295,
                             "operationalMode": "diagMode", "location": "slot \"3\"")"));
  std::vector<AttributeSetting> const& settings = board.controllers.at(0).settings;
  ASSERT_EQ(settings.size(), 4U);
  EXPECT_EQ(settings[0].value, AttributeValue(false));
  EXPECT_EQ(settings[1].value, AttributeValue(std::uint32_t{0xffffffffU}));
  EXPECT_EQ(settings[2].value, AttributeValue(std::string("diagMode")));
  EXPECT_EQ(settings[3].value, AttributeValue(std::string("slot \"3\"")));
}

TEST(AttributeForm, SaysWhatIsNotPutIntoTheTree) {
  BoardDescription const board = parseBoard(
      "b.json",
      "{\"status\": {},\n \"config\": {\"dexoDesc\": {\"d\": {}},\n\"realPsocController\": {\"p\": "
      "{\"voltageRail\": {\"0\": {}, \"255\": {}}}}}}");
  EXPECT_EQ(board.controllers.at(0).rails.size(), 2U);
  EXPECT_THAT(
      board.notes,
      ElementsAre(
          "b.json:1:2: note: \"status\" is read but not put into the tree",
          "b.json:2:13: note: \"dexoDesc\" with 1 descriptor is read but not put into the tree",
          "b.json:3:30: note: 2 voltage rails of controller \"p\" are read but not put into the "
          "tree"));
}

TEST(AttributeFormRefusal, OfValuesSaysWhatAnAttributeTakes) {
  expectRefused(
      {{boardWith(R"("pollingEnabled": 1)"),
        "3:19: found the number 1, expected true or false for pollingEnabled"},
       {boardWith(R"("location": true)"), "3:13: found true, expected a text for location"},
       {boardWith(R"("reloadCauseSortKey": 4294967296)"),
        "3:23: found the number 4294967296, expected a whole number from 0 to 4294967295 for "
        "reloadCauseSortKey"},
       {boardWith(R"("reloadCauseSortKey": -1)"),
        "3:23: found the number -1, expected a whole number from 0 to 4294967295 for "
        "reloadCauseSortKey"},
       {boardWith(R"("operationalMode": "diag")"),
        "3:20: found the text \"diag\", expected modeNormal or diagMode for operationalMode"}});
}

TEST(AttributeFormRefusal, OfNamesSaysWhichAreKnown) {
  expectRefused({{boardWith(R"("polingEnabled": true)"),
                  "3:1: found the unknown attribute \"polingEnabled\", expected pollingEnabled"},
                 {boardWith(R"("reloadCause": {})"),
                  "3:1: found the attribute \"reloadCause\", expected an attribute that is a "
                  "scalar or a text"},
                 {boardWith("\"ready\": true,\n\"ready\": true"),
                  "4:1: found the key \"ready\" again after line 3, column 1, expected each key "
                  "once in an object"},
                 {boardWith(R"("voltageRail": {"256": {}})"),
                  "3:17: found the key \"256\", expected a whole number from 0 to 255 as the id of "
                  "a voltage rail"},
                 {boardWith(R"("voltageRail": {"03": {}})"),
                  "3:17: found the key \"03\", expected a whole number from 0 to 255 as the id of "
                  "a voltage rail"}});
}

TEST(AttributeFormRefusal, OfTheStructureSaysWhatBelongsThere) {
  expectRefused(
      {{"[]", "1:1: found an array, expected an object for the board"},
       {"{}",
        "1:1: found an object without a key of either form, expected \"config\" or \"chassis\""},
       {R"({"config": {}, "chassis": []})",
        "1:1: found \"config\" or \"status\" beside \"chassis\" or \"chassis_templates\", expected "
        "the keys of one form only"},
       {R"({"config": {"realUcd9013Controller": {}}})",
        "1:13: found the unknown key \"realUcd9013Controller\" in config, expected "
        "realUcd9012Controller or realUcd9032Controller"},
       {R"({"config": {"realPsocController": {"": {}}}})",
        "1:36: found the text \"\", expected 1 to 255 bytes, none of them a control character, for "
        "the name of a controller"},
       {R"({"config": {"name": "a\nb"}})",
        "1:21: found the text \"a\\x0ab\", expected 1 to 255 bytes, none of them a control "
        "character, for the name of the configuration"},
       {R"({"config": {"realPsocController": {"p": []}}})",
        "1:41: found an array, expected an object for controller \"p\""}});
}

TEST(AttributeForm, AnAttributeFarFromAllGetsTheWholeList) {
  std::string const refusal = refusalOf(boardWith(R"("xyzzy": 1)"));
  EXPECT_THAT(refusal, testing::HasSubstr("customerName, voltageRail, "));
  EXPECT_THAT(refusal, testing::HasSubstr(" or debugPowerOff"));
}

TEST(ExampleBoards, AreRead) {
  BoardDescription const board = readBoard(RAILSEQ_BOARDS "/switch-2ucd.json");
  ASSERT_EQ(board.controllers.size(), 3U);
  EXPECT_EQ(board.controllers[2].name, "fan-tray");
  EXPECT_EQ(readBoard(RAILSEQ_BOARDS "/server-ucd90320.json").controllers.at(0).rails.size(), 8U);
}

}  // namespace
}  // namespace RailSeq
