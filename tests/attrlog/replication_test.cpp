// What a replica holds and hears, from the announcement of its root on.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "support/replica_pair.h"

namespace {

using namespace test;
using Hardware::Ucd9012::OperationalMode;

// Counts what it hears of one controller.
class Ear : public ControllerConfig::Notifiee {
 public:
  explicit Ear(Zol::Ptr<ControllerConfig> const& controller) {
    isRegisteredNotifieeIs(true);
    notifierIs(controller);
  }
  void onPollingEnabled() override { heard.push_back("pollingEnabled"); }
  void onReloadCauseSortKey() override { heard.push_back("reloadCauseSortKey"); }
  void onOperationalMode() override { heard.push_back("operationalMode"); }
  void onLocation() override { heard.push_back("location"); }
  void onAutoStartPowerProgram() override { heard.push_back("autoStartPowerProgram"); }
  void onNotificationException(Zol::AttributeId) override { heard.push_back("exception"); }
  using ControllerConfig::Notifiee::onNotificationException;

  std::vector<std::string> heard;
};

class RootEar : public Config::Notifiee {
 public:
  explicit RootEar(Zol::Ptr<Config> const& config) {
    isRegisteredNotifieeIs(true);
    notifierIs(config);
  }
  using Config::Notifiee::onRealUcd9012Controller;
  void onRealUcd9012Controller(Zol::Name name) override {
    heard.push_back(std::string(name.view()) +
                    (notifier()->realUcd9012Controller(name) ? " added" : " removed"));
  }

  std::vector<std::string> heard;
};

class Replication : public testing::Test {
 protected:
  Replication() {
    main = addController(*config, "main");
    main->pollingEnabledIs(false);
    main->reloadCauseSortKeyIs(7);
    main->operationalModeIs(OperationalMode::diagMode);
    main->locationIs("rear");
  }

  void expectEqualTrees() {
    ASSERT_TRUE(pair.mirror());
    EXPECT_EQ(Zol::digest(*config), Zol::digest(*pair.mirror()));
  }
  void expectNoEcho() {
    EXPECT_EQ(pair.replica->counters().messagesOut, 0U);
    EXPECT_EQ(pair.replica->counters().refused, 0U);
    EXPECT_EQ(pair.replica->counters().unknown, 0U);
  }

