// A replica that stops reading while its source changes on and on: what the source keeps for it is
// bounded, and when it reads again it has the newest of all. Texts as long as they may be.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include "support/allocation_count.h"
#include "support/replica_pair.h"

namespace {

using namespace test;
using Hardware::Ucd9012::CauseType;
using Hardware::Ucd9012::ReloadCauses;

// The end of the source is pumped now and then, that of the replica only when the test says so.
class SlowPeer : public testing::TestWithParam<bool> {
 protected:
  SlowPeer() {
    if (!GetParam()) return;
    int fds[2];
    EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, fds), 0);
    pair.source = Connection::overFd(fds[0], {});
    pair.replica = Connection::overFd(fds[1], {});
  }
  void mount(MountOptions options = {}) {
    pair.mount(config, options);
    mirror = pair.mirrored("main");
    ASSERT_TRUE(mirror);
  }
  // What is kept grows in the first round by no more than the bytes, and then no further.
  template <class Round>
  void staysBounded(std::uint32_t rounds, std::size_t bytes, Round const& round) {
    auto const& out = pair.source->out();
    std::size_t const before = liveBytes;
    std::size_t first = 0;
    for (std::uint32_t i = 0; i < rounds; ++i) {
      round(i);
      pair.source->pump();
      // A message that begins to fit is written whole.
      ASSERT_LE(out->pending().size(), out->capacity() + out->maxMessageSize());
      if (i == 0) first = liveBytes;
      ASSERT_LE(liveBytes, before + 4 * out->capacity() + bytes) << "round " << i;
      ASSERT_LE(liveBytes, first + 2 * (out->capacity() + out->maxMessageSize())) << "round " << i;
    }
  }
  void readsAgain() {
    pair.flow();
    ASSERT_TRUE(pair.replica->isOpen()) << pair.replica->error();
    EXPECT_EQ(Zol::digest(*config), Zol::digest(*pair.mirror()));
    EXPECT_EQ(pair.replica->counters().refused + pair.replica->counters().unknown, 0U);
    EXPECT_FALSE(main->zolNboAttrLogSa(pair.source->out())->flowOut());
  }

  ReplicaPair pair;
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<Ucd9012ControllerConfig> main = addController(*config, "main");
  Zol::Ptr<Ucd9012ControllerConfig> mirror;
};

TEST_P(SlowPeer, ofAMillionChangesOneIsOwed) {
  mount();
  std::uint32_t next = 0;
  auto const text = [&] { return "place number " + std::to_string(1000000000 + next); };
  staysBounded(50, 4096, [&](std::uint32_t) {
    for (int i = 0; i < 20000; ++i) {
      main->reloadCauseSortKeyIs(++next);
      main->locationIs(text());
    }
  });
  readsAgain();
  EXPECT_EQ(mirror->reloadCauseSortKey(), 1000000U);
  EXPECT_EQ(mirror->location(), text());
}

// One entry per key, however often what stands under it changes, comes and goes.
TEST_P(SlowPeer, ofEachKeyOneIsOwed) {
  std::uint32_t const keys = GetParam() ? 10000 : 100000;
  auto const command = main->diagCommandConfigIs("command");
  auto const touch = [&](std::uint32_t key, std::uint32_t round) {
    main->reloadCauseIs(key, {ReloadCauses(1), CauseType(0), round, true});
    if (key % 10 == 0) command->parameterIs(key, "text" + std::to_string(round));
    if (key % 100 == 0) main->diagModeConfigIs(numbered("mode", key));
  };
  for (std::uint32_t key = 0; key < keys; ++key) touch(key, 9);
  mount();
  staysBounded(3, std::size_t{keys} * 128, [&](std::uint32_t round) {
    for (std::uint32_t key = 0; key < keys; ++key) {
      if (key % 3 == round) main->reloadCauseDel(key);
      if (key % 300 == 0) main->diagModeConfigDel(numbered("mode", key));
      touch(key, round);
    }
  });
  for (std::uint32_t key = 0; key < keys; key += 200) {
    main->reloadCauseDel(key);
    command->parameterDel(key);
    main->diagModeConfigDel(numbered("mode", key));
  }
  readsAgain();
  EXPECT_EQ(mirror->reloadCause(1).id(), 2U);
  EXPECT_EQ(mirror->diagCommandConfig()->parameter(10), "text2");
  EXPECT_EQ(mirror->diagModeConfigCount(), keys / 200);
}

