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

// The plain texts at the paths, which begin below the controller `main` of `boardWith`.
std::vector<std::string> valuesOf(std::string const& members,
                                  std::initializer_list<std::string> paths) {
  Zol::ByName const tree = parseBoard("b.json", boardWith(members)).tree();
  std::vector<std::string> values;
  for (std::string const& path : paths) {
    values.emplace_back(tree.read("config/realUcd9012Controller[main]/" + path).view());
  }
  return values;
}

TEST(AttributeForm, TakesBothSidesAndAllThreeChips) {
  Board const board = parseBoard("b.json", R"({"config": {"name": "top",
    "realUcd9012Controller": {"a": {"customerName": "A"}, "b": {}},
    "realUcd9032Controller": {"a": {}}, "realPsocController": {"c/d": {}}},
    "status": {"name": "now", "realPsocController": {"c": {"temperature": 41.5, "diagModeStatus":
      {"x": {"result": "failure", "data": "d"}}}}}})");
  Zol::ByName const tree = board.tree();
  EXPECT_EQ(tree.count("top/realUcd9012Controller"), 2U);
  EXPECT_EQ(tree.read("top/realUcd9012Controller[a]/customerName"), "A");
  EXPECT_TRUE(tree.contains("top/realUcd9032Controller[a]")) << "each chip has names of its own";
  EXPECT_TRUE(tree.contains("top/realPsocController[c\\/d]"));
  EXPECT_EQ(tree.read("now/realPsocController[c]/temperature"), "41.5");
  EXPECT_EQ(tree.read("now/realPsocController[c]/diagModeStatus[x]/result"), "failure");
  EXPECT_TRUE(board.notes.empty());
  EXPECT_EQ(parseBoard("b.json", R"({"status": {}})").config->name(), Zol::Name("config"));
  EXPECT_FALSE(parseBoard("b.json", R"({"config": {}})").status);
}

TEST(AttributeForm, TakesEachKindOfValue) {
  EXPECT_THAT(valuesOf(R"("pollingEnabled": false, "reloadCauseSortKey": 4294967295,
                          "operationalMode": "diagMode", "location": "slot \"3\"",
                          "controllerState": "off")",
                       {"pollingEnabled", "reloadCauseSortKey", "operationalMode", "location",
                        "controllerState"}),
              ElementsAre("false", "4294967295", "diagMode", "slot \"3\"", "off"));
  EXPECT_THAT(
      valuesOf(R"("voltageRail": {"255": {"overrideVoutUvLimit": 0.78,
                          "overrideVoutOvLimit": "inf", "overridePowerGoodOff": -1e-3}})",
               {"voltageRail[255]/overrideVoutUvLimit", "voltageRail[255]/overrideVoutOvLimit",
                "voltageRail[255]/overridePowerGoodOff"}),
      ElementsAre("0.78", "inf", "-0.001"));
  EXPECT_THAT(valuesOf(R"("reloadCause": {"7": {"id": 5, "reloadCauseKey": "cpu",
                          "isRemote": true}}, "diagCommandConfig": {"name": "diag",
                          "parameter": {"3": "x"}, "epoch": 9}, "kernelPanicEepromDexo": null)",
                       {"reloadCause[7]", "diagCommandConfig/parameter[3]",
                        "diagCommandConfig/name", "kernelPanicEepromDexo"}),
              ElementsAre("Value('Hardware::Ucd9012::UcdCause', ** {'reloadCauseKey': 'cpu', "
                          "'type': 'other', 'id': 5, 'isRemote': True})",
                          "x", "diag", "None"));
}

TEST(AttributeForm, ReferencesLeadToTheFilesEntitiesWhereverTheyStand) {
  Board const board = parseBoard("b.json", R"({"config": {
    "controller": ["config/realPsocController[p]"],
    "realPsocController": {"p": {"dexoDesc": "config/dexoDesc[d]"},
                           "q": {"dexoDesc": "config/realPsocController[r]/kernelPanicEepromDexo"},
                           "r": {"dexoDesc": null, "kernelPanicEepromDexo":
                             {"name": "e", "busId": 3, "device": 80}}},
    "dexoDesc": {"d": {"busId": 3, "busTimeout": "timeout1s"}}}})");
  auto const psoc = [&board](char const* name) { return board.config->realPsocController(name); };
  EXPECT_EQ(psoc("p")->dexoDesc(), board.config->dexoDesc("d"));
  EXPECT_EQ(psoc("q")->dexoDesc(), psoc("r")->kernelPanicEepromDexo());
  EXPECT_EQ(board.config->dexoDesc("d")->busTimeout(), Hardware::SmbusTimeout::timeout1s);
  EXPECT_EQ(board.config->controller("p"), psoc("p"));
}

