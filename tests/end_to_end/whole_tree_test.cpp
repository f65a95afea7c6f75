// Whole trees of every class with every attribute set, and what becomes of them on the other end.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include "support/replica_pair.h"
#include "support/tree.h"

namespace {

using namespace test;
using Hardware::Ucd9012::Status;

class WholeTree : public testing::Test {
 protected:
  WholeTree() {
    hand.fill(*config);
    hand.fill(*status);
  }
  void expectEqual(Zol::Entity& root, Connection const& end) {
    Zol::Ptr<Zol::Entity> const mirror = end.mounted(root.name());
    ASSERT_TRUE(mirror) << end.error();
    EXPECT_EQ(textOf(root), textOf(*mirror));
    EXPECT_EQ(Zol::digest(root), Zol::digest(*mirror));
    EXPECT_EQ(end.counters().refused + end.counters().unknown + end.counters().unreplicated, 0U);
  }

  Hand hand{1};
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("config");
  Zol::Ptr<Status> status = Hardware::Ucd9012::statusFactory("status");
};

TEST_F(WholeTree, bothRootsArriveWholeOverOneConnection) {
  ReplicaPair pair;
  pair.source->mountIs(config);
  pair.source->mountIs(status);
  pair.flow();
  expectEqual(*config, *pair.replica);
  expectEqual(*status, *pair.replica);
  EXPECT_EQ(pair.replica->counters().messagesOut, 0U);
}

}  // namespace