  ReplicaPair pair;
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<Ucd9012ControllerConfig> main;
};

TEST_F(Replication, aFreshReplicaHoldsTheWholeTree) {
  config->realUcd9032ControllerIs("other", "c2", nullptr, nullptr, nullptr)->readyIs(true);
  config->realPsocControllerIs("main", "c3", nullptr, nullptr, nullptr);
  pair.mount(config);

  expectEqualTrees();
  auto const mirrored = pair.mirrored("main");
  EXPECT_FALSE(mirrored->pollingEnabled());
  EXPECT_EQ(mirrored->reloadCauseSortKey(), 7U);
  EXPECT_EQ(mirrored->operationalMode(), OperationalMode::diagMode);
  EXPECT_EQ(mirrored->location(), "rear");
  EXPECT_EQ(mirrored->customerName(), "customer");
  EXPECT_EQ(mirrored->parent(), pair.mirror());
  EXPECT_EQ(mirrored->fullName(), "board/realUcd9012Controller[main]");
  EXPECT_TRUE(pair.mirror()->realUcd9032Controller("other")->ready());
  EXPECT_TRUE(pair.mirror()->realPsocController("main"));
  EXPECT_TRUE(pair.replica->synced("board"));
  EXPECT_EQ(pair.replica->peerName(), "source");
  expectNoEcho();
}

TEST_F(Replication, eachLiveChangeIsHeardOnceAndNothingGoesBack) {
  pair.mount(config);
  Zol::Ptr<Ear> const ear(new Ear(pair.mirrored("main")));

  main->pollingEnabledIs(true);
  main->reloadCauseSortKeyIs(8);
  main->operationalModeIs(OperationalMode::modeNormal);
  main->locationIs("front");
  main->autoStartPowerProgramIs(true);
  pair.flow();

  EXPECT_EQ(ear->heard,
            (std::vector<std::string>{"pollingEnabled", "reloadCauseSortKey", "operationalMode",
                                      "location", "autoStartPowerProgram"}));
  expectEqualTrees();
  expectNoEcho();
}

TEST_F(Replication, membersComeAndGo) {
  pair.mount(config);
  Zol::Ptr<RootEar> const ear(new RootEar(pair.mirror()));

  addController(*config, "second")->locationIs("left");
  pair.flow();
  EXPECT_EQ(pair.mirrored("second")->location(), "left");
  config->realUcd9012Controller("second")->readyIs(true);
  pair.flow();
  EXPECT_TRUE(pair.mirrored("second")->ready());
  config->realUcd9012ControllerDel("main");
  pair.flow();

  EXPECT_EQ(ear->heard, (std::vector<std::string>{"second added", "main removed"}));
  EXPECT_FALSE(pair.mirrored("main"));
  expectEqualTrees();
  expectNoEcho();
}

TEST_F(Replication, aMemberMadeAgainStartsFromItsDefaults) {
  pair.mount(config);
  config->realUcd9012ControllerDel("main");
  main = nullptr;
  config->realUcd9012ControllerIs("main", "another customer", nullptr, nullptr, nullptr)
      ->modelNameIs("B");
  pair.flow();

  EXPECT_EQ(pair.mirrored("main")->customerName(), "another customer");
  EXPECT_TRUE(pair.mirrored("main")->pollingEnabled());
  EXPECT_EQ(pair.mirrored("main")->modelName(), "B");
  expectEqualTrees();
}

TEST_F(Replication, aLocalChangeOnAReadOnlyReplicaStaysLocal) {
  pair.mount(config);
  Zol::Ptr<Ear> const ear(new Ear(pair.mirrored("main")));
  pair.mirrored("main")->pollingEnabledIs(true);
  pair.flow();

  EXPECT_FALSE(main->pollingEnabled());
  EXPECT_EQ(ear->heard, std::vector<std::string>{"pollingEnabled"});
  EXPECT_EQ(pair.replica->counters().listenerFailures, 0U);
  expectNoEcho();
}

TEST_F(Replication, aWritableReplicaSendsItsChangesAndHearsNoEcho) {
  pair.mount(config, {.access = MountOptions::writableByPeer});
  Zol::Ptr<Ear> const ear(new Ear(main));
  pair.mirrored("main")->pollingEnabledIs(true);
  pair.mirrored("main")->locationIs("moved");
  pair.flow();

  EXPECT_EQ(ear->heard, (std::vector<std::string>{"pollingEnabled", "location"}));
  expectEqualTrees();
  std::uint64_t const sent = pair.replica->counters().messagesOut;
  for (std::uint32_t i = 0; i < 100; ++i) main->reloadCauseSortKeyIs(100 + i);
  pair.flow();
  EXPECT_EQ(pair.replica->counters().messagesOut, sent);
  expectEqualTrees();
}

TEST_F(Replication, valuesThatDoNotFitAreOwedAndTheNewestArrives) {
  pair.mount(config);
  Zol::Ptr<Ear> const ear(new Ear(pair.mirrored("main")));
  // Nothing is pumped, so the buffer runs full after some thousand messages.
  for (std::uint32_t i = 0; i < 200000; ++i) main->reloadCauseSortKeyIs(1000 + i);
  EXPECT_LT(pair.source->out()->pending().size(), ConnectionOptions().outCapacity);
  EXPECT_GT(pair.source->counters().coalesced, 0U);
  pair.flow();

  EXPECT_EQ(pair.mirrored("main")->reloadCauseSortKey(), 200999U);
  EXPECT_LT(ear->heard.size(), 200000U);
  expectEqualTrees();
  // Afterwards changes go out at once again.
  main->readyIs(true);
  EXPECT_FALSE(pair.source->out()->pending().empty());
  pair.flow();
  expectEqualTrees();
}

TEST_F(Replication, aTreeLargerThanTheBufferArrivesWhole) {
  ConnectionOptions small;
  small.outCapacity = 1;
  ReplicaPair narrow(small);
  for (unsigned int i = 0; i < 3000; ++i) {
    auto const made = addController(*config, numbered("c", i));
    made->reloadCauseSortKeyIs(i);
    made->locationIs(std::string(i % 50, 'x'));
  }
  narrow.source->mountIs(config);
  // Members come and go while the walk is under way.
  for (unsigned int i = 0; i < 40; ++i) {
    narrow.source->pump();
    narrow.replica->pump();
    config->realUcd9012ControllerDel(numbered("c", i * 60));
    addController(*config, numbered("n", i))->readyIs(true);
    config->realUcd9012Controller(numbered("c", i * 60 + 1))->locationIs("changed");
  }
  narrow.flow();

  ASSERT_TRUE(narrow.mirror());
  EXPECT_EQ(narrow.mirror()->realUcd9012ControllerCount(), config->realUcd9012ControllerCount());
  EXPECT_EQ(Zol::digest(*narrow.mirror()), Zol::digest(*config));
  EXPECT_TRUE(narrow.replica->synced("board"));
}

TEST_F(Replication, longTextsArriveInPiecesAndExactly) {
  std::string const bytes = [] {
    std::string all;
    for (int i = 0; i < 100000; ++i) all.push_back(static_cast<char>(i * 7));
    return all;
  }();
  main->locationIs(bytes);
  pair.mount(config);
  EXPECT_EQ(pair.mirrored("main")->location(), bytes);

  Zol::Ptr<Ear> const ear(new Ear(pair.mirrored("main")));
  for (std::size_t const length : {0U, 1U, 32734U, 32735U, 32736U, 65470U, 65471U, 1000000U}) {
    std::string const text(length, 'a');
    main->locationIs(text);
    pair.flow();
    EXPECT_EQ(pair.mirrored("main")->location(), text) << length;
  }
  EXPECT_EQ(ear->heard.size(), 8U);
  expectEqualTrees();
}

TEST_F(Replication, aTextChangedInItsRunEndsAsTheNewestText) {
  pair.mount(config);
  main->descriptionIs(std::string(300000, 'o'));
  main->modelNameIs("model");
  pair.source->pump();
  pair.replica->pump();
  main->descriptionIs(std::string(200000, 'n'));
  main->locationIs("short");
  pair.flow();

  EXPECT_EQ(pair.mirrored("main")->description(), std::string(200000, 'n'));
  EXPECT_EQ(pair.mirrored("main")->modelName(), "model");
  expectEqualTrees();
}

TEST_F(Replication, twoReplicasAndAChainHoldTheSameTree) {
  ReplicaPair second;
  ReplicaPair chained;
  pair.mount(config);
  second.mount(config);
  chained.mount(pair.mirror());
  main->locationIs("everywhere");
  addController(*config, "late");
  config->realUcd9012ControllerDel("main");
  addController(*config, "main")->readyIs(true);
  pair.flow();
  second.flow();
  chained.flow();

  expectEqualTrees();
  EXPECT_EQ(Zol::digest(*second.mirror()), Zol::digest(*config));
  EXPECT_EQ(Zol::digest(*chained.mirror()), Zol::digest(*config));
  EXPECT_EQ(chained.replica->counters().messagesOut, 0U);
  EXPECT_EQ(chained.source->counters().messagesIn, 0U);
}

TEST_F(Replication, aReferenceThatIsNotReplicatedArrivesAsNullAndIsCounted) {
  struct LocalDesc : Hardware::DexoDesc {
    using DexoDesc::DexoDesc;
    [[nodiscard]] bool zolHasAttrLogInterface() const override { return false; }
  };
  Zol::Ptr<Hardware::DexoDesc> const descriptor(new LocalDesc("bus"));
  config->realUcd9032ControllerIs("wired", "c", descriptor, nullptr, nullptr);
  pair.mount(config);
  ASSERT_TRUE(pair.mirror()->realUcd9032Controller("wired"));
  EXPECT_FALSE(pair.mirror()->realUcd9032Controller("wired")->dexoDesc());
  EXPECT_EQ(pair.source->counters().unreplicated, 1U);
  expectNoEcho();
}

TEST_F(Replication, mountingRefusesWhatCouldNotBeTold) {
  EXPECT_THROW(pair.source->mountIs(nullptr), Zol::RangeException);
  pair.mount(config);
  pair.source->mountIs(config);
  EXPECT_THROW(pair.source->mountIs(Hardware::Ucd9012::configFactory("board")),
               Zol::NameInUseException);
  EXPECT_THROW(pair.replica->mountIs(pair.mirror()), Zol::RangeException);
  EXPECT_THROW(pair.source->mountIs(Hardware::Ucd9012::configFactory(std::string(256, 'n'))),
               Zol::RangeException);
  pair.flow();
  EXPECT_EQ(pair.replica->mountedNames(), std::vector<Zol::Name>{"board"});
  expectEqualTrees();
}

TEST_F(Replication, severalRootsGoInBothDirections) {
  auto const back = Hardware::Ucd9012::configFactory("back");
  addController(*back, "b")->readyIs(true);
  pair.mount(config);
  pair.replica->mountIs(back);
  pair.flow();
  auto const received = Zol::ptrCast<Config>(pair.source->mounted("back"));
  ASSERT_TRUE(received);
  EXPECT_EQ(Zol::digest(*received), Zol::digest(*back));
  back->realUcd9012Controller("b")->locationIs("x");
  main->locationIs("y");
  pair.flow();
  EXPECT_EQ(Zol::digest(*received), Zol::digest(*back));
  expectEqualTrees();
}

// Listeners that do what a listener may do while a message is being applied.
class Meddler : public ControllerConfig::Notifiee {
 public:
  using Act = void (*)(Replication&);
  explicit Meddler(Zol::Ptr<ControllerConfig> const& controller) {
    isRegisteredNotifieeIs(true);
    notifierIs(controller);
  }
  void onPollingEnabled() override {
    ++calls;
    act();
  }
  int calls = 0;
  std::function<void()> act;
};

TEST_F(Replication, listenersMayPumpCloseAndDeleteWhileAMessageIsApplied) {
  pair.mount(config);
  Zol::Ptr<Meddler> const meddler(new Meddler(pair.mirrored("main")));
  meddler->act = [&] { EXPECT_FALSE(pair.replica->pump()); };
  main->pollingEnabledIs(true);
  pair.flow();
  EXPECT_EQ(meddler->calls, 1);

  meddler->act = [&] { pair.mirror()->realUcd9012ControllerDel("main"); };
  main->pollingEnabledIs(false);
  main->locationIs("gone at the replica");
  pair.flow();
  EXPECT_EQ(meddler->calls, 2);
  EXPECT_FALSE(pair.mirrored("main"));
  EXPECT_TRUE(pair.replica->isOpen());

  auto const second = addController(*config, "second");
  pair.flow();
  meddler->notifierIs(pair.mirrored("second"));
  meddler->act = [&] { pair.replica->close(); };
  second->pollingEnabledIs(false);
  pair.flow();
  EXPECT_FALSE(pair.replica->isOpen());
  EXPECT_EQ(pair.replica->error(), "");
  EXPECT_EQ(pair.source->error(), "closed by the peer");
  second->pollingEnabledIs(true);
  EXPECT_FALSE(pair.mirrored("second")->pollingEnabled());
}

TEST_F(Replication, theOwnersListenerMayClampWhatAReplicaWrites) {
  pair.mount(config, {.access = MountOptions::writableByPeer});
  Zol::Ptr<Meddler> const clamp(new Meddler(main));
  clamp->act = [&] { main->pollingEnabledIs(false); };
  pair.mirrored("main")->pollingEnabledIs(true);
  pair.flow();
  EXPECT_FALSE(main->pollingEnabled());
  EXPECT_FALSE(pair.mirrored("main")->pollingEnabled());
}

TEST_F(Replication, afterTheEndBothTreesLiveOn) {
  pair.mount(config);
  auto const mirror = pair.mirror();
  pair.source->close();
  pair.flow();
  EXPECT_FALSE(pair.replica->isOpen());
  EXPECT_FALSE(pair.source->pump());

  main->locationIs("later");
  config->realUcd9012ControllerDel("main");
  EXPECT_EQ(mirror->realUcd9012Controller("main")->location(), "rear");
  mirror->realUcd9012ControllerDelAll();
  pair.source->mountIs(config);
  EXPECT_FALSE(pair.source->mounted("board"));
}

TEST_F(Replication, anAdapterThatOutlivesItsEntityIsWithoutOne) {
  pair.mount(config);
  auto const kept = main->zolNboAttrLogSa(pair.source->out());
  ASSERT_TRUE(kept);
  config->realUcd9012ControllerDel("main");
  main = nullptr;
  EXPECT_EQ(kept->zolNotifierEntity(), nullptr);
  EXPECT_EQ(kept->references(), 1U);
  EXPECT_EQ(kept->name(), "");
  pair.flow();
  expectEqualTrees();
}

TEST_F(Replication, deletedEntitiesLeaveNothingBehindOnTheLog) {
  pair.mount(config);
  std::size_t const sourceAdapters = pair.source->demuxer()->reactorCount();
  std::size_t const replicaAdapters = pair.replica->demuxer()->reactorCount();
  for (unsigned int i = 0; i < 1000; ++i) {
    addController(*config, numbered("c", i));
    if (i % 100 == 0) pair.flow();
  }
  for (unsigned int i = 0; i < 1000; ++i) config->realUcd9012ControllerDel(numbered("c", i));
  pair.flow();
  EXPECT_EQ(pair.source->demuxer()->reactorCount(), sourceAdapters);
  EXPECT_EQ(pair.replica->demuxer()->reactorCount(), replicaAdapters);
  EXPECT_EQ(config->references(), 2U);  // this test and the mount
  expectEqualTrees();
}

TEST(ARootInADirectory, ReplicatesAsAnyOther) {
  auto const config = Hardware::Ucd9012::configFactory("kept");
  Zol::Dir::root().entryIs(config);
  ReplicaPair pair;
  pair.mount(config);
  addController(*config, "main");
  pair.flow();
  ASSERT_TRUE(pair.mirror("kept"));
  EXPECT_EQ(pair.mirror("kept")->fullName(), "kept");
  EXPECT_EQ(Zol::digest(*pair.mirror("kept")), Zol::digest(*config));
  Zol::Dir::root().entryDel("kept");
  EXPECT_TRUE(pair.source->isOpen());
}

}  // namespace
