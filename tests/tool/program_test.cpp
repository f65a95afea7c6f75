// Runs of the built program, as a shell would run it.
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "tool/temp_file.h"

namespace RailSeq {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

struct Outcome {
  int exitCode;
  std::string output;
};

// The rest of the line behind the mark; empty when the mark does not stand in the text.
std::string behind(std::string const& text, std::string const& mark) {
  std::size_t const begin = text.find(mark);
  if (begin == std::string::npos) return "";
  std::size_t const value = begin + mark.size();
  return text.substr(value, text.find('\n', value) - value);
}

// The program's exit code and all that it printed, on both streams; `watch` sees what there is so
// far behind each line.
Outcome railseq(
    std::string const& arguments,
    std::function<void(std::string const&)> const& watch = [](auto&) {}) {
  std::string const command = std::string("'") + RAILSEQ_TOOL + "' " + arguments + " 2>&1";
  std::FILE* const pipe = ::popen(command.c_str(), "r");
  Outcome run{-1, ""};
  if (!pipe) return run;
  std::array<char, 4096> line{};
  while (std::fgets(line.data(), static_cast<int>(line.size()), pipe)) {
    run.output += line.data();
    watch(run.output);
  }
  int const status = ::pclose(pipe);
  run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

// The digests are equal unless a reference went out as null, of which the demo tells.
Outcome demo(std::string const& board) {
  Outcome const run = railseq("demo '" + board + "'");
  EXPECT_EQ(run.exitCode, 0) << run.output;
  std::string const digest = behind(run.output, "source digest ");
  EXPECT_EQ(digest.size(), 16U) << run.output;
  bool const isNullThere = run.output.find("went out as null") != std::string::npos;
  EXPECT_EQ(behind(run.output, "mirror digest ") == digest, !isNullThere) << run.output;
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
  EXPECT_EQ(run.output.find("went out as null"), std::string::npos);
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
      {"nonsense", "nonsense"},
      {"demo /nonexistent.json", "/nonexistent.json: cannot be read: No such file"},
      {"types a b", "b"}};
  for (auto const& [arguments, complaint] : uses) {
    Outcome const run = railseq(arguments);
    EXPECT_EQ(run.exitCode, 2) << arguments;
    EXPECT_THAT(run.output, HasSubstr(complaint));
  }
}

TEST(BadBoardFile, EndsWithExitCodeTwoAndNothingIsStarted) {
  TempFile const board("{\"config\": {\n  \"realPsocController\": 5}}");
  Outcome const run = railseq("demo '" + board.path() + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.output, "railseq: " + board.path() +
                            ":2:25: found the number 5, expected an object for "
                            "realPsocController\n");
}

TEST(Help, IsGivenForTheProgramAndForEveryCommand) {
  EXPECT_THAT(railseq("--help").output, AllOf(HasSubstr("demo"), HasSubstr("types")));
  for (char const* const command : {"--help", "demo --help", "types --help"}) {
    Outcome const run = railseq(command);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, HasSubstr("xit codes"));
  }
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

TEST(Types, AnUnknownOneGetsTheNearestNames) {
  Outcome const run = railseq("types ControlerConfig");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.output, HasSubstr("unknown type \"ControlerConfig\", expected ControllerConfig"));
}

}  // namespace
}  // namespace RailSeq
