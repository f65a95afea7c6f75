// What each kind of attribute does on a log beyond carrying its value: transactions, wrapped
// messages, messages that are only read, refusals, references that wait.
#include <gtest/gtest.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;
using namespace Hardware::Ucd9012;
using Transaction = Zol::StreamAdapter::AttrTransactionType;
using Adapter = Ucd9012ControllerConfig::ZolNboAttrLogSa;

// Counts the rails and causes that it is told of.
class Ear : public ControllerConfig::Notifiee {
 public:
  explicit Ear(Zol::Ptr<ControllerConfig> const& controller) {
    isRegisteredNotifieeIs(true);
    notifierIs(controller);
  }
  using ControllerConfig::Notifiee::onDiagModeConfig;
  using ControllerConfig::Notifiee::onReloadCause;
  using ControllerConfig::Notifiee::onVoltageRail;
  void onVoltageRail(std::uint8_t) override { ++rails; }
  void onReloadCause(std::uint32_t) override { ++causes; }
  void onDiagModeConfig(Zol::Name) override { ++modes; }
  void onDiagCommandConfig() override { ++commands; }

  int rails = 0;
  int causes = 0;
  int modes = 0;
  int commands = 0;
};

class Kinds : public testing::Test {
 protected:
  Kinds() {
    for (std::uint8_t id = 1; id <= 3; ++id) main->voltageRailIs(id, nullptr, nullptr);
    for (std::uint32_t key = 1; key <= 3; ++key) main->reloadCauseIs(key, cause(key));
    main->diagCommandConfigIs("command")->parameterIs(1, "one");
    main->diagModeConfigIs("mode");
    config->controllerIs(main);
    pair.mount(config);
    mirror = pair.mirrored("main");
  }
  static UcdCause cause(std::uint32_t id) {
    return {ReloadCauses::watchdog, CauseType::gpio, id, false};
  }
  [[nodiscard]] static Adapter& adapterOf(Zol::Entity& entity, Connection const& end) {
    return dynamic_cast<Adapter&>(*entity.zolNboAttrLogSa(end.out()));
  }
  void expectEqual() { EXPECT_EQ(Zol::digest(*config), Zol::digest(*pair.mirror())); }

  ReplicaPair pair;
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<Ucd9012ControllerConfig> main = addController(*config, "main");
  Zol::Ptr<Ucd9012ControllerConfig> mirror;
};

TEST_F(Kinds, aBracketSweepsWhatNoMessageConfirms) {
  Zol::Ptr<Ear> const ear(new Ear(mirror));
  Adapter& adapter = adapterOf(*mirror, *pair.replica);
  auto const bracket = [&](Zol::AttributeId id, auto const& act) {
    adapter.handleAttrTransaction(id, Transaction::begin, 0);
    act();
    adapter.handleAttrTransaction(id, Transaction::end, 0);
  };
  // A member that is written with the value it has is confirmed like any other.
  bracket(392, [&] {
    main->reloadCauseIs(2, cause(9));
    main->reloadCauseIs(2, cause(2));
    pair.flow();
  });
  EXPECT_EQ(mirror->reloadCauseCount(), 1U);
  EXPECT_EQ(mirror->reloadCause(2), cause(2));
  EXPECT_EQ(ear->causes, 4);

  bracket(390, [] {});
  EXPECT_EQ(mirror->voltageRailCount(), 0U);
  bracket(398, [] {});
  EXPECT_EQ(mirror->diagModeConfigCount(), 0U);
  // A child without a key is marked, but not taken out.
  bracket(397, [] {});
  ASSERT_TRUE(mirror->diagCommandConfig());
  EXPECT_EQ(ear->rails + ear->modes, 4);
  EXPECT_EQ(ear->commands, 0);
  dynamic_cast<Config::ZolNboAttrLogSa&>(*pair.mirror()->zolNboAttrLogSa(pair.replica->out()))
      .handleAttrTransaction(262, Transaction::end, 0);
  EXPECT_EQ(pair.mirror()->controllerCount(), 1U);  // nothing was marked

  // A walk of the source brings everything back.
  adapterOf(*main, *pair.source).doSerializeOrphan();
  pair.flow();
  expectEqual();
  EXPECT_EQ(pair.replica->counters().messagesOut, 0U);
}

