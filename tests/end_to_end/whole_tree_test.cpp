// Whole trees of every class with every attribute set, and what becomes of them on other ends.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <vector>

#include "support/replica_pair.h"
#include "support/tree.h"

namespace {

using namespace test;
using Hardware::Ucd9012::Status;

// Both roots, at a source.
class WholeTree : public testing::Test {
 protected:
  WholeTree() {
    hand.fill(*config);
    hand.fill(*status);
  }
  void mountBoth(Connection& end, MountOptions options = {}) {
    end.mountIs(config, options);
    end.mountIs(status, options);
  }
  void expectEqual(Connection const& end) {
    for (Zol::Entity* const root :
         {static_cast<Zol::Entity*>(config.get()), static_cast<Zol::Entity*>(status.get())}) {
      Zol::Ptr<Zol::Entity> const mirror = end.mounted(root->name());
      ASSERT_TRUE(mirror) << end.error();
      EXPECT_EQ(textOf(*root), textOf(*mirror));
      EXPECT_EQ(Zol::digest(*root), Zol::digest(*mirror));
      EXPECT_TRUE(end.synced(root->name()));
    }
    Zol::NboAttrLog::ConnectionCounters const counters = end.counters();
    EXPECT_EQ(counters.refused + counters.unknown + counters.unreplicated, 0U);
    EXPECT_EQ(counters.unknownEnums + counters.listenerFailures, 0U);
  }
  void changeBoth(int times) {
    for (int i = 0; i < times; ++i) {
      hand.change(*config);
      hand.change(*status);
    }
  }

  Hand hand{1};
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("config");
  Zol::Ptr<Status> status = Hardware::Ucd9012::statusFactory("status");
  ReplicaPair pair;
};

TEST_F(WholeTree, bothRootsArriveWholeOverOneConnectionAndStayCurrent) {
  mountBoth(*pair.source);
  pair.flow();
  expectEqual(*pair.replica);

  Ears const configEars(*pair.replica->mounted("config"));
  Ears const statusEars(*pair.replica->mounted("status"));
  for (int i = 0; i < 200; ++i) {
    changeBoth(1);
    pair.flow();
  }
  expectEqual(*pair.replica);
  EXPECT_EQ(configEars.outdated() + statusEars.outdated(), "");
  EXPECT_EQ(pair.replica->counters().messagesOut, 0U);
}

TEST_F(WholeTree, allOfItCanBeTakenAwayAgain) {
  mountBoth(*pair.source);
  pair.flow();
  std::size_t const empty = [] {
    ReplicaPair fresh;
    fresh.source->mountIs(Hardware::Ucd9012::configFactory("config"));
    fresh.source->mountIs(Hardware::Ucd9012::statusFactory("status"));
    fresh.flow();
    return fresh.replica->demuxer()->reactorCount();
  }();
  config->controllerDelAll();
  config->realUcd9012ControllerDelAll();
  config->realUcd9032ControllerDelAll();
  config->realPsocControllerDelAll();
  config->dexoDescDelAll();
  status->controllerDelAll();
  status->realUcd9012ControllerDelAll();
  status->realUcd9032ControllerDelAll();
  status->realPsocControllerDelAll();
  hand = Hand(2);  // and what the trees referred to
  pair.flow();
  expectEqual(*pair.replica);
  EXPECT_EQ(pair.source->demuxer()->reactorCount(), empty);
  EXPECT_EQ(pair.replica->demuxer()->reactorCount(), empty);
}

TEST_F(WholeTree, goesOverASocket) {
  int ends[2];
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
  pair.source = Connection::overFd(ends[0], {});
  pair.replica = Connection::overFd(ends[1], {});
  mountBoth(*pair.source);
  pair.flow();
  changeBoth(100);
  pair.flow();
  expectEqual(*pair.replica);
}

TEST_F(WholeTree, fansOutToEightOneOfWhichStopsReading) {
  std::vector<ReplicaPair> pairs(8);
  for (auto& each : pairs) mountBoth(*each.source);
  for (auto& each : pairs) each.flow();
  ReplicaPair& stopped = pairs[3];
  for (int i = 0; i < 300; ++i) {
    changeBoth(1);
    stopped.source->pump();
    for (auto& each : pairs) {
      if (&each != &stopped) each.flow();
    }
  }
  for (auto& each : pairs) {
    if (&each != &stopped) expectEqual(*each.replica);
  }
  EXPECT_LT(stopped.source->out()->pending().size(), 2 * ConnectionOptions().outCapacity);
  stopped.flow();
  expectEqual(*stopped.replica);
}

TEST_F(WholeTree, goesDownAChainOfThreeAndNothingGoesBack) {
  mountBoth(*pair.source);
  pair.flow();
  ReplicaPair second;
  second.source->mountIs(pair.replica->mounted("config"));
  second.source->mountIs(pair.replica->mounted("status"));
  second.flow();
  expectEqual(*second.replica);
  for (int i = 0; i < 200; ++i) {
    changeBoth(1);
    pair.flow();
    second.flow();
  }
  expectEqual(*pair.replica);
  expectEqual(*second.replica);
  EXPECT_EQ(pair.replica->counters().messagesOut + second.replica->counters().messagesOut, 0U);
}

TEST_F(WholeTree, rootsMayGoInBothDirections) {
  pair.source->mountIs(config);
  pair.replica->mountIs(status);
  pair.flow();
  changeBoth(100);
  pair.flow();
  EXPECT_EQ(textOf(*config), textOf(*pair.replica->mounted("config")));
  EXPECT_EQ(textOf(*status), textOf(*pair.source->mounted("status")));
}

TEST_F(WholeTree, aWritableReplicaChangesItAll) {
  mountBoth(*pair.source, {MountOptions::writableByPeer});
  pair.flow();
  for (int i = 0; i < 200; ++i) {
    hand.change(*pair.replica->mounted("config"));
    hand.change(*pair.replica->mounted("status"));
    pair.flow();
  }
  expectEqual(*pair.replica);
  std::uint64_t const sent = pair.replica->counters().messagesOut;
  changeBoth(200);
  pair.flow();
  expectEqual(*pair.replica);
  EXPECT_EQ(pair.replica->counters().messagesOut, sent);
}

}  // namespace
