// Both ends of a writable mount write at once: their messages cross, and at rest both ends are
// equal.
#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "support/raw_peer.h"
#include "support/replica_pair.h"
#include "support/tree.h"

namespace {

using namespace test;

constexpr MountOptions kWritable{MountOptions::writableByPeer};

class Crossing : public ::testing::Test {
 protected:
  Crossing() {
    config->dexoDescIs("bus", new Hardware::SmbusDevice("eeprom"), 1, 2, 3, {}, false, {}, {},
                       false, {}, 0);
    auto const main = addController(*config, "main");
    main->locationIs("rack");
    main->diagCommandConfigIs("diag")->parameterIs(1, "one");
    main->kernelPanicEepromDexoIs("panic", 1, 2);
    main->kernelPanicEepromDexoDel();
    pair.mount(config, kWritable);
  }

  // Neither end has heard of what the other writes when it writes.
  void atOnce(std::function<void(Config&)> const& here, std::function<void(Config&)> const& there) {
    here(*config);
    there(*mirror());
    pair.flow();
  }
  [[nodiscard]] Zol::Ptr<Config> mirror() const { return pair.mirror(); }
  void expectEqual() {
    EXPECT_EQ(textOf(*config), textOf(*mirror()));
    EXPECT_EQ(Zol::digest(*config), Zol::digest(*mirror()));
    EXPECT_TRUE(pair.source->isOpen() && pair.replica->isOpen());
  }

