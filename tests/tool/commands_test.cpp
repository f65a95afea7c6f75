// The commands on the trees of a board, in the program and by what they print.
#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "railseq/board/lint.h"
#include "railseq/board/tree_json.h"
#include "railseq/commands/commands.h"
#include "tool/bad_board.h"
#include "tool/run_tool.h"
#include "tool/temp_file.h"

namespace RailSeq {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string const kBoard = RAILSEQ_BOARDS "/switch-2ucd.json";
std::string const kMain = "switch/realUcd9012Controller[main]";

// What the command prints of the example board for the words behind `kMain`.
std::string output(int (*run)(CommandLine const&, std::ostream&), std::vector<std::string> words,
                   bool json = false, bool tree = false) {
  for (std::string& word : words) word.insert(0, kMain);
  std::ostringstream out;
  EXPECT_EQ(run({.board = kBoard, .words = words, .json = json, .tree = tree}, out), 0);
  return out.str();
}

Outcome onBoard(std::string const& command, std::string const& words) {
  return railseq(command + " --board '" + kBoard + "' " + words);
}

TEST(Get, PrintsEachValueOnALineOrAllInOneObject) {
  std::vector<std::string> const paths{"/location", "/dexoDesc",
                                       "/voltageRail[2]/overridePowerGoodOff",
                                       "/voltageRail[1]/sensorMib", "/voltageRail[0]/sensorMib"};
  EXPECT_EQ(output(&runGet, paths),
            "switch card, left of the packet processor\nswitch/dexoDesc[main-bus]\n0.7\nNone\n"
            "Entity('EntityMib::Sensor', 'VoltageSensor12V')\n");
  Json const json = Json::parse(output(&runGet, paths, true));
  EXPECT_EQ(json.size(), 5U);
  EXPECT_EQ(json[kMain + "/dexoDesc"], "switch/dexoDesc[main-bus]");
  EXPECT_EQ(json[kMain + "/voltageRail[2]/overridePowerGoodOff"], 0.7);
  EXPECT_EQ(json[kMain + "/voltageRail[1]/sensorMib"], nullptr);
  EXPECT_EQ(json[kMain + "/voltageRail[0]/sensorMib"]["name"], "VoltageSensor12V");
}

TEST(Set, AppliesInOrderAndTellsWhatChanged) {
  std::vector<std::string> const words{"/ready=true", "/ready=true", "/description=a=b",
                                       "/psocReloadCause[7]=Value('Hardware::Ucd9012::PsocCause', "
                                       "** {'bitNum': 3})"};
  EXPECT_EQ(output(&runSet, words),
            kMain + "/ready: false -> true\n" + kMain + "/ready: true (unchanged)\n" + kMain +
                "/description: \"sequences the packet processor and its SerDes rails\" -> "
                "\"a=b\"\n" +
                kMain +
                "/psocReloadCause[7]: nothing -> "
                "Value('Hardware::Ucd9012::PsocCause', ** {'reloadCauseKey': 'rc_unknown', "
                "'bitNum': 3, 'origin': False})\n");
  Json const json = Json::parse(output(&runSet, words, true, true));
  EXPECT_EQ(json["changes"][0]["after"], true);
  EXPECT_EQ(json["changes"][1]["changed"], false);
  EXPECT_EQ(json["changes"][3]["before"], nullptr);
  Json const& main = json["tree"]["config"]["realUcd9012Controller"]["main"];
  EXPECT_EQ(main["psocReloadCause"]["7"]["bitNum"], 3);
}

// What stands in no tree is written as it is printed.
TEST(Set, TakesAnEntityOfANeighbouringModelThatAReferenceLeadsTo) {
  std::string const sensor = "Entity('EntityMib::Sensor', 'VoltageSensor12V')";
  std::string const first = "/voltageRail[0]/sensorMib";
  std::string const second = "/voltageRail[1]/sensorMib";
  EXPECT_EQ(
      output(&runSet, {first + "=None", second + "=" + sensor}),
      kMain + first + ": " + sensor + " -> None\n" + kMain + second + ": None -> " + sensor + "\n");
  std::pair<std::string, std::string> const refused[] = {
      {second + "=Entity('EntityMib::Sensor', 'VoltageSensor')",
       ": no reference leads to Entity('EntityMib::Sensor', 'VoltageSensor'), expected " + sensor},
      {"/kernelPanicEepromWp=" + sensor,
       ": no reference leads to " + sensor +
           ", expected Entity('Fru::Gpo', 'panic-eeprom-write-protect')"},
      {second + "=Entity('EntityMib::Sensor', '/x')", ": no entity at '/x': "}};
  for (auto const& [word, message] : refused) {
    Outcome const run = onBoard("set", "\"" + kMain + word + "\"");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.output, HasSubstr(word.substr(0, word.find('=')) + message));
  }
}

