// Who may write what: mounts that the peer may write, chains of them, and what a peer may not do to
// an owner.
#include <gtest/gtest.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;

constexpr std::uint64_t kRoot = 0x20;
constexpr std::uint64_t kTheirs = std::uint64_t{1} << 63;
constexpr MountOptions kWritable{MountOptions::writableByPeer};

Frame announcement(std::uint64_t id, std::string_view customer = "customer") {
  return Frame::data(kRoot | kTheirs, 259).text("main").text(customer).u64(0).u64(0).u64(0).u64(id);
}

// A peer that may write into a root of this end.
class Access : public testing::Test {
 protected:
  Access() {
    peer.connection->mountIs(config, kWritable);
    peer.send(Frame::hello());
  }

  RawPeer peer;
  ReplicaPair pair;
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<Ucd9012ControllerConfig> main = addController(*config, "main");
};

TEST_F(Access, aPeerDoesNotReplaceTheOwnersMember) {
  peer.send(announcement(0x40, "another customer"));
  EXPECT_EQ(peer.connection->counters().refused, 1U);
  EXPECT_EQ(config->realUcd9012Controller("main"), main);
  // With the same parameters it is the same member, under an id of each end; a second id of the
  // peer's means that the peer has made its member anew.
  peer.send(announcement(0x42));
  peer.send(Frame::data(0x42, 402).u8(0));
  EXPECT_FALSE(main->pollingEnabled());
  peer.send(announcement(0x44));
  EXPECT_TRUE(config->realUcd9012Controller("main")->pollingEnabled());
}

TEST_F(Access, thePeersBracketsMeanNothing) {
  for (unsigned int const type : {0U, 2U}) {
    peer.send(Frame(4).u64(kRoot | kTheirs).u32(259).u8(type).u32(0));
  }
  EXPECT_TRUE(config->realUcd9012Controller("main"));
  EXPECT_EQ(peer.connection->counters().refused, 0U);
}

TEST_F(Access, anAbortBeginsATextAnew) {
  peer.send(announcement(0x40));
  peer.send(Frame::data(0x40, 389).u8(1).text("old"));
  peer.send(Frame(4).u64(0x40).u32(389).u8(1).u32(0));
  peer.send(Frame::data(0x40, 389).u8(0).text("new"));
  EXPECT_EQ(main->location(), "new");
}

TEST_F(Access, whatAReplicaMakesIsKeptUpToDateByItsOwner) {
  pair.mount(config, kWritable);
  addController(*pair.mirror(), "made there")->pollingEnabledIs(false);
  // Both make this one at once.
  auto const here = addController(*config, "both");
  auto const there = addController(*pair.mirror(), "both");
  pair.flow();
  EXPECT_EQ(config->realUcd9012Controller("both"), here);
  EXPECT_EQ(pair.mirrored("both"), there);
  config->realUcd9012Controller("made there")->locationIs("here");
  here->readyIs(true);
  pair.flow();
  EXPECT_TRUE(there->ready());
  EXPECT_EQ(Zol::digest(*pair.mirror()), Zol::digest(*config));
  EXPECT_EQ(pair.source->counters().refused + pair.replica->counters().refused, 0U);
}

TEST_F(Access, aMemberMadeAnewAtOneEndReplacesThatOfTheOther) {
  pair.mount(config, kWritable);
  addController(*pair.mirror(), "made there");
  struct Case {
    Connection& writer;
    Config& here;
    Config& there;
    char const* name;  // of a member that the other end has made
  };
  pair.flow();
  for (Case const& one : {Case{*pair.source, *config, *pair.mirror(), "made there"},
                          Case{*pair.replica, *pair.mirror(), *config, "main"}}) {
    one.here.realUcd9012Controller(one.name)->locationIs("old");
    pair.flow();
    auto const filler = addController(one.here, "filler");
    while (one.writer.out()->hasSufficientBuffer()) filler->readyIs(!filler->ready());
    one.here.realUcd9012ControllerDel(one.name);
    addController(one.here, one.name);
    pair.flow();
    EXPECT_EQ(one.there.realUcd9012Controller(one.name)->location(), "");
    one.there.realUcd9012Controller(one.name)->readyIs(true);
    pair.flow();
    EXPECT_TRUE(one.here.realUcd9012Controller(one.name)->ready());
    EXPECT_EQ(Zol::digest(*pair.mirror()), Zol::digest(*config));
  }
  EXPECT_EQ(pair.source->counters().unknown + pair.replica->counters().unknown, 0U);
}

TEST_F(Access, whatBothEndsKeepAfterItsRemovalStaysUpToDate) {
  pair.mount(config);
  auto const kept = pair.mirrored("main");
  config->realUcd9012ControllerDel("main");
  main->locationIs(std::string(100000, 'x'));
  pair.flow();
  main->readyIs(true);
  pair.flow();
  EXPECT_TRUE(kept->ready());
}

TEST_F(Access, aReadOnlyReplicaIsHandedOnReadOnly) {
  ReplicaPair far;
  pair.mount(config);
  far.mount(pair.mirror(), kWritable);
  far.mirrored("main")->pollingEnabledIs(false);
  far.flow();
  EXPECT_TRUE(pair.mirrored("main")->pollingEnabled());
  EXPECT_EQ(far.replica->counters().messagesOut, 0U);
}

TEST_F(Access, aMountIsRefusedForWhatIsNotReplicatedOrIsAlready) {
  EXPECT_THROW(peer.connection->mountIs(new Zol::Dir("dir")), Zol::RangeException);
  EXPECT_THROW(peer.connection->mountIs(main), Zol::RangeException);
  ConnectionOptions options;
  options.ownName = std::string(256, 'n');
  EXPECT_THROW(RawPeer{options}, Zol::RangeException);
}

TEST_F(Access, noTurnRunsInsideAListener) {
  struct Pumper : Config::Notifiee {
    using Config::Notifiee::onRealUcd9012Controller;
    void onRealUcd9012Controller(Zol::Name) override { worked = connection->pump(); }
    Connection* connection = nullptr;
    bool worked = true;
  };
  Zol::Ptr<Pumper> const pumper(new Pumper);
  pumper->connection = peer.connection.get();
  pumper->isRegisteredNotifieeIs(true);
  pumper->notifierIs(config);
  addController(*config, "second");
  EXPECT_FALSE(pumper->worked);
  EXPECT_TRUE(peer.connection->pump());
}

TEST_F(Access, aChangeThatLeavesNoMessageOfItsOwnIsCountedOnce) {
  while (peer.connection->out()->hasSufficientBuffer()) main->readyIs(!main->ready());
  main->reloadCauseSortKeyIs(1);
  EXPECT_EQ(peer.connection->counters().coalesced, 0U);
  main->reloadCauseSortKeyIs(2);
  main->reloadCauseSortKeyIs(3);
  EXPECT_EQ(peer.connection->counters().coalesced, 2U);
}

}  // namespace
