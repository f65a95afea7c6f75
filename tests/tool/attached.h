// An address of the test's own, and the programs at it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "railseq/attach/address.h"
#include "tool/run_tool.h"
#include "tool/running_tool.h"

namespace RailSeq {

inline std::string const kBoard = RAILSEQ_BOARDS "/switch-2ucd.json";
inline std::string const kMain = "switch/realUcd9012Controller[main]";
// The last line that `watch --initial` prints of this board.
inline std::string const kLastOfBoard = "switch-status/controller[main]: ";

class Attached : public testing::Test {
 protected:
  Attached() { EXPECT_TRUE(::mkdtemp(directory_.data())); }
  ~Attached() override { (void)shell("rm -r '" + directory_ + "'"); }

  [[nodiscard]] std::string path() const { return directory_ + "/socket"; }
  [[nodiscard]] std::string address() const { return "unix:" + path(); }
  [[nodiscard]] bool hasSocket() const { return ::access(path().c_str(), F_OK) == 0; }

  std::unique_ptr<RunningTool> serve(std::string const& board = kBoard, bool isWritable = false) {
    std::vector<std::string> words{"serve", board, "--listen", address()};
    if (isWritable) words.emplace_back("--writable");
    auto server = std::make_unique<RunningTool>(words);
    server->awaits("serving ");
    server->awaits("\n");
    return server;
  }
  // Prints all that there is, up to the mark, and each change behind it.
  std::unique_ptr<RunningTool> watch(std::string const& lastInitial) {
    auto watch =
        std::make_unique<RunningTool>(std::vector<std::string>{"watch", address(), "--initial"});
    watch->awaits(lastInitial);
    watch->awaits("\n");
    return watch;
  }
  // Runs the command at the address.
  [[nodiscard]] Outcome at(std::string const& command, std::string const& words = "") const {
    return railseq(command + " '" + address() + "' " + words);
  }
  [[nodiscard]] Fd connect() const {
    return connectTo(parseAddress(address()), Clock::now() + std::chrono::seconds(10));
  }

 private:
  std::string directory_ = testing::TempDir() + "railseq_XXXXXX";
};

}  // namespace RailSeq
