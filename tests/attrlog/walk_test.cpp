// Flow-outs: what is owed when there is no room, walks that stop and go on, texts in pieces, and
// turns among many adapters.
#include <gtest/gtest.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;
using namespace Hardware::Ucd9012;

class Walks : public testing::Test {
 protected:
  Walks() : pair(narrow()) {}
  static ConnectionOptions narrow() {
    ConnectionOptions options;
    options.outCapacity = 1;
    return options;
  }
  static UcdCause cause(std::uint32_t id) {
    return {ReloadCauses::watchdog, CauseType::gpio, id, false};
  }
  void mountAndRead() {
    pair.mount(config);
    mirror = pair.mirrored("main");
    ASSERT_TRUE(mirror);
  }
  void expectEqual() {
    ASSERT_TRUE(pair.mirror());
    EXPECT_EQ(Zol::digest(*config), Zol::digest(*pair.mirror()));
    EXPECT_EQ(pair.replica->counters().refused + pair.replica->counters().unknown, 0U);
  }
  // Writes until the source has no room for a small message.
  void fillBuffer() {
    while (pair.source->out()->hasSufficientBuffer()) {
      main->reloadCauseSortKeyIs(main->reloadCauseSortKey() + 1);
    }
  }
  [[nodiscard]] Zol::NboAttrLog::FlowOut* flow(Zol::Entity& entity) const {
    return entity.zolNboAttrLogSa(pair.source->out())->flowOut();
  }

  ReplicaPair pair;
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<Ucd9012ControllerConfig> main = addController(*config, "main");
  Zol::Ptr<Ucd9012ControllerConfig> mirror;
};

TEST_F(Walks, aCollectionLargerThanTheBufferArrivesWhole) {
  for (std::uint32_t i = 0; i < 20000; ++i) main->reloadCauseIs(i, cause(i));
  for (unsigned int i = 0; i < 256; ++i) {
    main->voltageRailIs(static_cast<std::uint8_t>(i), nullptr, nullptr)->overrideVoutOvLimitIs(i);
  }
  mountAndRead();
  EXPECT_EQ(mirror->reloadCauseCount(), 20000U);
  EXPECT_EQ(mirror->voltageRailCount(), 256U);
  expectEqual();
}

TEST_F(Walks, changesWithoutRoomAreOwedByKeyAndTheNewestArrive) {
  mountAndRead();
  fillBuffer();
  for (std::uint32_t i = 0; i < 60; ++i) main->reloadCauseIs(i, cause(i));
  for (std::uint32_t i = 0; i < 60; ++i) main->reloadCauseIs(i, cause(i + 1000));
  for (std::uint32_t i = 0; i < 60; i += 2) main->reloadCauseDel(i);
  main->voltageRailIs(4, nullptr, nullptr)->overrideVoutUvLimitIs(1.0);
  main->diagCommandConfigIs("command")->parameterIs(7, "seven");
  main->kernelPanicEepromWpIs(new Fru::Gpo("wp"));
  main->externalVoltageRailIs(3, {1, 2});
  config->controllerIs(main);
  EXPECT_GE(pair.source->counters().coalesced, 60U);
  ASSERT_TRUE(flow(*main));
  EXPECT_TRUE(flow(*main)->hasDirtyAttributes());
  pair.flow();
  EXPECT_EQ(mirror->reloadCauseCount(), 30U);
  EXPECT_EQ(mirror->reloadCause(59), cause(1059));
  EXPECT_FALSE(flow(*main));
  expectEqual();
}