TEST(Make, AddsEntitiesWithTheArgumentsBehindThem) {
  std::string const eeprom = "/kernelPanicEepromDexo";
  std::string const rail = "switch/realPsocController[new]/voltageRail[3]";
  std::string const words =
      "'switch/dexoDesc[new]' busId=3 'switch/realPsocController[new]' customerName=J7 "
      "'dexoDesc=switch/dexoDesc[new]' '" +
      rail + "' \"voltageRailEnvConfig=Entity('Environment::Power::VoltageRailConfig', '12V')\" '" +
      kMain + eeprom + "' name=eeprom busId=2 device=80";
  EXPECT_EQ(onBoard("make", words).output,
            "switch/dexoDesc[new] added\n"
            "switch/realPsocController[new] added\n" +
                rail + " added\n" + kMain + eeprom + " (unchanged)\n");
  Json const json = Json::parse(onBoard("make --json --tree", words).output);
  EXPECT_EQ(json["changes"][2]["before"], nullptr);
  EXPECT_EQ(json["changes"][2]["after"], rail);
  EXPECT_EQ(json["changes"][3]["changed"], false);
  Json const& made = json["tree"]["config"]["realPsocController"]["new"];
  EXPECT_EQ(made["customerName"], "J7");
  EXPECT_EQ(made["dexoDesc"], "switch/dexoDesc[new]");
  EXPECT_EQ(made["voltageRail"]["3"]["voltageRailEnvConfig"]["name"], "12V");
}

TEST(Erase, TakesOutMembersValuesSingleEntitiesAndReferences) {
  std::string const cause =
      "Value('Hardware::Ucd9012::UcdCause', ** {'reloadCauseKey': 'watchdog', 'type': 'gpio', "
      "'id': 7, 'isRemote': False})";
  EXPECT_EQ(output(&runErase, {"/reloadCause[1]", "/diagCommandConfig", "/kernelPanicEepromWp",
                               "/voltageRail", "/voltageRail"}),
            kMain + "/reloadCause[1]: " + cause + " -> nothing\n" + kMain +
                "/diagCommandConfig removed\n" + kMain +
                "/kernelPanicEepromWp: Entity('Fru::Gpo', 'panic-eeprom-write-protect') -> None\n" +
                kMain + "/voltageRail[0] removed\n" + kMain + "/voltageRail[1] removed\n" + kMain +
                "/voltageRail[2] removed\n" + kMain + "/voltageRail: nothing (unchanged)\n");
  EXPECT_EQ(onBoard("erase", "'switch/controller[main]'").output,
            "switch/controller[main]: " + kMain + " -> nothing\n");
  Json const json = Json::parse(output(&runErase, {"/voltageRail[2]"}, true, true));
  EXPECT_EQ(json["changes"][0]["before"], kMain + "/voltageRail[2]");
  EXPECT_EQ(json["changes"][0]["after"], nullptr);
  Json const& main = json["tree"]["config"]["realUcd9012Controller"]["main"];
  EXPECT_EQ(main["voltageRail"].size(), 2U);
}

TEST(Count, IsOfTheMembersOfAnAttribute) {
  EXPECT_EQ(output(&runCount, {"/voltageRail", "/reloadCause"}), "3\n2\n");
  EXPECT_EQ(Json::parse(output(&runCount, {"/voltageRail"}, true))[kMain + "/voltageRail"], 3);
}

TEST(Tree, ShowsEntitiesAndValuesEachLevelFurtherIn) {
  EXPECT_EQ(output(&runTree, {"/diagCommandConfig"}),
            kMain +
                "/diagCommandConfig \"diag\"\n  command = commandReadVoltage\n"
                "  parameter[0] = \"2\"\n  epoch = 1\n");
  std::string const all = onBoard("tree", "").output;
  EXPECT_THAT(all, StartsWith("switch\n  dexoDesc[main-bus]\n    device = "));
  EXPECT_THAT(all, HasSubstr("\nswitch-status\n  realUcd9012Controller[main]\n"));
  EXPECT_EQ(Json::parse(output(&runTree, {"/voltageRail"}, true))[kMain + "/voltageRail"].size(),
            3U);
}

