// Connections that break and come back: the replica keeps its entities and their listeners, gets
// what has changed meanwhile, loses what the source has no more, and hears each change once.
#include <gtest/gtest.h>

#include <functional>

#include "support/link_up.h"
#include "support/replica_pair.h"
#include "support/tree.h"

namespace {

using namespace test;
using namespace Hardware::Ucd9012;

// Notes what it hears of a controller and of what hangs below it.
class Ear final : public ControllerConfig::Notifiee {
 public:
  explicit Ear(Zol::Ptr<ControllerConfig> const& controller) {
    isRegisteredNotifieeIs(true);
    notifierIs(controller);
    isWeakReferenceIs(true);
  }
  void onLocation() override { heard.push_back("location"); }
  void onPollingEnabled() override { heard.push_back("pollingEnabled"); }
  void onKernelPanicEepromWp() override { heard.push_back("kernelPanicEepromWp"); }
  void onDiagCommandConfig() override { heard.push_back("diagCommandConfig"); }
  void onKernelPanicEepromDexo() override { heard.push_back("kernelPanicEepromDexo"); }
  using ControllerConfig::Notifiee::onReloadCause;
  void onReloadCause(std::uint32_t key) override {
    heard.push_back("reloadCause" + inBrackets(key));
  }
  using ControllerConfig::Notifiee::onVoltageRail;
  void onVoltageRail(std::uint8_t key) override {
    heard.push_back("voltageRail" + inBrackets(key));
  }

  std::vector<std::string> heard;
};

using Heard = std::vector<std::string>;

class Resynchronisation : public testing::Test {
 protected:
  Resynchronisation() {
    main->locationIs("rear");
    main->reloadCauseIs(1, {});
    main->reloadCauseIs(2, {});
    main->voltageRailIs(3, railConfig, railStatus)->sensorMibIs(sensor);
    main->voltageRailIs(4, railConfig, railStatus);
    main->diagCommandConfigIs("command")->parameterIs(1, "text");
    main->kernelPanicEepromDexoIs("eeprom", 1, 2);
    main->kernelPanicEepromWpIs(writeProtect);
    config->controllerIs(main);
    up.reconnect();
    mirror = Zol::ptrCast<Config>(up.mirror(*config));
    twin = mirror->realUcd9012Controller("main");
    ear = new Ear(twin);
  }

  void expectEqual() {
    ASSERT_TRUE(up.mirror(*config)) << up.link->right->error();
    EXPECT_EQ(textOf(*config), textOf(*up.mirror(*config)));
    EXPECT_EQ(Zol::digest(*config), Zol::digest(*up.mirror(*config)));
    EXPECT_EQ(up.link->right->counters().refused + up.link->right->counters().unknown, 0U);
    EXPECT_EQ(up.link->right->counters().messagesOut, 0U);
    EXPECT_EQ(up.link->right->state(), ConnectionState::live);
  }
  // Changes made while the connection is broken.
  void whileCut(std::function<void()> const& change) {
    up.link->cut();
    change();
    up.reconnect();
    expectEqual();
  }