TEST_F(Kinds, aSecondWalkOnTheSameStreamChangesNothing) {
  Zol::Ptr<Ear> const ear(new Ear(mirror));
  auto const rail = mirror->voltageRail(2);
  config->zolNboAttrLogSa(pair.source->out())->doSerializeOrphan();
  adapterOf(*main, *pair.source).doSerializeOrphan();
  pair.flow();
  EXPECT_EQ(mirror, pair.mirrored("main"));
  EXPECT_EQ(mirror->voltageRail(2), rail);
  EXPECT_EQ(mirror->voltageRailCount(), 3U);
  EXPECT_EQ(ear->rails + ear->causes + ear->modes + ear->commands, 0);
  EXPECT_EQ(pair.replica->counters().refused, 0U);
  expectEqual();
}

TEST_F(Kinds, anAbortDropsATextUnderWayAndItsKey) {
  RawPeer peer;
  peer.send(Frame::hello());
  peer.send(Frame::mount(0x20, "b"));
  peer.send(Frame::orphan(0x20, "Hardware::Ucd9012::Config", "b"));
  peer.send(Frame::orphan(0x22, "Hardware::Ucd9012::Ucd9012DiagConfig", "d"));
  Zol::Ptr<Zol::Entity> const held =
      peer.connection->demuxer()->entity(Zol::EntityId(0x22).seenFromOtherEnd());
  auto const diag = Zol::ptrCast<Ucd9012DiagConfig>(held);
  ASSERT_TRUE(diag);
  auto const chunk = [](std::uint32_t key, unsigned int more, char const* text) {
    return Frame::data(0x22, 259).u32(key).u8(more).text(text);
  };
  auto const mark = [](unsigned int type) { return Frame(4).u64(0x22).u32(259).u8(type).u32(0); };
  peer.send(chunk(1, 1, "lost"));
  peer.send(mark(1));
  peer.send(chunk(1, 1, "ke"));
  peer.send(mark(2));  // the last member may be under way when its bracket ends
  peer.send(chunk(1, 0, "pt"));
  EXPECT_EQ(diag->parameter(1), "kept");
  // Two runs at once are refused: the second is not begun, the first goes on.
  peer.send(chunk(2, 1, "a"));
  peer.send(chunk(3, 1, "b"));
  EXPECT_EQ(peer.connection->counters().refused, 1U);
  peer.send(Frame::data(0x22, -259).u32(1));
  EXPECT_EQ(diag->parameterCount(), 0U);
  EXPECT_TRUE(peer.connection->isOpen()) << peer.connection->error();
}

TEST_F(Kinds, theHostCanReadAMessageWithoutApplyingIt) {
  Zol::Ptr<Zol::NboAttrLog::In> const in = pair.source->in();
  Adapter& adapter = adapterOf(*main, *pair.source);
  std::uint64_t const before = pair.source->counters().messagesOut;
  // One field of each form, as they stand behind one another.
  auto const room = in->room();
  Bytes const bytes = [] {
    Bytes all(4, 0);
    all.push_back(1);
    return all;
  }();
  std::copy(bytes.begin(), bytes.end(), room.begin());
  auto const start = in->position();
  in->received(bytes.size());
  in->boundIs(start + 4);
  adapter.handleAttrDeserialization(391, {}, 4, in);  // u32: the reaction runs for both listeners
  in->boundIs(start + 5);
  adapter.handleAttrDeserialization(402, {}, 1, in);
  EXPECT_EQ(pair.source->counters().messagesOut, before + 2);
  EXPECT_TRUE(main->pollingEnabled());
  pair.flow();
  expectEqual();
}

