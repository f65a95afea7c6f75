// A peer that goes and comes back: what it finds, what its listeners hear, and what is kept of it.
#include <gtest/gtest.h>

#include <set>

#include "support/raw_peer.h"
#include "support/replica_pair.h"
#include "support/tree.h"

namespace {

using namespace test;
using Hardware::Ucd9012::Status;

class Reconnect : public testing::Test {
 protected:
  Reconnect() {
    hand.fill(*config);
    connect();
  }
  ~Reconnect() override {
    source->close();
    replica->close();
    Zol::NboAttrLog::forgetPeer("agent");
  }

  // A new connection between the same two ends.
  void connect() {
    ConnectionOptions here;
    here.ownName = "agent";
    ConnectionOptions there;
    there.peerName = "agent";
    std::tie(source, replica) = Zol::NboAttrLog::connectionPair(here, there);
    source->mountIs(config);
  }
  void flow() {
    for (int turns = 0; turns < 100000; ++turns) {
      bool const worked = source->pump();
      if (!replica->pump() && !worked) return;
    }
  }
  void cut() {
    source->close();
    replica->close();
  }
  [[nodiscard]] Zol::Ptr<Config> mirror() const {
    return Zol::ptrCast<Config>(replica->mounted("config"));
  }
  void expectEqual() {
    ASSERT_TRUE(mirror()) << replica->error();
    EXPECT_EQ(textOf(*config), textOf(*mirror()));
    EXPECT_EQ(Zol::digest(*config), Zol::digest(*mirror()));
    EXPECT_EQ(replica->counters().refused + replica->counters().unknown, 0U);
    EXPECT_TRUE(replica->synced("config"));
  }

