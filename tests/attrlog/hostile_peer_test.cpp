// What a connection does with a peer that does not keep to the form of the log.
#include <gtest/gtest.h>

#include <random>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;

constexpr std::uint64_t kRoot = 0x20;
constexpr std::uint64_t kChild = 0x22;
constexpr char const* kConfigType = "Hardware::Ucd9012::Config";

Frame announceController(std::uint64_t id, std::string_view name,
                         std::string_view customer = "customer", std::uint64_t dexoDesc = 0) {
  return Frame::data(kRoot, 259).text(name).text(customer).u64(dexoDesc).u64(0).u64(0).u64(id);
}

class HostilePeer : public testing::Test {
 protected:
  void mountRoot() {
    peer.send(Frame::hello());
    peer.send(Frame::mount(kRoot, "board"));
    peer.send(Frame::orphan(kRoot, kConfigType, "board"));
    ASSERT_TRUE(root());
  }
  void mountWithController() {
    mountRoot();
    peer.send(announceController(kChild, "main"));
    ASSERT_TRUE(root()->realUcd9012Controller("main"));
  }
  [[nodiscard]] Zol::Ptr<Config> root() const {
    return Zol::ptrCast<Config>(peer.connection->mounted("board"));
  }
  void expectClosed(std::string_view reason) {
    EXPECT_FALSE(peer.connection->isOpen());
    EXPECT_NE(peer.connection->error().find(reason), std::string::npos) << peer.connection->error();
  }
  // The message changed nothing, and the connection goes on.
  void expectRefused() {
    EXPECT_TRUE(peer.connection->isOpen()) << peer.connection->error();
    EXPECT_EQ(peer.connection->counters().refused, 1U);
  }

  RawPeer peer;
};

TEST_F(HostilePeer, theHelloComesFirstAndOnce) {
  peer.send(Frame::mount(kRoot, "board"));
  expectClosed("no hello");

  RawPeer twice;
  twice.send(Frame::hello());
  twice.send(Frame::hello());
  EXPECT_EQ(twice.connection->error(), "second hello");
}

TEST_F(HostilePeer, versionsMustOverlapAndTheErrorNamesBoth) {
  peer.send(Frame::hello(9, 8));
  expectClosed("no common version: the peer speaks 8 to 9, this end 1 to 1");

  RawPeer newer;
  newer.send(Frame::hello(9, 1));
  EXPECT_TRUE(newer.connection->isOpen());

  RawPeer other;
  other.send(Frame::hello(1, 1, 0x12345678));
  EXPECT_FALSE(other.connection->isOpen());
}

TEST_F(HostilePeer, garbageInPlaceOfAHelloClosesAtOnce) {
  std::string const request = "GET / HTTP/1.1\r\n\r\n";
  peer.send(Bytes(request.begin(), request.end()));
  expectClosed("frame of");
}

TEST_F(HostilePeer, aHelloInSingleBytesIsTakenIn) {
  for (std::uint8_t const byte : Frame::hello().bytes()) peer.send(Bytes{byte});
  peer.send(Frame::mount(kRoot, "board"));
  EXPECT_TRUE(peer.connection->isOpen());
  EXPECT_EQ(peer.connection->peerName(), "raw");
}

TEST_F(HostilePeer, theEndInsideAFrameIsToldAndTheTreeStays) {
  mountWithController();
  auto const tree = root();
  Bytes cut = Frame::data(kChild, 402).u8(0).bytes();
  cut.pop_back();
  peer.send(cut);
  peer.hangUp();
  EXPECT_EQ(peer.connection->error(), "the peer has gone inside a frame");
  EXPECT_TRUE(tree->realUcd9012Controller("main")->pollingEnabled());
}

