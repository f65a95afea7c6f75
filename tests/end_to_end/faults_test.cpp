// Streams that break at every byte and misbehave in every way: at the end both ends are equal, and
// listeners have heard of each change.
#include <gtest/gtest.h>

#include <functional>

#include "support/link_up.h"
#include "support/replica_pair.h"
#include "support/tree.h"

namespace {

using namespace test;
using namespace Hardware::Ucd9012;

// A small tree with every kind of attribute, and a short list of changes to it.
struct Board {
  Board() {
    main->voltageRailIs(1, nullptr, nullptr)->sensorMibIs(sensor);
    main->voltageRailIs(2, nullptr, nullptr);
    main->reloadCauseIs(1, {});
    main->diagCommandConfigIs("command")->parameterIs(1, "one");
    main->locationIs("rear");
    config->controllerIs(main);
  }
  Zol::Ptr<EntityMib::Sensor> sensor = new EntityMib::Sensor("sensor");
  Zol::Ptr<EntityMib::Sensor> otherSensor = new EntityMib::Sensor("other");
  Zol::Ptr<Config> config = configFactory("board");
  Zol::Ptr<Ucd9012ControllerConfig> main = addController(*config, "main");
};

using Change = void (*)(Board&, Config&);
constexpr Change kChanges[] = {
    [](Board&, Config& root) { root.realUcd9012Controller("main")->locationIs("front"); },
    [](Board&, Config& root) { root.realUcd9012Controller("main")->pollingEnabledIs(false); },
    [](Board&, Config& root) { root.realUcd9012Controller("main")->voltageRailDel(2); },
    [](Board&, Config& root) {
      root.realUcd9012Controller("main")->voltageRailIs(3, nullptr, nullptr);
    },
    [](Board& board, Config& root) {
      root.realUcd9012Controller("main")->voltageRail(1)->sensorMibIs(board.otherSensor);
    },
    [](Board&, Config& root) {
      auto const main = root.realUcd9012Controller("main");
      main->reloadCauseIs(2, {});
      main->reloadCauseDel(1);
    },
    [](Board&, Config& root) {
      root.realUcd9012Controller("main")->diagCommandConfig()->parameterIs(1, "two");
    },
    [](Board&, Config& root) { root.realUcd9012Controller("main")->diagCommandConfigDel(); },
    [](Board&, Config& root) { addController(root, "second")->voltageRailIs(1, nullptr, nullptr); },
    [](Board&, Config& root) { root.controllerDel("main"); },
};

// Changes go on while the first connection runs and breaks; a second one brings all.
class CutAnywhere {
 public:
  // Bytes that go over an unbroken connection: there, and back.
  std::pair<std::uint64_t, std::uint64_t> run(Plan there, Plan back, MountOptions options) {
    Board board;
    LinkUp up({board.config});
    up.connect(there, back, options);
    Zol::Ptr<Zol::Entity> root;
    std::unique_ptr<Ears> ears;
    auto const turn = [&] {
      for (int i = 0; i < 4; ++i) up.link->pump();
      if (!root) root = up.mirror(*board.config);
    };
    auto const mainThere = [&] {
      auto const config = Zol::ptrCast<Config>(root);
      return config ? config->realUcd9012Controller("main") : nullptr;
    };
    turn();
    auto const* const first = mainThere().get();
    if (root) ears = std::make_unique<Ears>(*root);
    for (Change const change : kChanges) {
      change(board, *board.config);
      turn();
    }
    if (options.access == MountOptions::writableByPeer) {
      if (auto const there1 = mainThere()) there1->descriptionIs("from the replica");
      turn();
    }
    EXPECT_TRUE(up.link->settle());
    std::pair const bytes{up.link->there->bytes(), up.link->back->bytes()};
    up.link->cut();

    up.connect({}, {}, options);
    EXPECT_TRUE(up.link->settle());
    auto const mirror = up.mirror(*board.config);
    EXPECT_TRUE(mirror) << up.link->right->error();
    if (!mirror) return bytes;
    EXPECT_EQ(textOf(*board.config), textOf(*mirror));
    EXPECT_EQ(Zol::digest(*board.config), Zol::digest(*mirror));
    EXPECT_EQ(up.link->right->state(), ConnectionState::live);
    if (root) {
      EXPECT_EQ(mirror, root);
    }
    root = mirror;
    if (first) {
      EXPECT_EQ(mainThere().get(), first);
    }
    if (ears) {
      EXPECT_EQ(ears->outdated(), "");
    }
    if (ears) {
      EXPECT_EQ(ears->unneeded(), "");
    }
    for (auto const& end : {up.link->left, up.link->right}) {
      EXPECT_EQ(end->counters().refused + end->counters().unknown, 0U);
      EXPECT_EQ(end->counters().listenerFailures, 0U);
    }
    return bytes;
  }

