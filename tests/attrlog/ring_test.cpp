// The ring of received bytes at its end, the bounds of what a peer may send, and what a change
// costs while it is replicated.
#include <gtest/gtest.h>

#include "support/allocation_count.h"
#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;

constexpr std::uint64_t kRoot = 0x20;
constexpr std::uint64_t kTheirs = std::uint64_t{1} << 63;
constexpr char const* kConfigType = "Hardware::Ucd9012::Config";

Frame announcement(std::uint64_t id, std::string_view name) {
  return Frame::data(kRoot, 259).text(name).text("").u64(0).u64(0).u64(0).u64(id);
}

void sendRoot(RawPeer& peer) {
  peer.send(Frame::hello());
  peer.send(Frame::mount(kRoot, "board"));
  peer.send(Frame::orphan(kRoot, kConfigType, "board"));
}

TEST(Ring, anAdoptedIdMayLieAcrossTheEnd) {
  // The id is the last field. `behind`: how many of its bytes stand at the start of the ring; with
  // 0 the frame ends exactly where the ring does.
  for (std::size_t behind = 0; behind <= 8; ++behind) {
    ConnectionOptions small;
    small.maxFrame = 1;
    small.inCapacity = 1;
    RawPeer peer(small);
    sendRoot(peer);
    Zol::Ptr<Zol::NboAttrLog::In> const in = peer.connection->in();
    std::size_t const start = in->capacity() + behind - announcement(0x22, "main").bytes().size();
    // Frames that are skipped bring the announcement to its place.
    std::size_t const rest = start - static_cast<std::size_t>(in->position());
    for (std::size_t const part : {rest / 3, rest / 3, rest - rest / 3 * 2}) {
      peer.send(Frame(0x81).text(std::string(part - 9, ' ')));
    }
    peer.send(announcement(0x22, "main"));
    auto const main =
        Zol::ptrCast<Config>(peer.connection->mounted("board"))->realUcd9012Controller("main");
    ASSERT_EQ(in->position(), in->capacity() + behind);
    ASSERT_TRUE(main);

    // The parent's id stands in place of the child's.
    in->positionIs(in->position() - 8);
    in->boundIs(in->position() + 8);
    EXPECT_EQ(in->nextU64(), kRoot | kTheirs);
    peer.send(Frame::data(0x22, 402).u8(0));
    EXPECT_FALSE(main->pollingEnabled());
  }
}

TEST(Bounds, whatAPeerSendsBeyondThemIsRefusedOrCloses) {
  struct Case {
    char const* what;
    std::vector<Frame> frames;
    char const* error;  // empty: one message is refused
  };
  Frame sections = Frame::data(std::uint64_t{1} << 32, 136);
  for (int i = 0; i < 9; ++i) sections.section(2, Frame::fields());
  Frame types = Frame::fields();
  for (int i = 0; i < 17; ++i) types.text("T");
  Case const cases[] = {
      {"a frame", {Frame(0x81).text(std::string(40000, ' '))}, "frame of 40005 bytes"},
      {"a key", {announcement(0x22, std::string(101, 'k'))}, "text of 101 bytes, at most 100"},
      {"a root's name", {Frame::mount(0x30, std::string(51, 'n'))}, "name of a root of 51 bytes"},
      {"entities", {announcement(0x22, "a"), announcement(0x24, "b")}, ""},
      {"orphans", {Frame::orphan(0x32, kConfigType, ""), Frame::orphan(0x34, kConfigType, "")}, ""},
      {"mounts", {Frame::mount(0x42, "second"), Frame::mount(0x44, "third")}, ""},
      {"sections", {sections}, "too many sections"},
      {"types", {Frame::data(std::uint64_t{1} << 32, 136).section(1, types)}, "too many types"},
  };
  ConnectionOptions options;
  options.maxFrame = 1;
  options.framesPerPump = 1;
  options.maxUnchunkedText = 100;
  options.maxNameLength = 50;
  options.maxEntities = 2;
  options.maxOrphans = 1;
  options.maxMounts = 2;
  for (Case const& one : cases) {
    SCOPED_TRACE(one.what);
    RawPeer peer(options);
    sendRoot(peer);
    for (Frame const& frame : one.frames) peer.send(frame);
    std::string const error = peer.connection->error();
    EXPECT_NE(error.find(one.error), std::string::npos) << error;
    EXPECT_EQ(peer.connection->counters().refused, error.empty() ? 1U : 0U);
  }
}

TEST(Costs, aReplicatedChangeAllocatesNothing) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const main = addController(*config, "main");
  ReplicaPair pair;
  pair.mount(config);
  auto const change = [&] {
    for (int i = 0; i < 100; ++i) {
      main->reloadCauseSortKeyIs(main->reloadCauseSortKey() + 1);
      main->readyIs(!main->ready());
    }
    pair.flow();
  };
  change();
  EXPECT_EQ(allocationsOf(change), 0U);
}

}  // namespace