  Zol::Ptr<EntityMib::Sensor> sensor = new EntityMib::Sensor("sensor");
  Zol::Ptr<Fru::Gpo> writeProtect = new Fru::Gpo("wp");
  Zol::Ptr<Environment::Power::VoltageRailConfig> railConfig =
      new Environment::Power::VoltageRailConfig("rail");
  Zol::Ptr<Environment::Power::VoltageRailStatus> railStatus =
      new Environment::Power::VoltageRailStatus("rail");
  Zol::Ptr<Hardware::Gpio::PinConfig> pin = new Hardware::Gpio::PinConfig("pin");
  Zol::Ptr<Config> config = configFactory("config");
  Zol::Ptr<Ucd9012ControllerConfig> main =
      config->realUcd9012ControllerIs("main", "customer", nullptr, pin, nullptr);
  LinkUp up{{config}};
  Zol::Ptr<Config> mirror;
  Zol::Ptr<Ucd9012ControllerConfig> twin;
  Zol::Ptr<Ear> ear;
};

TEST_F(Resynchronisation, whatStayedIsTheSameAndNotHeardOf) {
  Zol::Ptr<Zol::Entity> const rail(twin->voltageRail(3));
  Zol::Ptr<Zol::Entity> const command(twin->diagCommandConfig());
  Zol::Ptr<Zol::Entity> const there(twin->voltageRail(3)->sensorMib());
  auto const listeners = [&] {
    std::size_t count = 0;
    for (auto const* at = twin->zolNotifiees().head(); at; at = Zol::ListRawGeneric::next(*at)) {
      ++count;
    }
    return count;
  };
  std::size_t const before = listeners();
  for (int i = 0; i < 100; ++i) whileCut([] {});
  EXPECT_EQ(up.mirror(*config), mirror);
  EXPECT_EQ(mirror->realUcd9012Controller("main"), twin);
  EXPECT_EQ(mirror->controller("main"), twin);
  EXPECT_EQ(twin->voltageRail(3), rail);
  EXPECT_EQ(twin->voltageRail(3)->sensorMib(), there);
  EXPECT_EQ(twin->diagCommandConfig(), command);
  EXPECT_EQ(ear->heard, Heard());
  EXPECT_EQ(listeners(), before);
}

TEST_F(Resynchronisation, whatChangedIsHeardOfOnce) {
  whileCut([&] {
    main->locationIs("front");
    main->reloadCauseIs(2, {ReloadCauses(1), CauseType(0), 7, true});
    main->reloadCauseIs(5, {});
    main->voltageRailIs(9, railConfig, railStatus);
    main->kernelPanicEepromWpIs(new Fru::Gpo("other"));
  });
  std::ranges::sort(ear->heard);
  EXPECT_EQ(ear->heard, (Heard{"kernelPanicEepromWp", "location", "reloadCause[2]",
                               "reloadCause[5]", "voltageRail[9]"}));
}

TEST_F(Resynchronisation, whatVanishedIsRemovedOnce) {
  whileCut([&] {
    main->reloadCauseDel(1);
    main->voltageRailDel(3);
    main->diagCommandConfigDel();
    main->kernelPanicEepromDexoDel();
    main->kernelPanicEepromWpIs(nullptr);
    config->controllerDel("main");
  });
  std::ranges::sort(ear->heard);
  EXPECT_EQ(ear->heard, (Heard{"diagCommandConfig", "kernelPanicEepromDexo", "kernelPanicEepromWp",
                               "reloadCause[1]", "voltageRail[3]"}));
  EXPECT_EQ(mirror->realUcd9012Controller("main"), twin);
}

TEST_F(Resynchronisation, whatWasReplacedIsReplacedThereToo) {
  Zol::Ptr<Zol::Entity> const rail(twin->voltageRail(3));
  whileCut([&] {
    main->voltageRailDel(3);
    main->voltageRailIs(3, nullptr, railStatus);
    main->kernelPanicEepromDexoIs("eeprom", 1, 9);
  });
  EXPECT_NE(Zol::Ptr<Zol::Entity>(twin->voltageRail(3)), rail);
  EXPECT_EQ(ear->heard, (Heard{"voltageRail[3]", "voltageRail[3]", "kernelPanicEepromDexo"}));
  // Another class under the same name, with another holder.
  whileCut([&] {
    config->realUcd9012ControllerDel("main");
    config->controllerIs(config->realPsocControllerIs("main", "c", nullptr, pin, nullptr));
  });
  EXPECT_FALSE(mirror->realUcd9012Controller("main"));
  EXPECT_EQ(mirror->controller("main"), mirror->realPsocController("main"));
}

TEST_F(Resynchronisation, aSourceThatRestartedWithLessIsFollowed) {
  up.link->cut();
  Zol::Ptr<Config> const restarted = configFactory("config");
  restarted->realUcd9012ControllerIs("main", "customer", nullptr,
                                     new Hardware::Gpio::PinConfig("pin"), nullptr);
  config = restarted;
  up.roots = {config};
  up.reconnect();
  expectEqual();
  EXPECT_EQ(up.mirror(*config), mirror);
  EXPECT_EQ(mirror->realUcd9012Controller("main"), twin);
  std::ranges::sort(ear->heard);
  EXPECT_EQ(ear->heard,
            (Heard{"diagCommandConfig", "kernelPanicEepromDexo", "kernelPanicEepromWp", "location",
                   "reloadCause[1]", "reloadCause[2]", "voltageRail[3]", "voltageRail[4]"}));
}

TEST_F(Resynchronisation, aRootOfAnotherClassTakesTheName) {
  mirror = nullptr;
  up.link->cut();
  Zol::Ptr<Status> const status = statusFactory("config");
  status->realUcd9012ControllerIs("main")->temperatureIs(41.5);
  up.roots = {status};
  up.reconnect();
  ASSERT_TRUE(Zol::ptrCast<Status>(up.mirror(*status)));
  EXPECT_EQ(textOf(*status), textOf(*up.mirror(*status)));
  EXPECT_TRUE(ear->notifier());  // held here
  twin = nullptr;
  EXPECT_FALSE(ear->notifier());  // and by nobody else
}

TEST_F(Resynchronisation, whatThePeerDoesNotAnnounceAgainIsLetGoOnceAllIsThere) {
  Zol::Ptr<Status> const status = statusFactory("status");
  status->realUcd9012ControllerIs("main");
  up.roots = {config, status};
  up.reconnect();
  Zol::Entity* const kept = up.mirror(*status).get();
  up.link->cut();
  up.reconnect();
  EXPECT_EQ(up.mirror(*status).get(), kept);

  class End final : public Status::Notifiee {
   public:
    void onZeroReferences() override { gone = true; }
    bool gone = false;
  };
  Zol::Ptr<End> const end(new End);
  end->isRegisteredNotifieeIs(true);
  end->notifierIs(Zol::ptrCast<Status>(up.mirror(*status)));
  end->isWeakReferenceIs(true);
  up.roots = {config};
  up.connect();
  for (int i = 0; i < 2; ++i) up.link->pump();
  EXPECT_FALSE(end->gone);
  up.link->settle();
  EXPECT_TRUE(end->gone);
  expectEqual();
}

TEST_F(Resynchronisation, aPeerCanBeForgotten) {
  mirror = nullptr;
  twin = nullptr;
  up.link->cut();
  up.link.reset();
  EXPECT_TRUE(ear->notifier());
  Zol::NboAttrLog::forgetPeer("source");
  EXPECT_FALSE(ear->notifier());
  up.reconnect();
  expectEqual();
}

TEST_F(Resynchronisation, aNewConnectionEndsTheOneThatNobodyFoundBroken) {
  auto const older = std::move(*up.link);
  up.reconnect();
  EXPECT_EQ(older.right->error(), "the peer has come back over another connection");
  EXPECT_EQ(older.right->state(), ConnectionState::closed);
  EXPECT_EQ(up.mirror(*config), mirror);
  expectEqual();
  EXPECT_EQ(ear->heard, Heard());
}

TEST_F(Resynchronisation, statesAreAnnounced) {
  std::vector<std::string> states;
  auto const note = [&](Connection&, ConnectionState state) { states.push_back(toText(state)); };
  using Clock = std::chrono::steady_clock;
  Clock::time_point now;
  up.options.clock = [&] { return now; };
  up.options.staleAfter = std::chrono::seconds(10);
  up.connect();
  up.link->right->stateListenerIs(note);
  EXPECT_EQ(up.link->right->state(), ConnectionState::connecting);
  up.link->settle();
  EXPECT_EQ(states, (Heard{"catching up", "live"}));
  auto const heardAt = up.link->right->lastMessageTime();
  now += std::chrono::seconds(11);
  up.link->right->pump();
  main->locationIs("up");
  up.link->settle();
  EXPECT_GT(up.link->right->lastMessageTime(), heardAt);
  up.link->cut();
  EXPECT_EQ(states, (Heard{"catching up", "live", "stale", "live", "closed"}));

  // A sign of life keeps an idle connection from going stale.
  up.options.aliveEvery = std::chrono::seconds(3);
  up.reconnect();
  states.clear();
  up.link->right->stateListenerIs(note);
  for (int i = 0; i < 10; ++i) {
    now += std::chrono::seconds(4);
    up.link->settle();
  }
  EXPECT_EQ(states, Heard());
  EXPECT_EQ(up.link->right->counters().unknown, 0U);
}

TEST_F(Resynchronisation, whatTheReplicaChangedMeanwhileGivesWayToTheSource) {
  for (auto const access : {MountOptions::readOnlyForPeer, MountOptions::writableByPeer}) {
    up.connect({}, {}, {access});
    up.link->settle();
    up.link->cut();
    twin->locationIs("mine");
    twin->reloadCauseIs(77, {});
    twin->voltageRailDel(3);
    twin->diagCommandConfigDel();
    addController(*mirror, "strange");
    up.connect({}, {}, {access});
    up.link->settle();
    EXPECT_EQ(textOf(*config), textOf(*mirror));
    EXPECT_EQ(mirror->realUcd9012Controller("main"), twin);
    // And what is written from now on counts again.
    if (access == MountOptions::writableByPeer) {
      twin->locationIs("from there");
      up.link->settle();
      EXPECT_EQ(main->location(), "from there");
    }
  }
}

TEST_F(Resynchronisation, aListenerThatComesWhileTheConnectionIsBrokenHearsOfWhatChanges) {
  Zol::Ptr<Ear> late;
  whileCut([&] {
    main->locationIs("front");
    late = new Ear(twin);
  });
  EXPECT_EQ(late->heard, Heard{"location"});
}

TEST_F(Resynchronisation, aTextThatWasUnderWayArrivesWholeOrNotAtAll) {
  std::string const text(200000, 'x');
  up.link->cut();
  main->locationIs(text);
  Plan cut;
  cut.cutAfter = 100000;
  up.connect(cut);
  up.link->settle();
  EXPECT_FALSE(up.link->right->isOpen());
  EXPECT_EQ(twin->location(), "rear");
  main->locationIs("short");
  up.reconnect();
  expectEqual();
  EXPECT_EQ(ear->heard, Heard{"location"});
}

TEST_F(Resynchronisation, aBracketThatWasCutOffRemovesNothing) {
  up.link->cut();
  for (std::uint32_t key = 10; key < 2000; ++key) main->reloadCauseIs(key, {});
  main->reloadCauseDel(1);
  Plan cut;
  cut.cutAfter = 60000;
  up.connect(cut);
  up.link->settle();
  EXPECT_GT(twin->reloadCauseCount(), 100U);
  EXPECT_EQ(twin->reloadCauseIteratorConst(1).key(), 1U);
  EXPECT_EQ(std::ranges::count(ear->heard, "reloadCause[1]"), 0);
  up.reconnect();
  expectEqual();
  EXPECT_EQ(std::ranges::count(ear->heard, "reloadCause[1]"), 1);
  EXPECT_EQ(ear->heard.size(), 1991U);
}

TEST_F(Resynchronisation, whatWasTakenOutOfItsHolderIsKeptAsLongAsItIsReferredTo) {
  config->realUcd9012ControllerDel("main");
  up.link->settle();
  ASSERT_EQ(mirror->controller("main"), twin);
  whileCut([&] { main->locationIs("nowhere"); });
  EXPECT_EQ(mirror->controller("main"), twin);
  EXPECT_EQ(ear->heard, Heard{"location"});
  mirror = nullptr;
  twin = nullptr;
  whileCut([&] { config->controllerDel("main"); });
  EXPECT_FALSE(ear->notifier());
}

TEST_F(Resynchronisation, whatLeavesItsHolderMeanwhileStaysTheSameWhereItIsReferredTo) {
  whileCut([&] {
    config->realUcd9012ControllerDel("main");
    main->locationIs("nowhere");
  });
  EXPECT_FALSE(mirror->realUcd9012Controller("main"));
  EXPECT_EQ(mirror->controller("main"), twin);
  EXPECT_EQ(ear->heard, Heard{"location"});
}

TEST_F(Resynchronisation, ofAPeerWithoutANameNothingIsKept) {
  auto const attach = [&] {
    auto link = std::make_unique<Link>(ConnectionOptions(), ConnectionOptions());
    link->left->mountIs(config);
    link->settle();
    return link;
  };
  auto const first = attach();
  auto const before = first->right->mounted("config");
  first->cut();
  auto const second = attach();
  EXPECT_NE(second->right->mounted("config"), before);
  EXPECT_EQ(textOf(*second->right->mounted("config")), textOf(*before));
  EXPECT_NE(before, mirror);
}

TEST(TwoSources, haveOneRootEach) {
  Zol::Ptr<Config> const config = configFactory("board");
  Zol::Ptr<Status> const status = statusFactory("board");
  addController(*config, "main");
  status->realUcd9012ControllerIs("main");
  LinkUp first({config});
  LinkUp second({status});
  second.sourceName = "other source";
  first.reconnect();
  second.reconnect();
  auto const mirror = first.mirror(*config);
  auto const mirrorStatus = second.mirror(*status);
  first.link->cut();
  status->realUcd9012Controller("main")->temperatureIs(1.5);
  second.link->settle();
  first.reconnect();
  second.link->cut();
  second.reconnect();
  EXPECT_EQ(first.mirror(*config), mirror);
  EXPECT_EQ(second.mirror(*status), mirrorStatus);
  EXPECT_EQ(textOf(*config), textOf(*mirror));
  EXPECT_EQ(textOf(*status), textOf(*mirrorStatus));
}

TEST(Chain, aMiddleThatRestartsIsFollowedWithoutATrace) {
  Zol::Ptr<Config> const config = configFactory("board");
  addController(*config, "main")->locationIs("rear");
  addController(*config, "second");
  auto middle = std::make_unique<LinkUp>(LinkUp::Roots{config});
  middle->reconnect();
  LinkUp end({middle->mirror(*config)});
  end.sourceName = "middle";
  end.reconnect();
  auto const mirror = Zol::ptrCast<Config>(end.mirror(*config));
  Zol::Ptr<Ear> const ear(new Ear(mirror->realUcd9012Controller("main")));

  end.link->cut();
  end.roots.clear();
  middle.reset();
  config->realUcd9012ControllerDel("second");
  middle = std::make_unique<LinkUp>(LinkUp::Roots{config});
  middle->reconnect();
  // The middle serves what it has only once it has all of it.
  ASSERT_TRUE(middle->link->right->synced("board"));
  end.roots = {middle->mirror(*config)};
  end.reconnect();
  EXPECT_EQ(end.mirror(*config), mirror);
  EXPECT_EQ(textOf(*config), textOf(*mirror));
  EXPECT_EQ(ear->heard, Heard());
  config->realUcd9012Controller("main")->locationIs("front");
  middle->link->settle();
  end.link->settle();
  EXPECT_EQ(ear->heard, Heard{"location"});
}

TEST(ManyReplicas, comeAndGoInAnyOrderWhileChangesGoOn) {
  Hand hand(7);
  Zol::Ptr<Config> const config = configFactory("board");
  hand.fill(*config);
  std::vector<std::optional<Link>> links(6);
  for (int round = 0; round < 200; ++round) {
    std::size_t const at = hand.random()() % links.size();
    auto& link = links[at];
    if (link && hand.random()() % 3 == 0) {
      link.reset();
    } else if (!link) {
      ConnectionOptions replica;
      replica.ownName = numbered("replica", static_cast<unsigned int>(at));
      ConnectionOptions source;
      source.ownName = "board";
      link.emplace(source, replica, Plan{.maxPiece = 3000});
      link->left->mountIs(config);
    }
    for (int i = 0; i < 5; ++i) hand.change(*config);
    for (auto& one : links) {
      for (int i = 0; one && i < 3; ++i) one->pump();
    }
  }
  for (auto& link : links) {
    if (!link) continue;
    ASSERT_TRUE(link->settle());
    EXPECT_EQ(textOf(*config), textOf(*link->right->mounted("board")));
    EXPECT_EQ(link->right->state(), ConnectionState::live);
  }
  links.clear();
  Zol::NboAttrLog::forgetPeer("board");
}

}  // namespace