  void everyByte(MountOptions options) {
    auto const [there, back] = run({}, {}, options);
    ASSERT_GT(there, 1000U);
    for (std::uint64_t at = 0; at <= there; ++at) {
      SCOPED_TRACE("cut behind byte " + std::to_string(at) + " to the replica");
      Plan cut;
      cut.cutAfter = at;
      run(cut, {}, options);
      if (testing::Test::HasFailure()) return;
    }
    for (std::uint64_t at = 0; at <= back; ++at) {
      SCOPED_TRACE("cut behind byte " + std::to_string(at) + " to the source");
      Plan cut;
      cut.cutAfter = at;
      run({}, cut, options);
      if (testing::Test::HasFailure()) return;
    }
  }
};

TEST(CutAfterEveryByte, aReadOnlyReplicaConverges) { CutAnywhere().everyByte({}); }

TEST(CutAfterEveryByte, aWritableReplicaConverges) {
  CutAnywhere().everyByte({MountOptions::writableByPeer});
}

// Connections with random faults, one after the other, while both trees change at random.
class Faults : public testing::TestWithParam<unsigned int> {
 protected:
  static Plan randomPlan(std::mt19937& random, bool corrupts) {
    auto const oneIn = [&](unsigned int count) { return random() % count == 0; };
    Plan plan;
    plan.seed = random();
    if (oneIn(2)) plan.maxPiece = oneIn(3) ? 7 : 5000;
    if (plan.maxPiece != 7) plan.delay = oneIn(2) ? 300 : 0;
    if (oneIn(4)) plan.stall = 10;
    if (oneIn(3)) plan.cutAfter = random() % (oneIn(2) ? 3000 : 300000);
    if (oneIn(4)) plan.cut = 5;
    if (corrupts && oneIn(2)) plan.garble = 3;
    if (corrupts && oneIn(2)) plan.duplicate = 3;
    return plan;
  }

  static void run(unsigned int seed) {
    Hand hand(seed);
    std::mt19937& random = hand.random();
    bool const corrupts = seed % 3 == 0;
    LinkUp up({configFactory("config"), statusFactory("status")});
    if (seed % 2 != 0) up.options.outCapacity = 1;
    std::vector<std::unique_ptr<Ears>> ears;
    bool corrupted = false;
    for (int round = 0; round < 5; ++round) {
      up.connect(randomPlan(random, corrupts), randomPlan(random, corrupts));
      for (int i = 0; i < 40; ++i) {
        hand.change(*up.roots[random() % 2]);
        for (auto turns = random() % 8; turns > 0; --turns) up.link->pump();
        if (random() % 20 != 0) continue;
        for (auto const& root : up.roots) {
          if (auto const mirror = up.mirror(*root)) ears.push_back(std::make_unique<Ears>(*mirror));
        }
      }
      if (random() % 2 == 0) up.link->settle();
      corrupted |= up.link->there->corrupted() || up.link->back->corrupted();
      up.link->cut();
    }
    up.reconnect();
    for (auto const& root : up.roots) {
      auto const mirror = up.mirror(*root);
      ASSERT_TRUE(mirror) << up.link->right->error();
      ASSERT_EQ(textOf(*root), textOf(*mirror));
      ASSERT_EQ(Zol::digest(*root), Zol::digest(*mirror));
    }
    ASSERT_EQ(up.link->right->state(), ConnectionState::live);
    ASSERT_EQ(up.link->right->counters().refused + up.link->right->counters().unknown, 0U);
    for (auto const& one : ears) ASSERT_EQ(one->outdated(), "") << corrupted;
  }
};

TEST_P(Faults, leaveNoTraceBehindTheNextGoodConnection) {
  for (unsigned int seed = GetParam(); seed < GetParam() + 30; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    ASSERT_NO_FATAL_FAILURE(run(seed));
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Faults, testing::Range(0U, 300U, 30U));

}  // namespace
