// Runs of the built program, as a shell would run it.
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
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

// The program's exit code and all that it printed, on both streams.
Outcome railseq(std::string const& arguments) {
  std::string const command = std::string("'") + RAILSEQ_TOOL + "' " + arguments + " 2>&1";
  std::FILE* const pipe = ::popen(command.c_str(), "r");
  Outcome run{-1, ""};
  if (!pipe) return run;
  std::array<char, 4096> block{};
  while (std::size_t const count = std::fread(block.data(), 1, block.size(), pipe)) {
    run.output.append(block.data(), count);
  }
  int const status = ::pclose(pipe);
  run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

// The rest of the line behind the mark; empty when the mark does not stand in the text.
std::string behind(std::string const& text, std::string const& mark) {
  std::size_t const begin = text.find(mark);
  if (begin == std::string::npos) return "";
  std::size_t const value = begin + mark.size();
  return text.substr(value, text.find('\n', value) - value);
}

class Demo : public testing::TestWithParam<char const*> {};

TEST_P(Demo, TheMirrorHearsEveryChangeAndEndsEqual) {
  Outcome const run = railseq(std::string("demo '") + RAILSEQ_BOARDS "/" + GetParam() + "'");
  EXPECT_EQ(run.exitCode, 0) << run.output;
  std::string const digest = behind(run.output, "source digest ");
  EXPECT_EQ(digest.size(), 16U) << run.output;
  EXPECT_EQ(behind(run.output, "mirror digest "), digest);
}

INSTANTIATE_TEST_SUITE_P(Boards, Demo, testing::Values("switch-2ucd.json", "server-ucd90320.json"));

TEST(DemoOutput, ShowsEachChangeOnBothSidesAndTheMirrorsTree) {
  Outcome const run = railseq("demo '" RAILSEQ_BOARDS "/switch-2ucd.json'");
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

TEST(DemoOutput, TellsWhatTheTreeDoesNotHold) {
  Outcome const run = railseq("demo '" RAILSEQ_BOARDS "/server-ucd90320.json'");
  EXPECT_THAT(run.output, HasSubstr("note: 8 voltage rails and 1 bus descriptor"));
  EXPECT_THAT(run.output, HasSubstr("note: the device \"riser\" has GPIOs only and is skipped"));
}

TEST(DemoOutput, ABoardWithoutControllersWorksToo) {
  TempFile const board(R"({"config": {}})");
  Outcome const run = railseq("demo '" + board.path() + "'");
  EXPECT_EQ(run.exitCode, 0) << run.output;
  EXPECT_THAT(run.output, HasSubstr("mirror: config/realUcd9012Controller[added-by-demo] removed"));
}

TEST(DemoOutput, AMirrorThatDiesIsToldAndFails) {
  std::string const command = std::string("'") + RAILSEQ_TOOL +
                              "' demo --pause 60000 '" RAILSEQ_BOARDS "/switch-2ucd.json' 2>&1";
  std::FILE* const pipe = ::popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string output;
  std::array<char, 4096> line{};
  bool isKilled = false;
  while (std::fgets(line.data(), static_cast<int>(line.size()), pipe)) {
    output += line.data();
    std::string const pid = behind(output, "source: process ");
    if (isKilled || output.find("pollingEnabled = false") == std::string::npos) continue;
    std::string const mirror = behind(output.substr(output.find(pid) + pid.size()), "process ");
    pid_t const mirrorPid = std::atoi(mirror.c_str());
    ASSERT_GT(mirrorPid, 1) << output;
    isKilled = ::kill(mirrorPid, SIGKILL) == 0;
  }
  int const status = ::pclose(pipe);
  EXPECT_TRUE(isKilled);
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_THAT(output, HasSubstr("demo: failed: "));
  EXPECT_THAT(output, HasSubstr("the peer has gone"));
}

struct BadUse {
  char const* arguments;
  char const* complaint;

  friend std::ostream& operator<<(std::ostream& stream, BadUse const& use) {
    return stream << use.arguments;
  }
};

class BadUsage : public testing::TestWithParam<BadUse> {};

TEST_P(BadUsage, EndsWithExitCodeTwo) {
  Outcome const run = railseq(GetParam().arguments);
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.output, HasSubstr(GetParam().complaint));
}

INSTANTIATE_TEST_SUITE_P(Arguments, BadUsage,
                         testing::Values(BadUse{"", "a command is required"},
                                         BadUse{"demo", "BOARD"}, BadUse{"nonsense", "nonsense"},
                                         BadUse{"demo /nonexistent.json",
                                                "/nonexistent.json: cannot be read: No such file"},
                                         BadUse{"types a b", "b"}));

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
