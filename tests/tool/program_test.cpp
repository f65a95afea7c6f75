// Runs of the built program, as a shell would run it.
#include <gmock/gmock.h>
#include <signal.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "tool/run_tool.h"
#include "tool/temp_file.h"

namespace RailSeq {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

// The rest of the line behind the mark; empty when the mark does not stand in the text.
std::string behind(std::string const& text, std::string const& mark) {
  std::size_t const begin = text.find(mark);
  if (begin == std::string::npos) return "";
  std::size_t const value = begin + mark.size();
  return text.substr(value, text.find('\n', value) - value);
}

Outcome demo(std::string const& board) {
  Outcome const run = railseq("demo '" + board + "'");
  EXPECT_EQ(run.exitCode, 0) << run.output;
  std::string const digest = behind(run.output, "source digest ");
  EXPECT_GE(digest.size(), 16U) << run.output;
  EXPECT_EQ(behind(run.output, "mirror digest "), digest) << run.output;
  return run;
}

TEST(Demo, ShowsEachChangeOnBothSidesAndTheMirrorsTree) {
  Outcome const run = demo(RAILSEQ_BOARDS "/switch-2ucd.json");
  for (char const* const change :
       {"switch/realUcd9012Controller[main].pollingEnabled = false",
        "switch/realUcd9012Controller[main].reloadCauseSortKey = 2",
        "switch/realUcd9012Controller[main].operationalMode = diagMode",
        "switch/realUcd9012Controller[main].description = \"set by the demo\"",
        "switch/realUcd9012Controller[added-by-demo] added",
        "switch/realUcd9012Controller[added-by-demo].location = \"set by the demo\"",
        "switch/realPsocController[fan-tray] removed"}) {
    EXPECT_THAT(run.output, AllOf(HasSubstr(std::string("source: ") + change + "\n"),
                                  HasSubstr(std::string("mirror: ") + change + "\n")));
  }
  EXPECT_THAT(run.output, HasSubstr("mirror:   realUcd9012Controller[uplink]\n"));
  EXPECT_THAT(run.output, HasSubstr("mirror:     modelName = \"UCD90124\"\n"));
  EXPECT_THAT(run.output, HasSubstr("mirror:     dexoDesc = switch/dexoDesc[main-bus]\n"));
  EXPECT_THAT(run.output, HasSubstr("mirror:       overrideVoutUvLimit = 11.2\n"));
  EXPECT_THAT(run.output, HasSubstr("mirror: switch-status\n"));
  EXPECT_THAT(run.output, HasSubstr("mirror:     temperature = 41.5\n"));
}

TEST(Demo, ShowsWhatTheSourceHasLoadedAndWhatHasNoPlaceInTheTree) {
  Outcome const run = demo(RAILSEQ_BOARDS "/server-ucd90320.json");
  EXPECT_THAT(run.output, HasSubstr("source:     voltageRail[11]\nsource:       id = 11\n"));
  EXPECT_THAT(run.output, HasSubstr("source:       overrideVoutUvLimit = -inf\n"));
  EXPECT_THAT(run.output, HasSubstr("note: the device \"riser\" has GPIOs only and is skipped"));
}

TEST(Demo, ABoardWithoutControllersWorksToo) {
  TempFile const board(R"({"config": {}})");
  Outcome const run = demo(board.path());
  EXPECT_THAT(run.output, HasSubstr("mirror: config/realUcd9012Controller[added-by-demo] removed"));
}

TEST(Demo, AMirrorThatDiesIsToldAndFails) {
  bool isKilled = false;
  auto const killMirror = [&isKilled](std::string const& output) {
    if (isKilled || output.find(".pollingEnabled = false") == std::string::npos) return;
    std::string const pid = behind(output, "source: process ");
    std::string const mirror = behind(output.substr(output.find(pid) + pid.size()), "process ");
    pid_t const mirrorPid = std::atoi(mirror.c_str());
    ASSERT_GT(mirrorPid, 1) << output;
    isKilled = ::kill(mirrorPid, SIGKILL) == 0;
  };
  Outcome const run =
      railseq("demo --pause 60000 '" RAILSEQ_BOARDS "/switch-2ucd.json'", killMirror);
  EXPECT_TRUE(isKilled);
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.output, AllOf(HasSubstr("demo: failed: "), HasSubstr("the peer has gone")));
}

TEST(BadUsage, EndsWithExitCodeTwo) {
  std::pair<char const*, char const*> const uses[] = {
      {"", "a command is required"},
      {"demo", "BOARD"},
      {"nonsense", "railseq: unknown command \"nonsense\", expected demo, get, set, make, "},
      {"gte", "railseq: unknown command \"gte\", expected get; see railseq --help\n"},
      {"get --borad x",
       "get: unknown option \"--borad\", expected --board; see railseq get --help"},
      {"lint x y", "railseq: lint: found \"y\", expected no more words"},
      {"get --board x unix:/y", "get: found the address \"unix:/y\" beside --board"},
      {"complete x y", "complete: found \"y\" behind the beginning of a path"},
      {"make --board x y=z", "make: found \"y=z\", expected a PATH in front of it"},
      {"make --board x y z=1 z=2", "make: found \"z\" again, expected each NAME once"},
      {"demo /nonexistent.json", "/nonexistent.json: cannot be read: No such file"},
      {"get x", "--board"},
      {"get --board /nonexistent.json x", "/nonexistent.json: cannot be read: No such file"},
      {"set --board '" RAILSEQ_BOARDS "/switch-2ucd.json' x", "found \"x\", expected PATH=VALUE"}};
  for (auto const& [arguments, complaint] : uses) {
    Outcome const run = railseq(arguments);
    EXPECT_EQ(run.exitCode, 2) << arguments;
    EXPECT_THAT(run.output, HasSubstr(complaint));
    EXPECT_THAT(run.output, StartsWith("railseq: "));
  }
}

TEST(Version, IsThatOfTheManualPage) {
  Outcome const run = railseq("--version");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(shell("head -n1 '" RAILSEQ_MANUAL "'").output,
              HasSubstr("HwRailSeq " + behind(run.output, "railseq ")));
}

TEST(BadBoardFile, EndsWithExitCodeTwoAndNothingIsStarted) {
  TempFile const board("{\"config\": {\n  \"realPsocController\": 5}}");
  Outcome const run = railseq("demo '" + board.path() + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.output, "railseq: " + board.path() +
                            ":2:25: found the number 5, expected an object for "
                            "realPsocController\n");
}

TEST(Help, IsGivenWithExamplesForEveryCommand) {
  for (char const* const command :
       {"", "demo", "get", "set", "make", "erase", "count", "tree", "types", "lint", "complete",
        "serve", "watch", "wait", "health", "record", "replay", "decode"}) {
    Outcome const run = railseq(std::string(command) + " --help");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, AllOf(HasSubstr("Example"), HasSubstr("Exit codes")));
    EXPECT_THAT(railseq("--help").output, HasSubstr(command));
  }
}

}  // namespace
}  // namespace RailSeq