TEST_F(Kinds, anAnnouncementThatCannotBeWrittenLeavesNoTraceAndComesLater) {
  Zol::Ptr<Reluctant<Hardware::DexoDesc>> const desc(new Reluctant<Hardware::DexoDesc>("desc"));
  auto const late = config->realUcd9012ControllerIs("late", "c", desc, nullptr, nullptr);
  late->locationIs("unheard until it is announced");
  late->voltageRailIs(1, nullptr, nullptr);
  pair.flow();
  for (int i = 0; i < 3; ++i) {
    late->readyIs(!late->ready());
    addController(*config, numbered("wakes", static_cast<unsigned int>(i)));
    pair.flow();
  }
  EXPECT_LE(desc->refusals, 0);
  ASSERT_TRUE(pair.mirrored("late"));
  EXPECT_EQ(pair.mirrored("late")->location(), "unheard until it is announced");
  EXPECT_EQ(pair.mirrored("late")->voltageRailCount(), 1U);
  EXPECT_EQ(pair.replica->counters().unknown + pair.replica->counters().refused, 0U);
  expectEqual();
}

TEST_F(Kinds, anEntityReferredToFromOutsideIsForgottenAtItsEnd) {
  std::size_t const adapters = pair.replica->demuxer()->reactorCount();
  auto const rail = main->voltageRail(1);
  for (unsigned int i = 0; i < 1000; ++i) {
    rail->sensorMibIs(new EntityMib::Sensor(numbered("s", i)));
    if (i % 100 == 0) pair.flow();
  }
  pair.flow();
  EXPECT_EQ(mirror->voltageRail(1)->sensorMib()->name(), "s999");
  EXPECT_EQ(pair.replica->demuxer()->reactorCount(), adapters + 1);
  rail->sensorMibIs(nullptr);
  pair.flow();
  EXPECT_FALSE(mirror->voltageRail(1)->sensorMib());
  EXPECT_EQ(pair.replica->demuxer()->reactorCount(), adapters);
  EXPECT_EQ(pair.replica->counters().unknown, 0U);
}

TEST_F(Kinds, aControllerTakenOutIsKnownAsLongAsItIsReferredTo) {
  config->realUcd9012ControllerDel("main");
  main->locationIs("apart");
  pair.flow();
  EXPECT_FALSE(pair.mirrored("main"));
  EXPECT_EQ(pair.mirror()->controller("main"), mirror);
  EXPECT_EQ(mirror->location(), "apart");
  config->controllerDel("main");
  config->controllerIs(main);
  ReplicaPair second;
  second.mount(config);
  pair.flow();
  EXPECT_EQ(pair.mirror()->controller("main")->location(), "apart");
  ASSERT_TRUE(second.mirror()->controller("main"));
  EXPECT_EQ(second.mirror()->controller("main")->location(), "apart");
  EXPECT_EQ(second.mirror()->controller("main")->voltageRailCount(), 3U);
  EXPECT_EQ(Zol::digest(*config), Zol::digest(*second.mirror()));
  expectEqual();
}

TEST_F(Kinds, whatWasAnnouncedApartBecomesAChildWhenItsRootIsMounted) {
  auto const other = Hardware::Ucd9012::configFactory("other");
  auto const eeprom = addController(*other, "far")->kernelPanicEepromDexoIs("eeprom", 1, 2);
  config->realUcd9032ControllerIs("near", "c", eeprom, nullptr, nullptr);
  pair.flow();
  EXPECT_EQ(pair.mirror()->realUcd9032Controller("near")->dexoDesc()->name(), "eeprom");
  pair.mount(other);
  EXPECT_EQ(Zol::digest(*other), Zol::digest(*pair.mirror("other")));
  EXPECT_TRUE(pair.mirror("other")->realUcd9012Controller("far")->kernelPanicEepromDexo());
  EXPECT_EQ(pair.replica->counters().refused, 0U);
  expectEqual();
}

TEST_F(Kinds, leavingADirectoryLeavesTheLogAlone) {
  Zol::Dir::root().entryIs(config);
  Zol::Dir::root().entryDel("board");
  main->voltageRailIs(9, nullptr, nullptr)->overrideVoutUvLimitIs(0.5);
  config->controllerDel("main");
  config->controllerIs(main);
  pair.flow();
  EXPECT_EQ(mirror->voltageRail(9)->overrideVoutUvLimit(), Units::Volts(0.5));
  EXPECT_EQ(pair.replica->counters().refused + pair.replica->counters().unknown, 0U);
  expectEqual();
}

}  // namespace