TEST(Tree, AsJsonIsABoardWithTheSameTree) {
  for (char const* const board : {"/switch-2ucd.json", "/server-ucd90320.json"}) {
    std::string const file = RAILSEQ_BOARDS + std::string(board);
    std::string const json = jsonText(boardJson(readBoard(file)));
    EXPECT_EQ(jsonText(boardJson(parseBoard("b.json", json))), json);
  }
}

TEST(Tree, MembersStandInTheOrderOfTheirKeys) {
  TempFile const board(R"({"config": {"realPsocController": {"p10": {}, "p9": {}, "p09": {},
    "a": {"externalVoltageRail": {"10": {}, "9": {}, "100": {}}}}}})");
  std::string const lines =
      railseq("tree --board '" + board.path() + "' | grep '\\[' | tr -d ' \\n'").output;
  std::string const value =
      "=Value('Hardware::Ucd9012::ExternalVoltageRail',**{'railNum':0,'faultType':0})";
  EXPECT_EQ(lines, "realPsocController[a]externalVoltageRail[9]" + value +
                       "externalVoltageRail[10]" + value + "externalVoltageRail[100]" + value +
                       "realPsocController[p09]realPsocController[p9]realPsocController[p10]");
}

TEST(Refusals, OfMalformedPathsAreGivenAtOnce) {
  for (char const* const path : {"/switch", "]", "switch]", "switch[a]]"}) {
    EXPECT_EQ(onBoard("tree", std::string("'") + path + "'").exitCode, 1) << path;
    EXPECT_EQ(onBoard("set", std::string("'") + path + "=1'").exitCode, 1) << path;
  }
}

TEST(Refusals, OfPathsAndValuesEndWithExitCodeOneAndNothingElse) {
  std::pair<char const*, char const*> const uses[] = {
      {"get", "/locatio'"},
      {"get", "/voltageRail'"},
      {"count", "'"},
      {"tree", "/x'"},
      {"set", "/pollingEnabled=maybe'"},
      {"set", "/customerName=x'"},
      {"make", "' x=1"},
      {"make", "/location'"},
      {"erase", "/location'"},
      {"erase", "/voltageRail[9]'"},
      {"make", "/voltageRail[9]' \"voltageRailEnvConfig=Entity('EntityMib::Sensor', 'x')\""}};
  for (auto const& [command, word] : uses) {
    Outcome const run = onBoard(command, "'" + kMain + word);
    EXPECT_EQ(run.exitCode, 1) << command << word;
    EXPECT_THAT(run.output, StartsWith("railseq: " + kMain));
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 1);
  }
}

TEST(Tree, AsJsonTellsOfTextsThatAreNotUtf8) {
  std::string const words = "\"" + kMain + "/location=$(printf 'a\\377')\" 2>&1 >/dev/null | cat";
  EXPECT_THAT(onBoard("set --json", words).output,
              StartsWith("railseq: 1 text is not UTF-8, which JSON cannot hold: "));
  EXPECT_THAT(onBoard("set --json --tree", words).output, StartsWith("railseq: 2 texts are not "));
  EXPECT_EQ(onBoard("set", words).output, "");
}