TEST_F(Walks, whatIsOwedIsToldByAttributeWithTheNumberOfEntities) {
  using Owed = std::map<std::string, std::size_t>;
  Zol::Ptr<Ucd9012ControllerConfig> const other = addController(*config, "other");
  mountAndRead();
  EXPECT_EQ(pair.source->owed(), Owed());
  fillBuffer();
  main->reloadCauseSortKeyIs(0);
  for (std::uint32_t i = 0; i < 9; ++i) main->reloadCauseIs(i, cause(i));
  main->pollingEnabledIs(false);
  other->pollingEnabledIs(false);
  // Its rails are not known to the peer: they are owed by their holder.
  other->voltageRailIs(1, nullptr, nullptr)->overrideVoutUvLimitIs(1.0);
  config->realUcd9012ControllerDel("main");
  EXPECT_EQ(pair.source->owed(), (Owed{{"pollingEnabled", 2},
                                       {"realUcd9012Controller", 1},
                                       {"reloadCause", 1},
                                       {"reloadCauseSortKey", 1},
                                       {"voltageRail", 1}}));
  pair.flow();
  EXPECT_EQ(pair.source->owed(), Owed());
  // Of a root that has just been mounted, all that does not fit at once.
  Zol::Ptr<Config> const wide = Hardware::Ucd9012::configFactory("wide");
  for (unsigned int i = 0; i < 5000; ++i) addController(*wide, numbered("c", i));
  pair.source->mountIs(wide);
  pair.source->pump();
  EXPECT_EQ(pair.source->owed().at("realUcd9012Controller"), 1U);
  EXPECT_GT(pair.source->owed().at("location"), 1U);
  pair.source->close("enough");
  pair.flow();
  EXPECT_EQ(pair.replica->error(), "closed by the peer: enough");
}

TEST_F(Walks, aMemberDeletedAndMadeAgainWithoutRoomStartsFromItsDefaults) {
  main->voltageRailIs(3, nullptr, nullptr)->overrideVoutUvLimitIs(2.0);
  main->diagModeConfigIs("mode")->diagCommandConfigIs("old")->epochIs(5);
  mountAndRead();
  fillBuffer();
  main->voltageRailDel(3);
  main->voltageRailIs(3, nullptr, nullptr)->overrideVoutOvLimitIs(3.0);
  main->diagModeConfig("mode")->diagCommandConfigIs("new")->parameterIs(1, "x");
  pair.flow();
  EXPECT_EQ(mirror->voltageRail(3)->overrideVoutUvLimit(), Units::Volts());
  EXPECT_EQ(mirror->voltageRail(3)->overrideVoutOvLimit(), Units::Volts(3.0));
  EXPECT_EQ(mirror->diagModeConfig("mode")->diagCommandConfig()->epoch(), 0U);
  expectEqual();
}

TEST_F(Walks, aHashedWalkGoesOnBehindABookmarkThatHasGone) {
  for (unsigned int i = 0; i < 3000; ++i) main->diagModeConfigIs(numbered("mode", i));
  pair.source->mountIs(config);
  for (int turns = 0; turns < 2000 && pair.replica->mounted("board") == nullptr; ++turns) {
    pair.source->pump();
    pair.replica->pump();
  }
  // Each turn stops somewhere; whatever the walk stands on goes, and the map grows.
  unsigned int next = 3000;
  for (int turn = 0; turn < 60; ++turn) {
    pair.source->pump();
    pair.replica->pump();
    auto it = main->diagModeConfigIteratorConst();
    for (int skipped = 0; skipped < turn * 40 && it; ++skipped) ++it;
    std::vector<Zol::Name> gone;
    for (int i = 0; i < 30 && it; ++i, ++it) gone.push_back(it.key());
    for (auto const& name : gone) main->diagModeConfigDel(name);
    for (int i = 0; i < 60; ++i) main->diagModeConfigIs(numbered("mode", next++));
  }
  pair.flow();
  mirror = pair.mirrored("main");
  EXPECT_EQ(mirror->diagModeConfigCount(), main->diagModeConfigCount());
  expectEqual();
}

