// Brackets around a walk: what they mark, what takes a mark away, what they take out at their end;
// and sync modes, which can stand in for them.
#include <gtest/gtest.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"
#include "support/tree.h"

namespace {

using namespace test;
using namespace Hardware::Ucd9012;
using Type = Zol::StreamAdapter::AttrTransactionType;
using Mode = Zol::StreamAdapter::SyncMode;

class Transactions : public testing::Test {
 protected:
  Transactions() {
    hand.fill(*config);
    hand.fill(*status);
    pair.source->mountIs(config);
    pair.source->mountIs(status);
    pair.flow();
  }

  // The first member of a collection of the source, and what stands at its place in the replica.
  Ucd9012ControllerConfig& controller(Config& root) {
    return *root.realUcd9012Controller(config->realUcd9012ControllerIteratorConst().key());
  }
  Ucd9012ControllerStatus& controllerStatus(Status& root) {
    return *root.realUcd9012Controller(status->realUcd9012ControllerIteratorConst().key());
  }
  [[nodiscard]] Config& there() const { return *pair.mirror("config"); }
  [[nodiscard]] Status& statusThere() const {
    return dynamic_cast<Status&>(*pair.replica->mounted("status"));
  }
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> adapter(Zol::Entity& entity) {
    return entity.zolNboAttrLogSa(pair.source->out());
  }
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> adapterThere(Zol::Entity& entity) {
    return entity.zolNboAttrLogSa(pair.replica->out());
  }
  // Sends a marker for a collection of an entity of the source.
  void mark(Zol::Entity& entity, Zol::AttributeId id, Type type) {
    adapter(entity)->sendTransactionMarker(id, type, 0);
    pair.flow();
  }
  void bracket(Zol::Entity& entity, Zol::AttributeId id) {
    mark(entity, id, Type::begin);
    mark(entity, id, Type::end);
  }
  // Has the source send one member once more.
  template <class Key>
  void resend(Zol::Entity& entity, Zol::AttributeId id, Key key) {
    adapter(entity)->flagsIs(Zol::flagAnnounced, false);
    adapter(entity)->doNotification(id, &key);
    adapter(entity)->flagsIs(Zol::flagAnnounced, true);
    pair.flow();
  }