TEST(Lint, WarnsOfWhatIsHardlyMeant) {
  Board const board = parseBoard("b.json", R"({"config": {
    "dexoDesc": {"a": {"busId": 200, "deviceId": 1}, "b": {"busId": 200, "deviceId": 1}},
    "realPsocController": {"p": {"customerName": "", "voltageRail": {
      "2": {"overrideVoutUvLimit": 2, "overrideVoutOvLimit": 1,
            "voltageRailEnvConfig": {"name": "5V"}},
      "10": {"voltageRailEnvConfig": {"name": "5V"}}, "11": {}}}}},
    "status": {"name": "status", "realPsocController": {"q": {}}}})");
  std::string const rail = "config/realPsocController[p]/voltageRail";
  std::vector<std::string> lines;
  for (Warning const& warning : lintBoard(board)) lines.push_back(warning.line("b.json"));
  EXPECT_THAT(
      lines,
      ElementsAre(
          "b.json:1:12: warning: config: the root has no name of its own",
          "b.json:2:33: warning: config/dexoDesc[a]: busId 200 does not go over a log, which takes "
          "0 to 127",
          "b.json:2:69: warning: config/dexoDesc[b]: busId 200 does not go over a log, which takes "
          "0 to 127",
          "b.json:2:54: warning: config/dexoDesc[b]: device 1 on bus 200 of accelerator 0 is also "
          "that of config/dexoDesc[a]",
          "b.json:3:50: warning: config/realPsocController[p]: the controller has no customerName",
          "b.json:4:36: warning: " + rail +
              "[2]: overrideVoutUvLimit 2 is not below overrideVoutOvLimit 1",
          "b.json:6:38: warning: " + rail + "[10]: \"5V\" is also the rail of " + rail + "[2]",
          "b.json:6:55: warning: " + rail +
              "[11]: the rail has no voltageRailEnvConfig, which names it",
          "b.json:7:57: warning: status/realPsocController[q]: there is no "
          "config/realPsocController[q]"));
  EXPECT_EQ(Warning({std::nullopt, "x"}).line("b.json"), "b.json: warning: x");
}

TEST(Lint, ItsExitCodeTellsTheOutcome) {
  TempFile const doubtful(R"({"config": {}, "status": {"realPsocController": {"q": {}}}})");
  TempFile const bad("{");
  EXPECT_EQ(railseq("lint '" + kBoard + "'").output, kBoard + ": good\n");
  EXPECT_EQ(railseq("lint '" + doubtful.path() + "'").exitCode, 1);
  EXPECT_EQ(railseq("lint '" + bad.path() + "'").exitCode, 2);
}

TEST(Types, AreListedInTheOrderOfRegistration) {
  Outcome const run = railseq("types");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output, StartsWith("TYPE "));
  EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 25) << "24 types and a heading";
  EXPECT_LT(run.output.find("\nOperationalMode "), run.output.find("\nCauseType "));
  EXPECT_LT(run.output.find("\nConfig "), run.output.find("\nStatus "));
}

TEST(Types, ShowTheirAttributesUnderEitherName) {
  Outcome const run = railseq("types ControllerConfig");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output,
              testing::ContainsRegex("\n390 +voltageRail +children +VoltageRailConfig"));
  EXPECT_THAT(run.output, testing::ContainsRegex("\n402 +pollingEnabled +scalar .*0x222143"));
  EXPECT_EQ(railseq("types Hardware::Ucd9012::ControllerConfig").output, run.output);
}

TEST(Types, OfWhatStandsAtAPathAreThoseOfTheBoard) {
  EXPECT_THAT(onBoard("types", "'" + kMain + "' switch/dexoDesc[main-bus]/busId").output,
              AllOf(StartsWith("Hardware::Ucd9012::Ucd9012ControllerConfig: entity"),
                    HasSubstr("\n\nHardware::SmbusId: value")));
  Json const json = Json::parse(railseq("types --json UcdCause").output);
  EXPECT_EQ(json["UcdCause"]["attributes"][2]["type"], "U32");
  EXPECT_EQ(Json::parse(railseq("types --json").output).size(), 24U);
}

TEST(Types, WithoutAPathAreThoseOfAllThatStandsOnTheBoard) {
  TempFile const board(R"({"config": {"dexoDesc": {"d": {}}}})");
  std::string const ofBoard = "types --board '" + board.path() + "'";
  std::string const text = railseq(ofBoard).output;
  EXPECT_THAT(text, AllOf(StartsWith("TYPE "), HasSubstr("\nConfig  "),
                          HasSubstr("\nSmbusDexo::DexoDesc "), HasSubstr("\nHardware::SmbusId ")));
  EXPECT_THAT(text, testing::Not(testing::AnyOf(HasSubstr("Status"), HasSubstr("Controller"))));
  EXPECT_EQ(Json::parse(railseq(ofBoard + " --json").output)[0]["name"], "Config");
}

TEST(Types, AnUnknownOneGetsTheNearestNames) {
  Outcome const run = railseq("types ControlerConfig");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.output, HasSubstr("unknown type \"ControlerConfig\", expected ControllerConfig"));
}

}  // namespace
}  // namespace RailSeq
