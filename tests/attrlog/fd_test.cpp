// Connections over descriptors: a tree over a socket pair, and the ways in which a peer may go.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;

class Descriptors : public testing::Test {
 protected:
  Descriptors() { EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0); }

  static void pumpAll(Connection& connection) {
    while (connection.pump()) {
    }
  }
  void write(Bytes const& bytes) {
    EXPECT_EQ(::write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }

  int ends[2];
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
};

TEST_F(Descriptors, aTreeGoesOverASocketPair) {
  auto const source = Connection::overFd(ends[0], {});
  auto const replica = Connection::overFd(ends[1], {});
  addController(*config, "main")->locationIs(std::string(3000000, 'x'));
  source->mountIs(config);
  while (source->pump() || replica->pump()) {
  }
  ASSERT_TRUE(replica->mounted("board"));
  EXPECT_EQ(Zol::digest(*replica->mounted("board")), Zol::digest(*config));
  EXPECT_FALSE(source->wantsWrite());
  source->close();
  EXPECT_EQ(source->fd(), -1);
  pumpAll(*replica);
  EXPECT_EQ(replica->error(), "closed by the peer");
}

TEST_F(Descriptors, aPeerThatGoesWhileBytesWaitForItIsAReasonAndNoSignal) {
  auto const source = Connection::overFd(ends[0], {});
  addController(*config, "main")->locationIs(std::string(3000000, 'x'));
  source->mountIs(config);
  write(Frame::hello().bytes());
  pumpAll(*source);
  ASSERT_TRUE(source->wantsWrite());
  ::close(ends[1]);
  pumpAll(*source);
  EXPECT_EQ(source->error(), "the peer has gone");

  // What is no socket has no other guard against the signal than ours.
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  ::close(pipe[0]);
  auto const onPipe = Connection::overFd(pipe[1], {});
  pumpAll(*onPipe);
  EXPECT_EQ(onPipe->error(), "the peer has gone");
}

TEST_F(Descriptors, allThatAPeerSaidBeforeItWentIsTakenIn) {
  // More than the ring holds at once, and our hello can no longer be written.
  ConnectionOptions small;
  small.maxFrame = 1;
  small.inCapacity = 1;
  write(Frame::hello().bytes());
  write(Frame::mount(0x20, "board").bytes());
  write(Frame::orphan(0x20, "Hardware::Ucd9012::Config", "board").bytes());
  for (std::uint64_t i = 0; i < 9; ++i) {
    Frame announcement = Frame::data(0x20, 259).text(std::string(9000 + i, 'n')).text("");
    write(announcement.u64(0).u64(0).u64(0).u64(0x22 + 2 * i).bytes());
  }
  ::close(ends[1]);
  auto const replica = Connection::overFd(ends[0], small);
  pumpAll(*replica);
  EXPECT_EQ(replica->error(), "the peer has gone");
  EXPECT_EQ(Zol::ptrCast<Config>(replica->mounted("board"))->realUcd9012ControllerCount(), 9U);
}

}  // namespace