  Hand hand{3};
  Zol::Ptr<Config> config = configFactory("config");
  Zol::Ptr<Status> status = statusFactory("status");
  ReplicaPair pair;
};

// Every collection of every class.
TEST_F(Transactions, aBracketAroundNothingTakesOutAllMembers) {
  auto const expectEmptied = [&](Zol::Entity& here, Zol::Entity& twin, Zol::AttributeId id,
                                 auto const& count) {
    SCOPED_TRACE(std::string(here.fullName().view()) + " " + std::to_string(id));
    EXPECT_NE(count(), 0U);
    mark(here, id, Type::begin);
    EXPECT_NE(count(), 0U);
    mark(here, id, Type::end);
    EXPECT_EQ(count(), 0U);
    EXPECT_FALSE(adapterThere(twin)->has(Zol::flagApplying));
  };
  Zol::Ptr<Ucd9012ControllerConfig> const chip(&controller(*config));
  Zol::Ptr<Ucd9012ControllerConfig> const twin(&controller(there()));
  Zol::Ptr<Ucd9012ControllerStatus> const state(&controllerStatus(*status));
  Zol::Ptr<Ucd9012ControllerStatus> const stateTwin(&controllerStatus(statusThere()));
  expectEmptied(*chip->diagCommandConfig(), *twin->diagCommandConfig(),
                Ucd9012DiagConfig::Id::parameter,
                [&] { return twin->diagCommandConfig()->parameterCount(); });
  expectEmptied(*chip, *twin, ControllerConfig::Id::voltageRail,
                [&] { return twin->voltageRailCount(); });
  expectEmptied(*chip, *twin, ControllerConfig::Id::reloadCause,
                [&] { return twin->reloadCauseCount(); });
  expectEmptied(*chip, *twin, ControllerConfig::Id::psocReloadCause,
                [&] { return twin->psocReloadCauseCount(); });
  expectEmptied(*chip, *twin, ControllerConfig::Id::pageFaultCause,
                [&] { return twin->pageFaultCauseCount(); });
  expectEmptied(*chip, *twin, ControllerConfig::Id::externalVoltageRail,
                [&] { return twin->externalVoltageRailCount(); });
  expectEmptied(*chip, *twin, ControllerConfig::Id::diagModeConfig,
                [&] { return twin->diagModeConfigCount(); });
  expectEmptied(*state, *stateTwin, ControllerStatus::Id::diagModeStatus,
                [&] { return stateTwin->diagModeStatusCount(); });
  expectEmptied(*config, there(), Config::Id::controller,
                [&] { return there().controllerCount(); });
  expectEmptied(*config, there(), Config::Id::dexoDesc, [&] { return there().dexoDescCount(); });
  expectEmptied(*config, there(), Config::Id::realUcd9012Controller,
                [&] { return there().realUcd9012ControllerCount(); });
  expectEmptied(*config, there(), Config::Id::realUcd9032Controller,
                [&] { return there().realUcd9032ControllerCount(); });
  expectEmptied(*config, there(), Config::Id::realPsocController,
                [&] { return there().realPsocControllerCount(); });
  expectEmptied(*status, statusThere(), Status::Id::controller,
                [&] { return statusThere().controllerCount(); });
  expectEmptied(*status, statusThere(), Status::Id::realUcd9012Controller,
                [&] { return statusThere().realUcd9012ControllerCount(); });
  expectEmptied(*status, statusThere(), Status::Id::realUcd9032Controller,
                [&] { return statusThere().realUcd9032ControllerCount(); });
  expectEmptied(*status, statusThere(), Status::Id::realPsocController,
                [&] { return statusThere().realPsocControllerCount(); });
  EXPECT_EQ(pair.replica->counters().messagesOut, 0U);
  EXPECT_EQ(pair.replica->counters().refused, 0U);
}

TEST_F(Transactions, whatIsSentInsideABracketStaysAndIsNotHeardOf) {
  auto& chip = controller(*config);
  auto& twin = controller(there());
  Ears const ears(there());
  std::string const before = textOf(there());
  std::uint32_t const told = there().mutationCounter();
  for (Zol::AttributeId const id : {Config::Id::dexoDesc, Config::Id::controller}) {
    mark(*config, id, Type::begin);
    for (auto it = config->dexoDescIteratorConst(); it; ++it) {
      resend(*config, Config::Id::dexoDesc, it.key());
    }
    for (auto it = config->controllerIteratorConst(); it; ++it) {
      resend(*config, Config::Id::controller, it.key());
    }
    mark(*config, id, Type::end);
  }
  mark(chip, ControllerConfig::Id::reloadCause, Type::begin);
  for (auto it = chip.reloadCauseIteratorConst(); it; ++it) {
    EXPECT_TRUE(twin.reloadCauseIteratorConst(it.key()).entry()->zolMarkedForDeletion());
    resend(chip, ControllerConfig::Id::reloadCause, it.key());
    EXPECT_FALSE(twin.reloadCauseIteratorConst(it.key()).entry()->zolMarkedForDeletion());
  }
  mark(chip, ControllerConfig::Id::reloadCause, Type::end);
  EXPECT_EQ(textOf(there()), before);
  EXPECT_EQ(ears.outdated(), "");
  EXPECT_GE(there().mutationCounter(), told);
}

TEST_F(Transactions, onlyAnEndRemoves) {
  auto& chip = controller(*config);
  Zol::AttributeId const id = ControllerConfig::Id::reloadCause;
  std::string const before = textOf(there());
  mark(chip, id, Type::begin);
  mark(chip, id, Type::abort);
  mark(chip, id, Type::begin);
  EXPECT_EQ(textOf(there()), before);
  resend(chip, id, chip.reloadCauseIteratorConst().key());
  mark(chip, id, Type::end);
  EXPECT_EQ(controller(there()).reloadCauseCount(), 1U);
  // Without a bracket there are no marks.
  mark(chip, ControllerConfig::Id::psocReloadCause, Type::end);
  EXPECT_EQ(controller(there()).psocReloadCauseCount(), chip.psocReloadCauseCount());
}

TEST_F(Transactions, aChildThatTheStreamDoesNotKnowIsTakenOutAndASingletonIsNot) {
  auto& twin = controller(there());
  Zol::Ptr<Zol::Entity> const single(twin.diagCommandConfig());
  addController(there(), "strange");
  for (auto it = config->realUcd9012ControllerIteratorConst(); it; ++it) {
    EXPECT_FALSE(adapterThere(*there().realUcd9012Controller(it.key()))->has(Zol::flagStale));
  }
  mark(*config, Config::Id::realUcd9012Controller, Type::end);
  EXPECT_FALSE(there().realUcd9012Controller("strange"));
  EXPECT_EQ(textOf(*config), textOf(there()));

  mark(controller(*config), ControllerConfig::Id::diagCommandConfig, Type::begin);
  EXPECT_TRUE(adapterThere(*single)->has(Zol::flagStale));
  mark(controller(*config), ControllerConfig::Id::diagCommandConfig, Type::end);
  EXPECT_EQ(twin.diagCommandConfig(), single);
}

TEST_F(Transactions, aTextUnderWayIsDroppedByAnAbortAndByAnEnd) {
  auto& chip = controller(*config);
  auto& twin = controller(there());
  auto const sa = adapterThere(twin);
  auto const demuxer = pair.replica->demuxer();
  for (Type const type : {Type::begin, Type::abort, Type::end}) {
    Zol::String8 const old = twin.location();
    auto const flow = demuxer->flowInIs(sa->entityId());
    flow->iterFor(ControllerConfig::Id::location);
    // Of another text: nothing.
    mark(chip, ControllerConfig::Id::modelName, type);
    EXPECT_TRUE(flow->hasIter());
    mark(chip, ControllerConfig::Id::location, type);
    EXPECT_EQ(flow->hasIter(), type == Type::begin);
    EXPECT_EQ(demuxer->flowIn(sa->entityId()) != nullptr, type == Type::begin);
    EXPECT_EQ(twin.location(), old);
    demuxer->flowInDel(sa->entityId());
  }
  // A keyed text is dropped by an abort; the end of a bracket leaves it.
  auto& diag = *chip.diagCommandConfig();
  auto const diagThere = adapterThere(*twin.diagCommandConfig());
  auto const flow = demuxer->flowInIs(diagThere->entityId());
  flow->idxIs(std::uint32_t{7});
  flow->iterFor(Ucd9012DiagConfig::Id::parameter);
  mark(diag, Ucd9012DiagConfig::Id::parameter, Type::end);
  EXPECT_TRUE(flow->hasIter() && flow->hasIdx());
  mark(diag, Ucd9012DiagConfig::Id::parameter, Type::abort);
  EXPECT_FALSE(flow->hasIter() || flow->hasIdx());
}

TEST_F(Transactions, aQuietAdapterMarksNothingPartialAndStillSweeps) {
  auto& twin = controller(there());
  auto const sa = adapterThere(twin);
  auto const demuxer = pair.replica->demuxer();
  sa->flagsIs(Zol::flagQuiet, true);
  sa->handleAttrTransaction(ControllerConfig::Id::location, Type::begin, 0);
  sa->handleAttrTransaction(ControllerConfig::Id::voltageRail, Type::begin, 0);
  EXPECT_FALSE(demuxer->flowIn(sa->entityId()));
  EXPECT_NE(twin.voltageRailCount(), 0U);
  sa->handleAttrTransaction(ControllerConfig::Id::voltageRail, Type::end, 0);
  EXPECT_EQ(twin.voltageRailCount(), 0U);
  sa->flagsIs(Zol::flagQuiet, false);
  sa->handleAttrTransaction(ControllerConfig::Id::location, Type::begin, 0);
  ASSERT_TRUE(demuxer->flowIn(sa->entityId()));
  EXPECT_EQ(demuxer->flowIn(sa->entityId())->aid(), ControllerConfig::Id::location);
}

TEST_F(Transactions, belowLevelTwoASyncModeIsABracket) {
  auto& twin = controller(there());
  auto const sa = adapterThere(twin);
  auto const applied = [&](Mode mode) {
    sa->flagsIs(Zol::flagApplying, true);
    sa->syncModeIs(mode);
    sa->flagsIs(Zol::flagApplying, false);
  };
  std::string const before = textOf(there());
  // Not at level 2, and not outside of a message.
  applied(Mode::mark);
  pair.replica->demuxer()->syncLevelIs(1);
  sa->syncModeIs(Mode::mark);
  EXPECT_EQ(sa->syncMode(), Mode::mark);
  EXPECT_FALSE(twin.reloadCauseIteratorConst().entry()->zolMarkedForDeletion());

  applied(Mode::mark);
  EXPECT_TRUE(adapterThere(*twin.diagCommandConfig())->has(Zol::flagStale));
  EXPECT_EQ(textOf(there()), before);
  std::uint32_t const key = twin.reloadCauseIteratorConst().key();
  twin.reloadCauseIteratorConst(key).entry()->zolMarkedForDeletionIs(false);
  applied(Mode::settle);
  EXPECT_EQ(twin.reloadCauseCount(), 1U);
  EXPECT_EQ(twin.voltageRailCount() + twin.psocReloadCauseCount() + twin.pageFaultCauseCount() +
                twin.externalVoltageRailCount() + twin.diagModeConfigCount(),
            0U);
  EXPECT_TRUE(twin.diagCommandConfig());

  // An adapter that is made while a message is applied sweeps at once.
  for (auto it = there().controllerIterator(); it; ++it) it.entry()->zolMarkedForDeletionIs(true);
  Zol::Ptr<Config::ZolNboAttrLogSa> const late(
      new Config::ZolNboAttrLogSa({Zol::flagApplying | Zol::flagWeak}, Zol::Ptr<Config>(&there()),
                                  1, pair.replica->out(), nullptr));
  EXPECT_EQ(there().controllerCount(), 0U);
}

TEST_F(Transactions, anAdapterThatIsRemountedDropsThoseOfAllBelow) {
  auto& chip = controller(*config);
  std::vector<Zol::Ptr<Zol::Entity::ZolNboAttrLogSa>> below{
      adapter(chip),
      adapter(*chip.diagCommandConfig()),
      adapter(*chip.kernelPanicEepromDexo()),
      adapter(*chip.voltageRailIteratorConst().ptr()),
      adapter(*chip.diagModeConfigIteratorConst().ptr()),
      adapter(*config->dexoDescIteratorConst().ptr()),
      adapter(*config->realPsocControllerIteratorConst().ptr())};
  auto const root = adapter(*config);
  root->doRemountSelf(pair.source->out());
  EXPECT_EQ(root->nboAttrLogOut(), pair.source->out());
  for (auto const& sa : below) EXPECT_FALSE(sa->nboAttrLogOut());
  // What is off its stream is silent.
  chip.locationIs("elsewhere");
  pair.flow();
  EXPECT_TRUE(pair.replica->isOpen());
  EXPECT_NE(controller(there()).location(), "elsewhere");
}

}  // namespace
