// The adapters of entities on a stream: their flag words, how they are made, found, announced,
// silenced and dropped.
#include <gtest/gtest.h>

#include "support/replica_pair.h"

namespace {

using namespace test;
using RootAdapter = Config::ZolNboAttrLogSa;

class Adapters : public testing::Test {
 protected:
  void mount(MountOptions options = {}) {
    pair.mount(config, options);
    root = dynamic_cast<RootAdapter*>(config->zolNboAttrLogSa(out).get());
    adapter = main->zolNboAttrLogSa(out);
    ASSERT_TRUE(root && adapter);
  }
  [[nodiscard]] static unsigned int word(Zol::Entity& entity, Connection const& end) {
    return entity.zolNboAttrLogSa(end.out())->zol_bitSet().word();
  }
  // Messages that the source writes while `act` runs.
  template <class Act>
  std::uint64_t written(Act const& act) {
    std::uint64_t const before = pair.source->counters().messagesOut;
    act();
    return pair.source->counters().messagesOut - before;
  }

  ReplicaPair pair;
  Zol::Ptr<Zol::NboAttrLog::Out> const out = pair.source->out();
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<Ucd9012ControllerConfig> main = addController(*config, "main");
  RootAdapter* root = nullptr;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> adapter;
};

TEST_F(Adapters, flagWordsAtRestAndOfANewChild) {
  struct Case {
    MountOptions options;
    unsigned int owner;
    unsigned int replica;
  };
  for (Case const& one : {Case{{}, 0x6100048, 0x2100044},
                          Case{{MountOptions::writableByPeer}, 0x6100040, 0x6100040}}) {
    ReplicaPair ends;
    ends.mount(config, one.options);
    addController(*config, "new");
    EXPECT_EQ(word(*config->realUcd9012Controller("new"), *ends.source), one.owner);
    ends.flow();
    EXPECT_EQ(word(*config, *ends.source), one.owner);
    EXPECT_EQ(word(*main, *ends.source), one.owner);
    EXPECT_EQ(word(*ends.mirror(), *ends.replica), one.replica);
    EXPECT_EQ(word(*ends.mirrored("new"), *ends.replica), one.replica);
    config->realUcd9012ControllerDel("new");
  }
}

TEST_F(Adapters, flagWordsDuringACatchUp) {
  pair.flow();
  main->readyIs(true);
  pair.source->mountIs(config);
  EXPECT_EQ(word(*config, *pair.source), 0x4000048U);
  pair.source->pump();
  EXPECT_EQ(word(*config, *pair.source), 0x6100048U);
  EXPECT_EQ(word(*main, *pair.source), 0x4000048U);
  // Flags from outside leave alone what belongs to the adapter.
  main->zolNboAttrLogSaIs({0x148}, 1, out, nullptr);
  EXPECT_EQ(word(*main, *pair.source), 0x4000148U);
}

TEST_F(Adapters, anEntityHasOneOfItsOwnClassPerStream) {
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> const other(
      new ControllerConfig::ZolNboAttrLogSa({0x48}, main, 1, out, nullptr));
  ASSERT_EQ(main->zolNboAttrLogSa(out), other);
  auto const made = main->zolNboAttrLogSaIs({0x48}, 1, out, nullptr);
  EXPECT_TRUE(dynamic_cast<Ucd9012ControllerConfig::ZolNboAttrLogSa*>(made.get()));
  EXPECT_EQ(main->zolNboAttrLogSaIs({0x48}, 1, out, nullptr), made);
  EXPECT_EQ(main->zolNboAttrLogSa(nullptr), nullptr);
  try {
    main->zolNboAttrLogSaIs({0x48}, 1, nullptr, nullptr);
    FAIL();
  } catch (Zol::RangeException const& refused) {
    EXPECT_STREQ(refused.what(), "null ValidPtr");
  }
}

TEST_F(Adapters, aChildIsAnnouncedAgainUnlessItsParentNeedsNoneAndCanBeTakenOff) {
  mount();
  auto const announce = [&](unsigned int flags) {
    EXPECT_EQ(root->realUcd9012ControllerNboAttrLogAdapterIs({flags}, main, 1, out,
                                                             root->msgChannelEntry()),
              adapter);
  };
  EXPECT_EQ(written([&] { announce(0x2000048); }), 0U);
  EXPECT_EQ(written([&] { announce(0x48); }), 1U);
  pair.flow();
  EXPECT_EQ(pair.replica->counters().refused, 0U);

  EXPECT_EQ(root->realUcd9012ControllerNboAttrLogAdapter(main), nullptr);
  EXPECT_EQ(root->realUcd9012ControllerNboAttrLogAdapterDel(nullptr), nullptr);
  EXPECT_EQ(root->realUcd9012ControllerNboAttrLogAdapterDel(main), adapter);
  EXPECT_EQ(root->realUcd9012ControllerNboAttrLogAdapterDel(main), nullptr);
  EXPECT_EQ(written([&] { main->readyIs(true); }), 0U);

  // One of another class is not the child's.
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> const other(
      new ControllerConfig::ZolNboAttrLogSa({0x48}, main, 1, out, nullptr));
  auto const made =
      root->realUcd9012ControllerNboAttrLogAdapterIs({0x48}, main, 1, out, root->msgChannelEntry());
  EXPECT_TRUE(dynamic_cast<Ucd9012ControllerConfig::ZolNboAttrLogSa*>(made.get()));
  EXPECT_NE(made->entityId().value, 0U);
}

TEST_F(Adapters, aVariantListensThroughEachLevelOfItsClassAndAheadOfEverybody) {
  Zol::Ptr<ControllerConfig::Notifiee> const client(new ControllerConfig::Notifiee);
  client->isRegisteredNotifieeIs(true);
  client->notifierIs(main);
  mount();
  int halves = 0;
  int ofModel = 0;
  auto const* at = main->zolNotifiees().head();
  for (; at && at->zolRawReactor() == adapter.get(); at = Zol::ListRawGeneric::next(*at)) {
    ++halves;
    ofModel += dynamic_cast<ControllerConfig::NotifieeConst const*>(at) ? 1 : 0;
  }
  EXPECT_EQ(halves, 3);
  EXPECT_EQ(ofModel, 2);
  EXPECT_EQ(at, client.get());
}

TEST_F(Adapters, theHostCanRunOneReaction) {
  mount();
  Zol::Name gone = "gone";
  EXPECT_EQ(written([&] { root->doNotification(259, &gone); }), 1U);
  EXPECT_EQ(written([&] { root->doNotification(-259, &gone); }), 0U);  // it waits still
  pair.flow();
  EXPECT_EQ(written([&] { root->doNotification(-259, &gone); }), 1U);
  EXPECT_EQ(written([&] { adapter->doNotification(402, nullptr); }), 1U);
  EXPECT_EQ(written([&] { adapter->doNotification(262, nullptr); }), 1U);
  EXPECT_EQ(written([&] { adapter->doNotification(-402, nullptr); }), 0U);
  EXPECT_EQ(written([&] { root->doNotification(999, &gone); }), 0U);
}

TEST_F(Adapters, aZombieHearsNothingAndComesBackWhole) {
  mount();
  std::uint32_t const held = main->references();
  adapter->zolDoZombieReactors(true);
  EXPECT_TRUE(adapter->zolMarkedForDeletion());
  EXPECT_EQ(main->zolNotifiees().count(), 0U);
  EXPECT_EQ(main->references(), held + 1);  // whoever cannot hear of an end prevents it
  EXPECT_EQ(written([&] { main->readyIs(true); }), 0U);

  adapter->zolDoZombieReactors(false);
  EXPECT_TRUE(adapter->hasNotificationActive());
  EXPECT_EQ(main->references(), held);
  EXPECT_EQ(written([&] { main->readyIs(false); }), 1U);
}

// A message that would follow itself is left out while it waits, but for chunks of texts, since
// two equal ones may stand in one text.
TEST_F(Adapters, eachLevelWritesAChangeAndOneMessageOfItGoes) {
  mount();
  EXPECT_EQ(written([&] { main->readyIs(!main->ready()); }), 1U);
  EXPECT_EQ(written([&] { main->autoStartPowerProgramIs(!main->autoStartPowerProgram()); }), 1U);
  EXPECT_EQ(written([&] { main->locationIs("x"); }), 2U);
  std::uint64_t const told = pair.replica->counters().messagesIn;
  pair.flow();
  EXPECT_EQ(pair.replica->counters().messagesIn, told + 4);
  EXPECT_EQ(written([&] {
              main->readyIs(!main->ready());
              main->readyIs(!main->ready());
            }),
            2U);
}

}  // namespace