  Zol::Ptr<Config> const config = Hardware::Ucd9012::configFactory("board");
  ReplicaPair pair;
};

Ucd9012ControllerConfig& mainOf(Config& config) { return *config.realUcd9012Controller("main"); }

Hardware::Ucd9012::Ucd9012DiagConfig& diagOf(Config& config) {
  return *mainOf(config).diagCommandConfig();
}

TEST_F(Crossing, theOwnerSaysItOnceMoreAndNothingWhenNothingCrossed) {
  auto const sent = [this] { return pair.source->counters().messagesOut; };
  mainOf(*mirror()).reloadCauseSortKeyIs(3);
  std::uint64_t const before = sent();
  pair.flow();
  EXPECT_EQ(sent(), before);
  atOnce([](Config& at) { mainOf(at).reloadCauseSortKeyIs(1); },
         [](Config& at) { mainOf(at).reloadCauseSortKeyIs(2); });
  EXPECT_EQ(mainOf(*config).reloadCauseSortKey(), 2U);
  EXPECT_EQ(sent(), before + 2);
  expectEqual();
}

TEST_F(Crossing, endsEqualForEachKindOfAttribute) {
  struct Case {
    std::function<void(Config&)> here;
    std::function<void(Config&)> there;
  };
  std::string const longText(200000, 'x');
  std::vector<std::pair<char const*, Case>> const cases{
      {"texts",
       {[](Config& at) { mainOf(at).locationIs("here"); },
        [](Config& at) { mainOf(at).locationIs("there"); }}},
      {"long texts",
       {[&](Config& at) { mainOf(at).locationIs(longText); },
        [&](Config& at) { mainOf(at).locationIs(longText + "there"); }}},
      {"long keyed texts",
       {[&](Config& at) { diagOf(at).parameterIs(1, longText); },
        [&](Config& at) { diagOf(at).parameterIs(1, longText + "there"); }}},
      {"a removed text",
       {[](Config& at) { diagOf(at).parameterDel(1); },
        [](Config& at) { diagOf(at).parameterIs(1, "there"); }}},
      {"a text removed there",
       {[](Config& at) { diagOf(at).parameterIs(1, "here"); },
        [](Config& at) { diagOf(at).parameterDel(1); }}},
      {"rails made of other entities",
       {[](Config& at) {
          mainOf(at).voltageRailIs(1, new Environment::Power::VoltageRailConfig("here"),
                                   new Environment::Power::VoltageRailStatus("here"));
        },
        [](Config& at) {
          mainOf(at).voltageRailIs(1, new Environment::Power::VoltageRailConfig("there"),
                                   new Environment::Power::VoltageRailStatus("there"));
        }}},
      {"controllers made differently",
       {[](Config& at) { addController(at, "new")->locationIs("here"); },
        [](Config& at) {
          at.realUcd9012ControllerIs("new", "another customer", nullptr, nullptr, nullptr)
              ->locationIs("there");
        }}},
      {"controllers made equal, with other contents",
       {[](Config& at) { addController(at, "equal")->diagModeConfigIs("here"); },
        [](Config& at) { addController(at, "equal")->diagModeConfigIs("there"); }}},
      {"a change of what has been removed",
       {[](Config& at) { at.realUcd9012ControllerDel("equal"); },
        [](Config& at) { at.realUcd9012Controller("equal")->readyIs(true); }}},
      {"a member made of what has been removed",
       {[](Config& at) { at.dexoDescDel("bus"); },
        [](Config& at) {
          at.realPsocControllerIs("of bus", "customer", at.dexoDesc("bus"), nullptr, nullptr);
        }}},
      {"a reference to what has been removed",
       {[](Config& at) { at.controllerIs(at.realUcd9012Controller("new")); },
        [](Config& at) { at.realUcd9012ControllerDel("new"); }}},
  };
  for (auto const& [name, one] : cases) {
    SCOPED_TRACE(name);
    atOnce(one.here, one.there);
    expectEqual();
  }
}

TEST_F(Crossing, whatAReplicaMadeIsNotTakenOutByWhatWasWrittenBefore) {
  mainOf(*config).kernelPanicEepromDexoIs("panic", 1, 2);
  pair.flow();
  mainOf(*config).kernelPanicEepromDexoDel();
  mainOf(*mirror()).kernelPanicEepromDexoDel();
  auto const made = mainOf(*mirror()).kernelPanicEepromDexoIs("panic", 3, 4);
  pair.flow();
  EXPECT_EQ(mainOf(*mirror()).kernelPanicEepromDexo(), made);
  expectEqual();
}

// While a text is under way the replica owes what else it changes, and a child that it has made is
// unheard of: nothing of it goes to the owner but by way of its announcement.
TEST_F(Crossing, whatBothMakeIsTheOwnersWhereTheReplicaCouldNotSaySo) {
  std::string const longText(std::size_t{4} << 20, 'x');
  mainOf(*config).diagCommandConfigDel();
  pair.flow();
  auto const make = [](Config& at, std::string const& text, double limit) {
    diagOf(at).parameterIs(1, text);
    mainOf(at).voltageRailIs(1, nullptr, nullptr)->overrideVoutUvLimitIs(Units::Volts(limit));
  };
  for (bool const blank : {true, false}) {
    SCOPED_TRACE(blank);
    atOnce(
        [&](Config& at) {
          mainOf(at).diagCommandConfigIs("made");
          mainOf(at).voltageRailIs(1, nullptr, nullptr);
          if (!blank) make(at, "here", 1);
        },
        [&](Config& at) {
          mainOf(at).locationIs(longText);
          mainOf(at).diagCommandConfigIs("made");
          make(at, "there", 2);
        });
    expectEqual();
    EXPECT_EQ(diagOf(*config).parameterCount(), blank ? 0U : 1U);
    EXPECT_EQ(mainOf(*config).location(), longText);
    mainOf(*config).diagCommandConfigDel();
    mainOf(*config).voltageRailDel(1);
    mainOf(*config).locationIs("");
    pair.flow();
  }
}

// A member that is owed goes out as it is, and not behind a removal, if nothing has been removed.
TEST_F(Crossing, aMemberThatBothMakeIsOneWhereTheReplicaOwesIt) {
  for (bool const removed : {false, true}) {
    SCOPED_TRACE(removed);
    auto const rail = mainOf(*config).voltageRailIs(4, nullptr, nullptr);
    rail->overrideVoutUvLimitIs(Units::Volts(2));
    mainOf(*mirror()).locationIs(std::string(60000, removed ? 'r' : 's'));
    mainOf(*mirror()).voltageRailIs(4, nullptr, nullptr);
    if (removed) mainOf(*mirror()).voltageRailDel(4);
    mainOf(*mirror()).voltageRailIs(4, nullptr, nullptr)->overrideVoutOvLimitIs(Units::Volts(9));
    EXPECT_TRUE(mainOf(*mirror()).zolNboAttrLogSa(pair.replica->out())->flowOut());
    pair.replica->pump();
    pair.flow();
    expectEqual();
    EXPECT_EQ(mainOf(*config).voltageRail(4) == rail, !removed);
    EXPECT_EQ(mainOf(*config).voltageRail(4)->overrideVoutOvLimit(), Units::Volts(9));
    mainOf(*config).voltageRailDel(4);
    pair.flow();
  }
}

TEST_F(Crossing, whatTheOwnerHasTakenOutIsNotWhatTheReplicaHasMade) {
  atOnce(
      [](Config& at) {
        at.controllerIs(addController(at, "twin"));
        at.realUcd9012ControllerDel("twin");
      },
      [](Config& at) { addController(at, "twin"); });
  for (Config* const at : {config.get(), mirror().get()}) {
    ASSERT_TRUE(at->controller("twin") && at->realUcd9012Controller("twin"));
    EXPECT_NE(at->controller("twin"), at->realUcd9012Controller("twin"));
  }
  expectEqual();
}

TEST_F(Crossing, aMemberThatAReplicaOwesIsNotTakenOutByABracket) {
  mainOf(*mirror()).locationIs(std::string(std::size_t{4} << 20, 'x'));
  auto const rail = mainOf(*mirror()).voltageRailIs(6, nullptr, nullptr);
  mainOf(*config).zolNboAttrLogSa(pair.source->out())->walkAgain();
  pair.flow();
  EXPECT_EQ(mainOf(*mirror()).voltageRail(6), rail);
  EXPECT_TRUE(mainOf(*config).voltageRail(6));
  expectEqual();
}

TEST_F(Crossing, aReplicaThatLacksWhatAMessageRefersToGetsItAgain) {
  auto const gone = addController(*config, "gone");
  pair.flow();
  atOnce([&](Config& at) { at.controllerIs(gone); },
         [](Config& at) { at.realUcd9012ControllerDel("gone"); });
  EXPECT_GT(pair.replica->counters().refused, 0U);
  ASSERT_TRUE(mirror()->controller("gone"));
  EXPECT_EQ(config->controller("gone"), gone);
  expectEqual();
}

TEST_F(Crossing, whatAReplicaKeepsElsewhereComesUnderAnotherId) {
  addController(*mirror(), "twice");
  mirror()->controllerIs(mirror()->realUcd9012Controller("twice"));
  pair.flow();
  atOnce(
      [](Config& at) {
        at.realUcd9012ControllerDel("twice");
        at.realUcd9012ControllerIs("twice", "another customer", nullptr, nullptr, nullptr);
      },
      [](Config& at) {
        at.realUcd9012ControllerDel("twice");
        at.realUcd9012ControllerIs("twice", "third customer", nullptr, nullptr, nullptr);
        at.controllerIs(at.realUcd9012Controller("twice"));
      });
  expectEqual();
}

// A peer that refuses it each time is not answered without end.
TEST(LacksFrames, areAnsweredByWhoeverOwnsForBothAndNotWithoutEnd) {
  constexpr unsigned int kLacks = 0xa2;
  constexpr std::uint64_t kRoot = 0x8000000000000020;
  for (bool const writable : {false, true}) {
    RawPeer peer;
    auto const config = Hardware::Ucd9012::configFactory("board");
    auto const main = addController(*config, "main");
    peer.connection->mountIs(
        config, {writable ? MountOptions::writableByPeer : MountOptions::readOnlyForPeer});
    peer.send(Frame::hello());
    auto const answered = [&] {
      std::size_t const before = peer.received().size();
      std::uint64_t const id = main->zolNboAttrLogSa(peer.connection->out())->entityId().value;
      peer.send(Frame(kLacks).u64(kRoot).u32(262).u64(id ^ (std::uint64_t{1} << 63)));
      return peer.received().size() > before;
    };
    for (int i = 0; i < 16; ++i) EXPECT_EQ(answered(), writable);
    EXPECT_FALSE(answered());
    EXPECT_EQ(peer.connection->counters().refused, writable ? 0U : 17U);
    peer.send(Frame(kLacks).u64(0x77).u32(262).u64(kRoot));
    EXPECT_EQ(peer.connection->counters().unknown, 1U);
    peer.send(Frame(kLacks).u64(kRoot).u32(262));
    EXPECT_FALSE(peer.connection->isOpen());
  }
}

}  // namespace