TEST_F(Walks, longTextsOfOneEntityDoNotMix) {
  main->locationIs(std::string(100000, 'l'));
  main->modelNameIs("short");
  main->descriptionIs(std::string(70000, 'd'));
  auto const diag = main->diagCommandConfigIs("command");
  diag->parameterIs(1, std::string(100000, '1'));
  diag->parameterIs(2, std::string(65470, '2'));
  diag->parameterIs(3, "");
  mountAndRead();
  expectEqual();
  // Live ones behind a text that is set already.
  main->descriptionIs(std::string(200000, 'e'));
  main->modelNameIs("shorter");
  diag->parameterIs(2, std::string(99999, '3'));
  diag->parameterIs(1, "now short");
  diag->epochIs(4);
  pair.flow();
  EXPECT_EQ(mirror->description(), std::string(200000, 'e'));
  expectEqual();
}

TEST_F(Walks, aKeyedTextChangedOrRemovedInItsRunEndsAsItStands) {
  auto const diag = main->diagCommandConfigIs("command");
  mountAndRead();
  auto const replica = mirror->diagCommandConfig();
  for (bool const removed : {false, true}) {
    diag->parameterIs(7, std::string(300000, 'o'));
    pair.source->pump();
    pair.replica->pump();
    ASSERT_TRUE(flow(*diag) && flow(*diag)->hasValueKey());
    if (removed) {
      diag->parameterDel(7);
    } else {
      diag->parameterIs(7, std::string(200000, 'n'));
    }
    EXPECT_EQ(flow(*diag)->pendingAborts().count(259), 1U);
    pair.flow();
    EXPECT_EQ(replica->parameter(7), removed ? "" : std::string(200000, 'n'));
    EXPECT_EQ(replica->parameterCount(), removed ? 0U : 1U);
    expectEqual();
  }
  // Of each length, and a text that takes the place of one: the replica has one of its own, and no
  // listener of it hears of a removal.
  for (std::size_t const length : {0U, 1U, 32734U, 32735U, 32736U, 65470U, 65471U, 1000000U}) {
    diag->parameterIs(8, std::string(length, 'x'));
    pair.flow();
    EXPECT_EQ(replica->parameter(8), std::string(length, 'x')) << length;
  }
  diag->zolNboAttrLogSa(pair.source->out())->doSerializeOrphan();
  pair.flow();
  expectEqual();
}

TEST_F(Walks, aReferenceThatWaitsHoldsNothingElseUp) {
  using Output = Reluctant<Fru::Gpo>;
  Zol::Ptr<Output> const output(new Output("wp"));
  output->refusals = 1000;
  main->kernelPanicEepromWpIs(output);
  main->modelNameIs("stands behind it");
  mountAndRead();
  EXPECT_FALSE(mirror->kernelPanicEepromWp());
  EXPECT_EQ(mirror->modelName(), "stands behind it");
  EXPECT_FALSE(pair.source->pump());
  main->debugPowerOffIs(true);
  pair.flow();
  EXPECT_TRUE(mirror->debugPowerOff());
  EXPECT_FALSE(mirror->kernelPanicEepromWp());
  output->refusals = 0;
  main->debugPowerOffIs(false);
  pair.flow();
  EXPECT_EQ(mirror->kernelPanicEepromWp()->name(), "wp");
  expectEqual();
}

TEST_F(Walks, aReferenceGoesOnWhenWhatItWaitsForIsAnnounced) {
  using Desc = Reluctant<Hardware::DexoDesc>;
  Zol::Ptr<Desc> const desc(new Desc("desc"));
  desc->refusals = 1000;
  auto const other = Hardware::Ucd9012::configFactory("other");
  mountAndRead();
  pair.mount(other);
  auto const late = config->realUcd9012ControllerIs("late", "c", desc, nullptr, nullptr);
  other->controllerIs(main);
  other->controllerIs(late);
  auto const known = addController(*config, "known");
  other->controllerIs(known);
  pair.flow();
  EXPECT_FALSE(pair.source->pump());
  EXPECT_TRUE(flow(*other));
  EXPECT_FALSE(pair.mirror("other")->controller("late"));
  desc->refusals = 0;
  main->readyIs(true);
  addController(*config, "wakes the root");
  pair.flow();
  EXPECT_EQ(pair.mirror("other")->controller("late"), pair.mirrored("late"));
  EXPECT_FALSE(flow(*other));
  EXPECT_EQ(Zol::digest(*other), Zol::digest(*pair.mirror("other")));
  expectEqual();
}