TEST(AttributeForm, ANameMakesOneSiblingOfItsType) {
  Board const board = parseBoard("b.json", boardWith(R"("voltageRail": {
    "1": {"sensorMib": {"name": "s"}, "voltageRailEnvConfig": {"name": "s"}},
    "2": {"sensorMib": {"name": "s"}, "voltageRailEnvStatus": {"name": "t"}}},
    "kernelPanicEepromWp": {"name": "config"}, "resetGpioPinStatus": {"name": "pin"})"));
  auto const main = board.config->realUcd9012Controller("main");
  EXPECT_EQ(main->voltageRail(1)->voltageRailEnvConfig()->name(), Zol::Name("s"));
  EXPECT_EQ(main->voltageRail(1)->sensorMib(), main->voltageRail(2)->sensorMib());
  EXPECT_EQ(main->voltageRail(2)->voltageRailEnvStatus()->name(), Zol::Name("t"));
  EXPECT_EQ(main->kernelPanicEepromWp()->name(), Zol::Name("config"));
  EXPECT_EQ(main->resetGpioPinStatus()->name(), Zol::Name("pin"));
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
        "3:20: found the text \"diag\", expected modeNormal or diagMode for operationalMode"},
       {boardWith(R"("reloadCause": {"1": {"id": true}})"),
        "3:29: found true, expected a whole number from 0 to 4294967295 for id"},
       {boardWith(R"("reloadCause": {"1": {"ID": 1}})"),
        "3:23: found the unknown attribute \"ID\" of a UcdCause, expected id"},
       {boardWith(R"("externalVoltageRail": {"1": {"railNum": 256}})"),
        "3:42: found the number 256, expected a whole number from 0 to 255 for railNum"},
       {boardWith(R"("voltageRail": {"1": {"overrideVoutUvLimit": "low"}})"),
        "3:46: found the text \"low\", expected a number, \"-inf\", \"inf\" or \"nan\" for "
        "overrideVoutUvLimit"}});
}

TEST(AttributeFormRefusal, OfReferencesSaysWhatStandsThere) {
  expectRefused(
      {{boardWith(R"("dexoDesc": "config/dexoDesc[d]")"),
        "3:13: config/dexoDesc[d]: there is no such member, and no other"},
       {boardWith(R"("dexoDesc": "config/realUcd9012Controller[main]")"),
        "3:13: config/realUcd9012Controller[main]: there is no such member, and no other"},
       {boardWith(R"("kernelPanicEepromWp": "config/realUcd9012Controller[main]")"),
        "3:24: config/realUcd9012Controller[main]: this is a "
        "Hardware::Ucd9012::Ucd9012ControllerConfig, expected Fru::Gpo"},
       {boardWith(R"("kernelPanicEepromWp": {"name": "x", "line": 4})"),
        "3:38: found the unknown key \"line\" in kernelPanicEepromWp, expected name"},
       {boardWith(R"("dexoDesc": {"name": "x"})"),
        "3:13: found an object, expected the path of an entity, or null, for dexoDesc"},
       {"{\"config\": {\"controller\": [\n\"config/dexoDesc\"]}}",
        "2:1: config/dexoDesc: the attribute has keys, expected "
        "dexoDesc[KEY]"},
       {R"({"config": {"name": "a"}, "status": {"name": "a"}})",
        "1:37: found both sides with the name \"a\", expected a name of its own for each side"}});
}

TEST(AttributeFormRefusal, OfNamesSaysWhichAreKnown) {
  expectRefused(
      {{boardWith(R"("polingEnabled": true)"),
        "3:1: found the unknown attribute \"polingEnabled\" of a Ucd9012ControllerConfig, "
        "expected pollingEnabled"},
       {boardWith(R"("voltageRail": {"1": {"id": 1}})"),
        "3:23: found the unknown attribute \"id\" of a VoltageRailConfig, expected "
        "voltageRailEnvConfig, voltageRailEnvStatus, overrideVoutUvLimit, "
        "overrideVoutOvLimit, overridePowerGoodOff or sensorMib"},
       {boardWith("\"ready\": true,\n\"ready\": true"),
        "4:1: found the key \"ready\" again after line 3, column 1, expected each key "
        "once in an object"},
       {boardWith(R"("voltageRail": {"256": {}})"),
        "3:17: found the key \"256\", expected a whole number from 0 to 255 for a key of "
        "voltageRail"},
       {boardWith(R"("voltageRail": {"03": {}})"),
        "3:17: found the key \"03\", expected a whole number from 0 to 255 for a key of "
        "voltageRail"}});
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
        "1:13: found the unknown attribute \"realUcd9013Controller\" of a Config, expected "
        "realUcd9012Controller or realUcd9032Controller"},
       {R"({"config": {"realPsocController": {"": {}}}})",
        "1:36: found the text \"\", expected 1 to 255 bytes, none of them a control character, for "
        "a key of realPsocController"},
       {R"({"config": {"name": "a\nb"}})",
        "1:21: found the text \"a\\x0ab\", expected 1 to 255 bytes, none of them a control "
        "character, for the name of config"},
       {R"({"config": {"realPsocController": {"p": []}}})",
        "1:41: found an array, expected an object for \"p\""}});
}

TEST(AttributeForm, AnAttributeFarFromAllGetsTheWholeList) {
  std::string const refusal = refusalOf(boardWith(R"("xyzzy": 1)"));
  EXPECT_THAT(refusal, testing::HasSubstr("expected customerName, dexoDesc, "));
  EXPECT_THAT(refusal, testing::HasSubstr(" or debugPowerOff"));
}

TEST(ExampleBoards, AreRead) {
  Zol::ByName const both = readBoard(RAILSEQ_BOARDS "/switch-2ucd.json").tree();
  EXPECT_EQ(both.read("switch/realUcd9012Controller[main]/dexoDesc/deviceId"), "78");
  EXPECT_EQ(both.read("switch-status/realPsocController[fan-tray]/temperature"), "33");
  Zol::ByName const server = readBoard(RAILSEQ_BOARDS "/server-ucd90320.json").tree();
  EXPECT_EQ(server.count("config/realUcd9032Controller[sequencer]/voltageRail"), 8U);
}

}  // namespace
}  // namespace RailSeq