  Hand hand{3};
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("config");
  Zol::Ptr<Connection> source;
  Zol::Ptr<Connection> replica;
};

// Counts all that it hears of a root and of one controller in it.
class RootEar : public Config::Notifiee {
 public:
  explicit RootEar(Zol::Ptr<Config> const& config) {
    isRegisteredNotifieeIs(true);
    notifierIs(config);
  }
  using Config::Notifiee::onController;
  using Config::Notifiee::onDexoDesc;
  using Config::Notifiee::onRealPsocController;
  using Config::Notifiee::onRealUcd9012Controller;
  void onDexoDesc(Zol::Name) override { ++heard; }
  void onRealUcd9012Controller(Zol::Name) override { ++heard; }
  void onRealPsocController(Zol::Name) override { ++heard; }
  void onController(Zol::Name) override { ++heard; }
  int heard = 0;
};

TEST_F(Reconnect, thePeerFindsTheSameObjectsAndHearsOnlyWhatHasChanged) {
  flow();
  expectEqual();
  auto const root = mirror();
  std::set<Zol::Entity const*> objects;
  auto const collect = [&] {
    std::set<Zol::Entity const*> found;
    for (auto it = root->realUcd9012ControllerIteratorConst(); it; ++it) {
      found.insert(it.ptr().get());
      found.insert(it->dexoDesc().get());
      found.insert(it->resetGpioPinConfig().get());
      for (auto rail = it->voltageRailIteratorConst(); rail; ++rail) {
        found.insert(rail.ptr().get());
        found.insert(rail->sensorMib().get());
      }
      found.insert(it->diagCommandConfig().get());
    }
    return found;
  };
  objects = collect();
  ASSERT_GT(objects.size(), 6U);
  Ears const ears(*root);
  Zol::Ptr<RootEar> const ear(new RootEar(root));
  std::uint32_t const mutations = root->mutationCounter();

  cut();
  connect();
  flow();
  expectEqual();
  EXPECT_EQ(mirror(), root);
  EXPECT_EQ(collect(), objects);
  EXPECT_EQ(ear->heard, 0);
  EXPECT_GE(root->mutationCounter(), mutations);

  cut();
  for (int i = 0; i < 50; ++i) hand.change(*config);
  config->realPsocControllerDelAll();
  config->realUcd9012ControllerIs("fresh", "c", nullptr, nullptr, nullptr)->readyIs(true);
  connect();
  flow();
  expectEqual();
  EXPECT_EQ(mirror(), root);
  EXPECT_GT(ear->heard, 0);
  EXPECT_EQ(ears.outdated(), "");
}

// Notes what it hears of the parameters of a command.
class ParameterEar : public Hardware::Ucd9012::Ucd9012DiagConfig::Notifiee {
 public:
  using Diag = Hardware::Ucd9012::Ucd9012DiagConfig;
  explicit ParameterEar(Zol::Ptr<Diag> const& diag) {
    isRegisteredNotifieeIs(true);
    notifierIs(diag);
  }
  using Diag::Notifiee::onParameter;
  void onParameter(std::uint32_t key) override {
    heard.push_back(numbered("", static_cast<unsigned int>(notifier()->parameter(key).size())));
  }
  std::vector<Zol::Name> heard;
};

TEST_F(Reconnect, aLongTextIsNotTakenOutWhileItIsOnItsWayAgain) {
  auto const controller = config->realUcd9012ControllerIs("only", "c", nullptr, nullptr, nullptr);
  auto const diag = controller->diagCommandConfigIs("command");
  diag->parameterIs(1, std::string(400000, 'a'));
  flow();
  Zol::Ptr<ParameterEar> const ear(
      new ParameterEar(mirror()->realUcd9012Controller("only")->diagCommandConfig()));
  cut();
  connect();
  flow();
  EXPECT_TRUE(ear->heard.empty());
  cut();
  diag->parameterIs(1, std::string(300000, 'b'));
  connect();
  flow();
  EXPECT_EQ(ear->heard, std::vector<Zol::Name>{"300000"});
  expectEqual();
}

TEST_F(Reconnect, aMemberMadeAnewMeanwhileTakesThePlaceOfItsNamesake) {
  config->realUcd9012ControllerIs("only", "one", nullptr, nullptr, nullptr)->locationIs("left");
  flow();
  auto const old = mirror()->realUcd9012Controller("only");
  cut();
  config->realUcd9012ControllerDel("only");
  config->realUcd9012ControllerIs("only", "other", nullptr, nullptr, nullptr)->modelNameIs("B");
  connect();
  flow();
  auto const made = mirror()->realUcd9012Controller("only");
  EXPECT_NE(made, old);
  EXPECT_EQ(made->customerName(), "other");
  EXPECT_EQ(made->location(), "");
  expectEqual();
}

TEST_F(Reconnect, aHundredTimesLeavesNothingBehind) {
  flow();
  auto const root = mirror();
  std::size_t const adapters = replica->demuxer()->reactorCount();
  auto const listeners = root->zolNotifiees().count();
  for (int i = 0; i < 100; ++i) {
    cut();
    connect();
    flow();
  }
  expectEqual();
  EXPECT_EQ(mirror(), root);
  EXPECT_EQ(root->zolNotifiees().count(), listeners);
  EXPECT_EQ(replica->demuxer()->reactorCount(), adapters);
}

TEST_F(Reconnect, aCatchUpCutOffAnywhereIsMadeGoodByTheNext) {
  flow();
  auto const root = mirror();
  for (int cutAfter = 0; cutAfter < 12; ++cutAfter) {
    cut();
    for (int i = 0; i < 5; ++i) hand.change(*config);
    connect();
    for (int turn = 0; turn < cutAfter; ++turn) {
      source->pump();
      if (turn % 2 == 0) replica->pump();
    }
  }
  cut();
  connect();
  flow();
  expectEqual();
  EXPECT_EQ(mirror(), root);
}

TEST_F(Reconnect, aPeerThatIsBackBeforeItsOldConnectionBrokeEndsThat) {
  flow();
  auto const root = mirror();
  auto const oldReplica = replica;
  auto const oldSource = source;
  connect();
  flow();
  expectEqual();
  EXPECT_EQ(mirror(), root);
  EXPECT_FALSE(oldReplica->isOpen());
  EXPECT_EQ(oldReplica->error(), "the peer has come back over another connection");
  oldSource->close();
}

TEST_F(Reconnect, whatIsNotAnnouncedAgainIsKeptNoLonger) {
  Zol::Ptr<EntityMib::Sensor> sensor(new EntityMib::Sensor("sensor"));
  auto const rail = config->realUcd9012ControllerIs("only", "c", nullptr, nullptr, nullptr)
                        ->voltageRailIs(1, nullptr, nullptr);
  rail->sensorMibIs(sensor);
  flow();
  Zol::Ptr<EntityMib::Sensor> const kept =
      mirror()->realUcd9012Controller("only")->voltageRail(1)->sensorMib();
  EXPECT_EQ(kept->references(), 4U);  // the rail, this test, the connection, and what is kept
  cut();
  rail->sensorMibIs(nullptr);
  sensor = nullptr;
  source = nullptr;
  replica = nullptr;
  EXPECT_EQ(kept->references(), 3U);
  connect();
  flow();
  expectEqual();
  EXPECT_EQ(kept->references(), 1U);
}

TEST_F(Reconnect, aPeerCanBeForgotten) {
  flow();
  Zol::Ptr<Config> const root = mirror();
  Zol::NboAttrLog::forgetPeer("agent");  // in use: stays
  connect();
  flow();
  EXPECT_EQ(mirror(), root);
  cut();
  Zol::NboAttrLog::forgetPeer("agent");
  Zol::NboAttrLog::forgetPeer("nobody");
  connect();
  flow();
  expectEqual();
  EXPECT_NE(mirror(), root);
}

TEST(APeerThatNeverSyncs, isNotKeptWithoutEnd) {
  ConnectionOptions options;
  options.maxOrphans = 4;
  options.maxMounts = 1;
  Zol::Ptr<Zol::Entity> first;
  for (std::uint64_t round = 0; round < 10; ++round) {
    RawPeer peer(options);
    peer.send(Frame::hello());
    for (std::uint64_t i = 0; i < 4; ++i) {
      auto const name = numbered("s", static_cast<unsigned int>(10 * round + i));
      peer.send(Frame::orphan(0x20 + 2 * i, "EntityMib::Sensor", name.view()));
    }
    if (round == 0)
      first = peer.connection->demuxer()->entity(Zol::EntityId(0x20).seenFromOtherEnd());
    peer.keeps = true;
  }
  ASSERT_TRUE(first);
  EXPECT_EQ(first->references(), 1U);
  Zol::NboAttrLog::forgetPeer("raw");
}

TEST(APeerWithoutAName, isAnotherOneEachTime) {
  auto const config = Hardware::Ucd9012::configFactory("config");
  Zol::Ptr<Zol::Entity> first;
  for (int i = 0; i < 2; ++i) {
    auto const [source, replica] = Zol::NboAttrLog::connectionPair();
    source->mountIs(config);
    for (int turns = 0; turns < 10; ++turns) {
      source->pump();
      replica->pump();
    }
    ASSERT_TRUE(replica->mounted("config"));
    EXPECT_NE(replica->mounted("config"), first);
    first = replica->mounted("config");
  }
}

}  // namespace