// Of keys that come and go and never return nothing is kept: what is there is walked instead, and
// what a replica has put in meanwhile is not taken out.
class PassingKeys : public SlowPeer {
 protected:
  void comeAndGo(bool writable);
};

void PassingKeys::comeAndGo(bool writable) {
  auto const command = main->diagCommandConfigIs("command");
  main->reloadCauseIs(7, {});
  command->parameterIs(7, "stays");
  main->diagModeConfigIs("stays")->diagCommandConfigIs("below");
  mount(writable ? MountOptions{MountOptions::writableByPeer} : MountOptions{});
  auto const stays = mirror->diagModeConfig("stays")->diagCommandConfig();
  std::uint32_t next = 1000;
  staysBounded(6, 3 * 1024 * 256, [&](std::uint32_t) {
    for (int i = 0; i < 5000; ++i, ++next) {
      main->reloadCauseIs(next, {});
      command->parameterIs(next, "passes");
      main->diagModeConfigIs(numbered("mode", next));
      main->reloadCauseDel(next);
      command->parameterDel(next);
      main->diagModeConfigDel(numbered("mode", next));
    }
  });
  command->parameterDel(7);
  main->reloadCauseIs(8, {});
  if (writable) {
    mirror->reloadCauseIs(9, {});
    mirror->diagCommandConfig()->parameterIs(9, "there");
    mirror->diagModeConfigIs("there")->diagCommandConfigIs("below");
  }
  readsAgain();
  EXPECT_EQ(mirror->reloadCauseCount(), writable ? 3U : 2U);
  EXPECT_EQ(mirror->diagCommandConfig()->parameterCount(), writable ? 1U : 0U);
  EXPECT_EQ(mirror->diagModeConfigCount(), writable ? 2U : 1U);
  EXPECT_EQ(mirror->diagModeConfig("stays")->diagCommandConfig(), stays);
}

TEST_P(PassingKeys, areNotOwed) { comeAndGo(false); }

TEST_P(PassingKeys, areNotOwedToAReplicaThatWrites) { comeAndGo(true); }

TEST_P(SlowPeer, aTextOfTheGreatestLengthArrivesAndALongerOneCloses) {
  std::size_t const most = ConnectionOptions().maxText;
  std::string text(most, '\0');
  for (std::size_t i = 0; i < most; ++i) text[i] = static_cast<char>(i * 7919 >> 5);
  main->locationIs(text);
  auto const command = main->diagCommandConfigIs("command");
  command->parameterIs(1, text);
  mount();
  EXPECT_TRUE(mirror->location() == text);
  EXPECT_TRUE(mirror->diagCommandConfig()->parameter(1) == text);
  readsAgain();

  command->parameterIs(1, text + "x");
  pair.flow();
  EXPECT_EQ(pair.replica->error(), "text longer than 16777216 bytes");
  EXPECT_FALSE(pair.source->isOpen());
  EXPECT_TRUE(mirror->diagCommandConfig()->parameter(1) == text);
}

auto const nameOf = [](auto const& over) { return over.param ? "aSocketPair" : "memory"; };
INSTANTIATE_TEST_SUITE_P(Over, SlowPeer, testing::Bool(), nameOf);
INSTANTIATE_TEST_SUITE_P(Over, PassingKeys, testing::Bool(), nameOf);

}  // namespace