TEST_F(HostilePeer, malformedMessagesCloseAndChangeNothing) {
  struct Case {
    char const* what;
    Frame frame;
    char const* reason;
  };
  Case const cases[] = {
      {"a bool of 2", Frame::data(kChild, 402).u8(2), "malformed bool: 2"},
      {"a short number", Frame::data(kChild, 391).u16(1), "message too short"},
      {"a byte too many", Frame::data(kChild, 402).u8(0).u8(0), "1 bytes too many"},
      {"a fixed size that is not kept", Frame(3).u64(kChild).u32(402).u8(4).u32(4).u8(1),
       "payload of 1 bytes, 4 announced"},
      {"a text longer than its message", Frame::data(kChild, 389).u8(0).u32(9).u8('x'),
       "text chunk of 9 bytes"},
      {"an empty chunk in the middle", Frame::data(kChild, 389).u8(1).u32(0), "empty text chunk"},
      {"an announcement without its id",
       Frame::data(kRoot, 259).text("n").text("c").u64(0).u64(0).u64(0), "message too short"},
      {"an orphan's section beyond the end", Frame::data(1ULL << 32, 136).u8(1).u32(99),
       "section of 99 bytes"},
      {"a removal that goes on behind its key", Frame::data(kRoot, -259).text("main").u8(0),
       "1 bytes too many"},
      {"an orphan's parameters that go on",
       Frame::data(1ULL << 32, 136)
           .section(1, Frame::fields().text(kConfigType))
           .section(3, Frame::fields().text("board").u8(0))
           .section(4, Frame::fields().u64(0x60)),
       "parameters of an orphan with 1 bytes"},
      {"an orphan's id that goes on",
       Frame::data(1ULL << 32, 136).section(4, Frame::fields().u64(0x60).u8(0)),
       "entity id of an orphan with 1 bytes"},
      {"an orphan without an id", Frame::data(1ULL << 32, 136), "without an entity id"},
      {"an unknown kind", Frame(77).u8(0), "unknown kind 77"},
      {"a mark of type 3", Frame(4).u64(kRoot).u32(259).u8(3).u32(0), "mark of type 3"},
      {"a mount with an id of ours", Frame::mount(kRoot | 1ULL << 63, "x"), "reserved id"},
  };
  for (Case const& one : cases) {
    SCOPED_TRACE(one.what);
    RawPeer hostile;
    hostile.send(Frame::hello());
    hostile.send(Frame::mount(kRoot, "board"));
    hostile.send(Frame::orphan(kRoot, kConfigType, "board"));
    hostile.send(announceController(kChild, "main"));
    auto const tree = Zol::ptrCast<Config>(hostile.connection->mounted("board"));
    ASSERT_TRUE(tree);
    std::uint64_t const before = Zol::digest(*tree);
    hostile.send(one.frame);
    EXPECT_FALSE(hostile.connection->isOpen());
    EXPECT_NE(hostile.connection->error().find(one.reason), std::string::npos)
        << hostile.connection->error();
    EXPECT_EQ(Zol::digest(*tree), before);
  }
}

TEST_F(HostilePeer, messagesThatCannotBeAppliedAreRefusedAlone) {
  mountWithController();
  peer.send(announceController(0, "zero"));
  peer.send(announceController(0x25, "odd"));
  peer.send(announceController(kRoot, "names the root"));
  peer.send(announceController(kChild, "two keys, one id"));
  peer.send(announceController(0x30 | 1ULL << 63, "never allocated here"));
  peer.send(announceController(0x32, "unknown reference", "c", 0x999998));
  EXPECT_TRUE(peer.connection->isOpen()) << peer.connection->error();
  EXPECT_EQ(peer.connection->counters().refused, 6U);
  EXPECT_EQ(root()->realUcd9012ControllerCount(), 1U);

  peer.send(Frame::data(kChild, 402).u8(0));
  EXPECT_FALSE(root()->realUcd9012Controller("main")->pollingEnabled());
}

TEST_F(HostilePeer, theSourceMayReplaceAMemberUnderItsKey) {
  mountWithController();
  peer.send(Frame::data(kChild, 389).u8(0).text("old place"));
  auto const old = root()->realUcd9012Controller("main");
  // Another id under the key: the source has another entity there. Its parameters may differ, too.
  peer.send(announceController(0x40, "main", "another customer"));
  auto const fresh = root()->realUcd9012Controller("main");
  ASSERT_TRUE(fresh);
  EXPECT_NE(fresh, old);
  EXPECT_EQ(fresh->customerName(), "another customer");
  EXPECT_EQ(fresh->location(), "");
  peer.send(Frame::data(0x40, 402).u8(0));
  EXPECT_FALSE(fresh->pollingEnabled());
  EXPECT_EQ(peer.connection->counters().refused, 0U);
}

TEST_F(HostilePeer, unknownThingsAreSkippedAndCounted) {
  mountWithController();
  peer.send(Frame::data(0x998, 402).u8(0));
  peer.send(Frame::data(kChild, 9999).u8(0));
  peer.send(Frame(0x81).u8(0));
  peer.send(Frame::data(kChild, -402));
  EXPECT_TRUE(peer.connection->isOpen());
  EXPECT_EQ(peer.connection->counters().unknown, 4U);

  peer.send(Frame::data(kChild, 396).u32(17));
  EXPECT_EQ(static_cast<unsigned int>(root()->realUcd9012Controller("main")->operationalMode()),
            17U);
  EXPECT_EQ(peer.connection->counters().unknownEnums, 1U);
  // As what an entity is made with, too: who holds such a one can announce it.
  Frame desc = Frame::data(kRoot, 258).text("desc").u64(0).u8(1).u8(2).u8(3).u32(77).u8(0);
  peer.send(desc.u32(0).u32(78).u8(0).u32(0).u8(0).u64(0x30));
  ASSERT_TRUE(root()->dexoDesc("desc"));
  EXPECT_EQ(static_cast<unsigned int>(root()->dexoDesc("desc")->readDelay()), 78U);
  EXPECT_EQ(peer.connection->counters().unknownEnums, 3U);
}

