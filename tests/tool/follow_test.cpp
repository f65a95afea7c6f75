// Commands at a process of which the trees come late, change, or fall silent.
#include <gmock/gmock.h>

#include "railseq/attach/watch.h"
#include "railseq/board/board.h"
#include "railseq/board/tree_json.h"
#include "tool/attached.h"
#include "tool/test_host.h"

namespace RailSeq {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Following : public Attached {
 protected:
  [[nodiscard]] bool prints(RunningTool& tool, std::string const& text) {
    return host.until([&] { return tool.has(text); });
  }
  void pass(std::chrono::milliseconds time) {
    Clock::time_point const end = Clock::now() + time;
    (void)host.until([end] { return Clock::now() >= end; });
  }

  Board const board = parseBoard("b.json", R"({"config": {"name": "a", "realPsocController": {
    "p": {}, "q": {}}}, "status": {"name": "late", "realPsocController": {"p": {}}}})");
  Zol::ByName const tree = board.tree();
  TestHost host{address()};
};

TEST_F(Following, ARootThatIsMountedLaterIsFollowed) {
  host.mount(board.config);
  RunningTool watch({"watch", address(), "--initial"});
  RunningTool follow({"tree", address(), "--follow"});
  RunningTool get({"get", address(), "--timeout", "20", "late/realPsocController[p]/name"});
  RunningTool mistyped({"get", address(), "lat/x"});
  Clock::time_point const begin = Clock::now();
  EXPECT_TRUE(prints(mistyped, "lat: there is no such root, expected a\n"));
  EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5));
  EXPECT_EQ(mistyped.end(), 1);
  EXPECT_TRUE(prints(watch, "a/realPsocController[q]/ready: false\n"));
  EXPECT_TRUE(prints(follow, "\n  realPsocController[q]\n"));
  host.mount(board.status);
  EXPECT_TRUE(prints(watch, "late added\n"));
  EXPECT_TRUE(prints(watch, "late/realPsocController[p]/"));
  EXPECT_TRUE(prints(follow, "\nlate\n"));
  EXPECT_TRUE(prints(get, "\n"));
  EXPECT_EQ(get.end(), 0);
  EXPECT_EQ(get.text(), "p\n");
}

TEST_F(Following, ATreeIsPrintedAgainOnlyWhenItDiffers) {
  host.mount(board.config);
  RunningTool follow({"tree", address(), "--follow", "a/realPsocController[p]/ready"});
  EXPECT_TRUE(prints(follow, "/ready = false\n"));
  tree.write("a/realPsocController[q]/ready", "true");
  pass(std::chrono::milliseconds(800));
  EXPECT_FALSE(follow.has("---"));
  tree.write("a/realPsocController[p]/ready", "true");
  EXPECT_TRUE(prints(follow, "/ready = true\n"));
}

TEST_F(Following, SilenceAndSignsOfLifeAreTold) {
  host.mount(board.config);
  for (bool const isJson : {true, false}) {
    RunningTool watch([&] {
      return runWatch({.line = {.board = {}, .address = address(), .words = {}, .json = isJson},
                       .tellsInitial = true,
                       .staleAfter = std::chrono::milliseconds(300)});
    });
    EXPECT_TRUE(prints(watch, "[q]/ready"));
    EXPECT_TRUE(
        prints(watch, isJson ? "\"event\":\"stale\"" : ": no sign of life for some time\n"));
    tree.write("a/realPsocController[p]/ready", isJson ? "true" : "false");
    EXPECT_TRUE(prints(watch, isJson ? "\"event\":\"alive\"" : ": signs of life again\n"));
    EXPECT_EQ(watch.end(SIGINT), 0);
  }
}

TEST_F(Following, WhatIsWrittenOverEndsASetAtOnce) {
  host.mount(board.config);
  host.mostPeers = 1;
  RunningTool set({"set", address(), "--timeout", "20", "a/realPsocController[p]/ready=true"});
  EXPECT_TRUE(host.until([&] { return tree.read("a/realPsocController[p]/ready") == "true"; }));
  tree.write("a/realPsocController[p]/ready", "false");
  pass(std::chrono::milliseconds(50));
  host.mostPeers = 2;
  Clock::time_point const begin = Clock::now();
  EXPECT_TRUE(prints(set, "\n"));
  EXPECT_LT(Clock::now() - begin, std::chrono::seconds(10));
  EXPECT_THAT(set.text(), HasSubstr("a/realPsocController[p]/ready was set to \"true\" but has "
                                    "changed since, it is false: "));
  EXPECT_EQ(set.end(), 1);
}

TEST_F(Following, AProcessWithoutARootIsTold) {
  RunningTool none({"tree", address(), "--timeout", "0.5"});
  EXPECT_TRUE(prints(none, "timed out: the process has mounted no root\n"));
  EXPECT_EQ(none.end(), 4);
  RunningTool watch({"watch", address(), "--initial"});
  EXPECT_TRUE(prints(watch, ": the process has mounted no root yet; waiting\n"));
  host.mount(board.config);
  EXPECT_TRUE(prints(watch, "a/realPsocController[q]/ready: false\n"));
}

TEST_F(Following, AWaitForWhatCanNeverBeEndsAtOnce) {
  host.mount(board.config);
  std::string const p = "a/realPsocController[p]";
  std::pair<std::string, std::string> const uses[] = {
      {p + "/reday=true", p + "/reday: PsocControllerConfig has no attribute 'reday'"},
      {"a/realPsocController/ready=true", "a/realPsocController: the attribute has keys"},
      {p + "/ready=soon", p + "/ready: expected true or false"},
      {p + "[", p + "["}};
  for (auto const& [word, complaint] : uses) {
    RunningTool wait({"wait", address(), "--timeout", "15", word});
    EXPECT_TRUE(prints(wait, "\n"));
    EXPECT_THAT(wait.text(), AllOf(HasSubstr(complaint), Not(HasSubstr("timed out"))));
    EXPECT_GT(wait.end(), 0);
  }
  // What is not there yet may come.
  for (std::string const word :
       {"b/x=1", "a/realPsocController[r]/ready=true", "a/dexoDesc[d]/x=1"}) {
    RunningTool wait({"wait", address(), "--timeout", "0.5", word});
    EXPECT_TRUE(prints(wait, "timed out; ")) << word;
    EXPECT_EQ(wait.end(), 4);
  }
}

TEST_F(Attached, AWaitGivesTheValueAsJson) {
  auto const server = serve();
  Outcome const get = at("get --json", "'" + kMain + "/ready'");
  EXPECT_THAT(get.output, StartsWith("{"));
  EXPECT_EQ(at("wait --json", "'" + kMain + "/ready=False'").output, get.output);
}

}  // namespace
}  // namespace RailSeq