// The walk of `controller` waits for what another tree has not announced yet.
class BlockedWalk : public Walks {
 protected:
  void mountBlocked() {
    awaited = other->realUcd9012ControllerIs("awaited", std::string(70000, 'c'), nullptr, nullptr,
                                             nullptr);
    pair.mount(other);
    config->controllerIs(main);
    config->controllerIs(awaited);
    pair.mount(config);
    ASSERT_TRUE(flow(*config) && flow(*config)->hasBookmark());
  }
  void release() {
    config->controllerDel("awaited");
    other->realUcd9012ControllerDel("awaited");
    pair.flow();
    EXPECT_FALSE(flow(*config));
    expectEqual();
  }

  Zol::Ptr<Config> const other = Hardware::Ucd9012::configFactory("other");
  Zol::Ptr<Ucd9012ControllerConfig> awaited;
};

TEST_F(BlockedWalk, holdsUpNothingThatComesToBeOwedInFrontOfIt) {
  addController(*config, "goes")->readyIs(true);
  mountBlocked();
  addController(*config, "comes");
  pair.flow();
  EXPECT_TRUE(pair.mirrored("comes"));
  config->realUcd9012ControllerDel("goes");
  pair.flow();
  EXPECT_FALSE(pair.mirrored("goes"));
  release();
}

TEST_F(BlockedWalk, isNotTakenForThatOfAnotherCollection) {
  for (unsigned int i = 0; i < 1100; ++i) addController(*config, numbered("c", i));
  mountBlocked();
  for (unsigned int i = 0; i < 1100; ++i) config->realUcd9012ControllerDel(numbered("c", i));
  pair.flow();
  EXPECT_EQ(pair.mirror()->realUcd9012ControllerCount(), 1U);
  release();
}

TEST_F(Walks, aReferenceGoesOnWhenWhatItWaitsForHasLeftTheTree) {
  Zol::Ptr<Reluctant<Hardware::DexoDesc>> const desc(new Reluctant<Hardware::DexoDesc>("desc"));
  desc->refusals = 1000;
  auto const other = Hardware::Ucd9012::configFactory("other");
  mountAndRead();
  pair.mount(other);
  other->controllerIs(config->realUcd9012ControllerIs("late", "c", desc, nullptr, nullptr));
  pair.flow();
  EXPECT_FALSE(pair.mirror("other")->controller("late"));
  desc->refusals = 0;
  config->realUcd9012ControllerDel("late");
  pair.flow();
  EXPECT_TRUE(pair.mirror("other")->controller("late"));
  EXPECT_FALSE(pair.mirrored("late"));
  EXPECT_EQ(Zol::digest(*other), Zol::digest(*pair.mirror("other")));
  expectEqual();
}

TEST_F(Walks, nobodyStarvesBehindALongDebt) {
  auto const quick = addController(*config, "quick");
  mountAndRead();
  main->descriptionIs(std::string(std::size_t{8} << 20, 'd'));
  int turns = 0;
  quick->locationIs("soon");
  quick->readyIs(true);
  for (; turns < 1000 && !pair.mirrored("quick")->ready(); ++turns) {
    pair.source->pump();
    pair.replica->pump();
  }
  EXPECT_LT(turns, 10);
  EXPECT_NE(mirror->description(), main->description());
  pair.flow();
  expectEqual();
}

TEST_F(Walks, tenThousandEntitiesAreServedInTurn) {
  for (unsigned int i = 0; i < 10000; ++i) {
    main->diagModeConfigIs(numbered("mode", i))->operationalModeIs(OperationalMode::diagMode);
  }
  mountAndRead();
  EXPECT_EQ(mirror->diagModeConfigCount(), 10000U);
  EXPECT_FALSE(pair.source->pump());
  expectEqual();
}

}  // namespace