TEST_F(HostilePeer, aReaderOfAReadOnlyRootMayNotWriteMarkOrSweep) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  addController(*config, "main");
  peer.connection->mountIs(config);
  peer.send(Frame::hello());
  std::uint64_t const theirs = std::uint64_t{1} << 63;
  peer.send(Frame::data(kRoot | theirs, -259).text("main"));
  peer.send(Frame(4).u64(kRoot | theirs).u32(259).u8(0).u32(0));
  peer.send(Frame(4).u64(kRoot | theirs).u32(259).u8(2).u32(0));
  EXPECT_TRUE(config->realUcd9012Controller("main"));
  EXPECT_EQ(peer.connection->counters().refused, 3U);
  EXPECT_TRUE(peer.connection->isOpen());
}

TEST_F(HostilePeer, partialTextsAreBounded) {
  Zol::NboAttrLog::ConnectionOptions options;
  options.maxText = 100;
  options.maxPartialTexts = 150;
  RawPeer bounded(options);
  bounded.send(Frame::hello());
  bounded.send(Frame::mount(kRoot, "board"));
  bounded.send(Frame::orphan(kRoot, kConfigType, "board"));
  bounded.send(announceController(kChild, "a"));
  bounded.send(announceController(0x24, "b"));
  std::string const half(80, 'x');
  bounded.send(Frame::data(kChild, 389).u8(1).text(half));
  EXPECT_TRUE(bounded.connection->isOpen());
  auto const tree = Zol::ptrCast<Config>(bounded.connection->mounted("board"));
  EXPECT_EQ(tree->realUcd9012Controller("a")->location(), "");
  bounded.send(Frame::data(0x24, 389).u8(1).text(half));
  EXPECT_EQ(bounded.connection->error(), "partial texts of more than 150 bytes");
}

// A recorded catch-up, cut or changed at any place, ends in whole messages or in a reason.
class Recorded : public testing::Test {
 protected:
  static Bytes record() {
    RawPeer peer;
    auto const config = Hardware::Ucd9012::configFactory("board");
    auto const main = addController(*config, "main");
    main->locationIs(std::string(70000, 't'));
    main->pollingEnabledIs(false);
    addController(*config, "second")->readyIs(true);
    peer.connection->mountIs(config);
    peer.send(Frame::hello());
    main->reloadCauseSortKeyIs(3);
    config->realUcd9012ControllerDel("second");
    while (peer.connection->pump()) {
    }
    return peer.received();
  }
};

TEST_F(Recorded, everyPrefixIsTakenInUpToItsLastWholeMessage) {
  Bytes const whole = record();
  RawPeer all;
  all.send(whole);
  ASSERT_TRUE(all.connection->isOpen()) << all.connection->error();
  auto const tree = Zol::ptrCast<Config>(all.connection->mounted("board"));
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->realUcd9012ControllerCount(), 1U);
  EXPECT_EQ(tree->realUcd9012Controller("main")->location(), std::string(70000, 't'));

  for (std::size_t cut = 0; cut < whole.size(); cut += cut < 1200 ? 1 : 977) {
    RawPeer part;
    part.send(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(cut)));
    ASSERT_TRUE(part.connection->isOpen()) << cut << ": " << part.connection->error();
    part.hangUp();
    ASSERT_FALSE(part.connection->isOpen()) << cut;
    auto const board = Zol::ptrCast<Config>(part.connection->mounted("board"));
    auto const main = board ? board->realUcd9012Controller("main") : nullptr;
    std::size_t const length = main ? main->location().size() : 0;
    ASSERT_TRUE(length == 0 || length == 70000) << cut;
  }
}

TEST_F(Recorded, changedBytesNeverDoMoreThanCloseOrRefuse) {
  Bytes const whole = record();
  std::mt19937 random(20261122);
  for (int round = 0; round < 1500; ++round) {
    Bytes bytes = whole;
    int const changes = 1 + static_cast<int>(random() % 4);
    for (int i = 0; i < changes; ++i) {
      std::size_t const at = random() % (random() % 3 == 0 ? bytes.size() : 900);
      bytes[at] = static_cast<std::uint8_t>(random());
    }
    RawPeer peer;
    peer.send(bytes);
    EXPECT_EQ(peer.connection->isOpen(), peer.connection->error().empty());
    peer.hangUp();
    EXPECT_FALSE(peer.connection->error().empty());
  }
}

}  // namespace
