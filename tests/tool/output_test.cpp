// Outputs that nobody reads, that cannot be written, or that are closed.
#include "railseq/attach/output.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>

#include "support/raw_peer.h"
#include "tool/attached.h"
#include "tool/temp_file.h"

namespace RailSeq {
namespace {

constexpr int kSmallPipe = 4096;

class UnreadOutput : public Attached {};
class Outputs : public Attached {};

TEST(ServiceLog, KeepsSomeLinesAndCountsTheOthersInTheirPlace) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  Fd const reader(pipe[0]);
  Fd const writer(pipe[1]);
  ServiceLog log(writer.get());
  constexpr int kLines = 5000;
  for (int i = 0; i < kLines; ++i) log.line(std::string(99, 'x'));
  std::string text;
  std::array<char, 4096> block{};
  for (pollfd waited{reader.get(), POLLIN, 0}; ::poll(&waited, 1, 0) > 0; log.flush()) {
    text.append(block.data(),
                static_cast<std::size_t>(::read(reader.get(), block.data(), block.size())));
  }
  auto const kept = std::count(text.begin(), text.end(), '\n') - 1;
  EXPECT_GT(kept, 600);
  EXPECT_LT(kept, kLines);
  EXPECT_EQ(text.substr(text.find("railseq: ")), "railseq: " + std::to_string(kLines - kept) +
                                                     " lines dropped here, which nobody had read "
                                                     "in time\n");
  log.line("behind it");
  ssize_t const count = ::read(reader.get(), block.data(), block.size());
  ASSERT_GT(count, 0);
  EXPECT_EQ(std::string(block.data(), static_cast<std::size_t>(count)), "behind it\n");
  // The mode of the descriptor, which others may share, is as it was.
  EXPECT_EQ(::fcntl(writer.get(), F_GETFL) & O_NONBLOCK, 0);
}

TEST_F(UnreadOutput, AServiceGoesOnAndEnds) {
  RunningTool server({"serve", kBoard, "--listen", address()}, kSmallPipe);
  server.awaits("\n");
  for (std::string const& first : {std::string("garbage garbage"), [] {
                                     test::Bytes const hello = test::Frame::hello().bytes();
                                     return std::string(hello.begin(), hello.end());
                                   }()}) {
    for (int i = 0; i < 100; ++i) {
      Fd const peer = connect();
      ::send(peer.get(), first.data(), first.size(), MSG_NOSIGNAL);
      pollfd answer{peer.get(), POLLIN, 0};
      ASSERT_EQ(::poll(&answer, 1, 10000), 1);
    }
  }
  EXPECT_EQ(at("get", "'" + kMain + "/ready'").exitCode, 0);
  EXPECT_EQ(server.endUnread(SIGTERM), 0);
}

TEST_F(UnreadOutput, WhatFollowsEndsByASignal) {
  auto const server = serve(RAILSEQ_BOARDS "/server-ucd90320.json");
  for (std::vector<std::string> words : {std::vector<std::string>{"watch", "--initial"},
                                         {"watch", "--initial", "--json"},
                                         {"tree", "--follow"},
                                         {"tree", "--follow", "--json"}}) {
    words.insert(words.begin() + 1, address());
    RunningTool tool(words, kSmallPipe);
    tool.awaitsFullOutput();
    EXPECT_EQ(tool.endUnread(SIGTERM), 0) << words[0] << words.back();
  }
}

TEST_F(Outputs, WhatCannotBeWrittenIsAFailure) {
  auto const server = serve();
  for (std::string const& command :
       {"get --board '" + kBoard + "' '" + kMain + "/ready'", "tree '" + address() + "'",
        "demo '" + kBoard + "'", "watch --initial '" + address() + "'",
        "tree --follow '" + address() + "'", std::string("types"), std::string("--help")}) {
    Outcome const run =
        shell("(timeout 20 '" + std::string(RAILSEQ_TOOL) + "' " + command + " >/dev/full)");
    EXPECT_EQ(run.exitCode, 1) << command;
    EXPECT_EQ(run.output, "railseq: cannot write: No space left on device\n") << command;
  }
  // A reader may have had enough.
  EXPECT_EQ(railseq("demo '" + kBoard + "' | true").output, "");
}

TEST_F(Outputs, ClosedStreamsAreNoPlaceForAConnection) {
  auto const server = serve();
  TempFile const file("");
  EXPECT_EQ(shell("('" + std::string(RAILSEQ_TOOL) + "' record --force --for 0.1 '" + address() +
                  "' '" + file.path() + "' <&- >&-)")
                .exitCode,
            0);
  server->awaits(" (railseq record) gone: closed by the peer\n");
}

}  // namespace
}  // namespace RailSeq
