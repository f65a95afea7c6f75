// Completion of paths, and the bash functions over it.
#include "railseq/commands/completion.h"

#include <gmock/gmock.h>

#include "railseq/board/board.h"
#include "tool/run_tool.h"
#include "tool/temp_file.h"

namespace RailSeq {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Completion, WithoutABoardAsksTheTypesAndTakesAnyKey) {
  EXPECT_THAT(completions(""), ElementsAre("config", "status"));
  EXPECT_THAT(completions("config/realU"),
              ElementsAre("config/realUcd9012Controller[", "config/realUcd9032Controller["));
  std::string const rail = "config/realPsocController[any]/voltageRail[3]/";
  EXPECT_THAT(completions(rail + "overrideV"),
              ElementsAre(rail + "overrideVoutUvLimit", rail + "overrideVoutOvLimit"));
  std::string const mode = "config/realPsocController[a=b]/operationalMode=";
  EXPECT_THAT(completions(mode), ElementsAre(mode + "modeNormal", mode + "diagMode"));
  for (char const* const start :
       {"config/nothing/", "config/dexoDesc/", "config/dexoDesc[a]/busId/", "other/", "[",
        "config/dexoDesc[a]/busId="}) {
    EXPECT_THAT(completions(start), IsEmpty()) << start;
  }
}

TEST(Completion, OfABoardHasTheKeysAndFollowsReferences) {
  Zol::ByName const tree = parseBoard("b.json", R"({"config": {
    "dexoDesc": {"d": {}}, "realPsocController": {"p10": {"dexoDesc": "config/dexoDesc[d]"},
    "p9": {}}}})")
                               .tree();
  std::string const psoc = "config/realPsocController[";
  EXPECT_THAT(completions(tree, "con"), ElementsAre("config"));
  EXPECT_THAT(completions(tree, psoc), ElementsAre(psoc + "p9]", psoc + "p10]"));
  EXPECT_THAT(completions(tree, psoc + "p10]/dexoDesc/"),
              Contains(psoc + "p10]/dexoDesc/busTimeout"));
  std::string const timeout = psoc + "p10]/dexoDesc/busTimeout=timeout5";
  EXPECT_THAT(completions(tree, timeout),
              ElementsAre(timeout + "ms", timeout + "0ms", timeout + "00ms"));
  EXPECT_THAT(completions(tree, psoc + "p9]/dexoDesc/"), IsEmpty());
  EXPECT_THAT(completions(tree, psoc + "none]/ready="), IsEmpty());
}

// What bash would offer behind the line, in one line.
std::string offered(std::string const& line) {
  TempFile const script(
      "source '" RAILSEQ_COMPLETION "'\ncd '" RAILSEQ_BOARDS "'\nCOMP_LINE=$(cat <<'END'\n" + line +
      "x\nEND\n)\nCOMP_LINE=${COMP_LINE%x}\n"
      "COMP_POINT=${#COMP_LINE}\n_railseq '" RAILSEQ_TOOL "'\necho \"${COMPREPLY[*]}\"\n");
  std::string output = shell("bash '" + script.path() + "'").output;
  if (output.ends_with('\n')) output.pop_back();
  return output;
}

TEST(BashCompletion, OffersCommandsOptionsFilesPathsAndValues) {
  std::string const get = "railseq get --board switch-2ucd.json ";
  std::string const main = "switch/realUcd9012Controller[main]";
  std::pair<std::string, std::string> const lines[] = {
      {"railseq ",
       "demo serve get set make erase count tree watch wait health types lint record replay decode "
       "complete --help --version"},
      {"railseq co", "count complete"},
      {"railseq set --", "--help --board --timeout --json --tree"},
      {"railseq nonsense --", ""},
      {"railseq replay sw", "switch-2ucd.json"},
      {"railseq replay x --c", "--changes"},
      {"railseq lint sw", "switch-2ucd.json"},
      {"railseq serve ser", "server-ucd90320.json"},
      {"railseq serve b --listen ", "unix: tcp:"},
      {"railseq watch ", "unix: tcp:"},
      {"railseq watch unix:ser", "server-ucd90320.json"},
      {"railseq get unix:missing sw", ""},
      {"railseq tree --board ser", "server-ucd90320.json"},
      {"railseq tree --board=ser", "server-ucd90320.json"},
      {get, "switch switch-status"},
      {get + "switch/realUcd9012", "switch/realUcd9012Controller["},
      {get + "switch/realUcd9012Controller[", main + " switch/realUcd9012Controller[uplink]"},
      {get + main + "/sh", main + "/shutdownEnabled"},
      {"railseq set --board=switch-2ucd.json " + main + "/ready=", "true false"},
      {"railseq set --board switch-2ucd.json " + main + "/operationalMode=d", "diagMode"},
      {"railseq complete status/realP", "status/realPsocController["},
      {"railseq types Volt", "VoltageRailConfig"},
      {"railseq get --board missing.json sw", ""}};
  for (auto const& [line, offer] : lines) EXPECT_EQ(offered(line), offer) << line;
}

// Bash puts what is offered behind the open quote, and closes it behind an offer that is the only
// one.
TEST(BashCompletion, GoesOnInAnOpenQuote) {
  TempFile const board(R"({"config": {"realPsocController": {"fan/a b": {}}}})");
  std::string const get = "railseq get --board '" + board.path() + "' ";
  std::string const fan = "config/realPsocController[fan\\/a b]";
  std::string const set = "railseq set --board \"switch-2ucd.json\" ";
  std::string const main = "switch/realUcd9012Controller[main]";
  std::pair<std::string, std::string> const lines[] = {
      {get + "'con", "config config/"},
      {get + "\"config/dexo", "config/dexoDesc[ config/dexoDesc[]"},
      {get + "'config/realPsocController[", fan + " " + fan + "/"},
      {get + "\"config/realPsocController[",
       "config/realPsocController[fan\\\\/a b] "
       "config/realPsocController[fan\\\\/a b]/"},
      {get + "config/realPsocController[", "config/realPsocController[fan\\\\/a\\ b]"},
      {get + "'" + fan + "/poll", fan + "/pollingEnabled"},
      {get + "config/realPsocController[fan\\\\/a\\ b]/poll",
       "config/realPsocController[fan\\\\/a\\ b]/pollingEnabled"},
      {set + "'" + main + "/sh", main + "/shutdownEnabled " + main + "/shutdownEnabled="},
      {set + "'" + main + "/description=a b' '" + main + "/operationalMode=d",
       main + "/operationalMode=diagMode"},
      {set + main + "/operationalMode='d", "diagMode"},
      {"railseq tree --board='switch", "switch-2ucd.json"}};
  for (auto const& [line, offer] : lines) EXPECT_EQ(offered(line), offer) << line;
}

}  // namespace
}  // namespace RailSeq
