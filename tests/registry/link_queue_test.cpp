// The queue of the registry: order, and walks during which members come and go.
#include "host/zol/registry/link_queue.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "host/zol/text.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Member final : public Zol::LinkQueueMember<Member, Zol::String8> {
 public:
  using LinkQueueMember::LinkQueueMember;
};

using Queue = Zol::LinkQueue<Member, std::uint32_t, Zol::String8>;
constexpr std::uint32_t kHighestKey = 0xffffffff;

std::vector<std::string> rest(Queue::IteratorConst it) {
  std::vector<std::string> texts;
  for (; it; ++it) texts.emplace_back(it->view());
  return texts;
}

class LinkQueueTest : public testing::Test {
 protected:
  Member* enq(char const* text) { return queue.enq(Zol::String8(text)); }

  Queue queue;
};

TEST_F(LinkQueueTest, WalkSeesWhatIsEnteredBehindIt) {
  enq("a");
  Queue::IteratorConst it(queue);
  enq("b");
  ++it;
  EXPECT_THAT(rest(it), ElementsAre("b"));
}

TEST_F(LinkQueueTest, WalkEndsWhenTheQueueIsEmptiedUnderIt) {
  Member const* const a = enq("a");
  Queue::IteratorConst it(queue);
  queue.del(a);
  ++it;
  EXPECT_FALSE(it);
  enq("b");
  EXPECT_THAT(rest(Queue::IteratorConst(queue)), ElementsAre("b"));
}

TEST_F(LinkQueueTest, RemovalOfAForeignMemberChangesNothing) {
  enq("a");
  std::uint32_t const version = queue.version();
  queue.del(nullptr);
  Zol::Ptr<Member> const stranger = new Member(7, Zol::String8("x"));
  queue.del(stranger.get());
  EXPECT_EQ(queue.version(), version);
}

TEST(LinkQueueBookmark, IsNeverAMemberWithKeyZero) {
  Queue queue(kHighestKey);
  queue.enq(Zol::String8("at the highest key"));
  queue.enq(Zol::String8("at 0"));
  Queue::IteratorConst it(queue);
  EXPECT_TRUE(it.hasBookmark());
  ++it;
  EXPECT_EQ(it.key(), 0U);
  EXPECT_FALSE(it.hasBookmark());
  ++it;
  EXPECT_FALSE(it.hasBookmark());
}

// Each case takes some of a to f out while a walk stands on one; with keys that rise, and with keys
// that fall from the highest to 0 behind c.
struct WalkCase {
  std::string standsOn;
  std::string takenOut;
  std::vector<std::string> seenBehind;
};

class ChangedQueue : public testing::TestWithParam<WalkCase> {
 protected:
  std::vector<std::string> seenBehind(std::uint32_t firstKey) const {
    Queue queue(firstKey);
    std::vector<Member*> members;
    for (char const* text : {"a", "b", "c", "d", "e", "f"}) {
      members.push_back(queue.enq(Zol::String8(text)));
    }
    Queue::IteratorConst it(queue);
    while (it->view() != GetParam().standsOn) ++it;
    for (char const name : GetParam().takenOut) {
      queue.del(members[static_cast<std::size_t>(name - 'a')]);
    }
    EXPECT_EQ(it->view(), GetParam().standsOn);
    ++it;
    return rest(it);
  }
};

TEST_P(ChangedQueue, WalkSeesAllThatStayBehindItWhenTheKeysRise) {
  std::vector<std::string> expected;
  for (char name = static_cast<char>(GetParam().standsOn[0] + 1); name <= 'f'; ++name) {
    if (GetParam().takenOut.find(name) == std::string::npos) expected.emplace_back(1, name);
  }
  EXPECT_EQ(seenBehind(1), expected);
}

TEST_P(ChangedQueue, WalkGoesOnInOrderOfEntryWhenTheKeysFall) {
  EXPECT_EQ(seenBehind(kHighestKey - 2), GetParam().seenBehind);
}

INSTANTIATE_TEST_SUITE_P(
    , ChangedQueue,
    testing::Values(WalkCase{"a", "b", {"c", "d", "e", "f"}},
                    WalkCase{"b", "b", {"c", "d", "e", "f"}}, WalkCase{"c", "c", {"d", "e", "f"}},
                    WalkCase{"d", "d", {"e", "f"}}, WalkCase{"e", "e", {"f"}},
                    WalkCase{"f", "f", {}}, WalkCase{"f", "a", {}},
                    WalkCase{"a", "f", {"b", "c", "d", "e"}}, WalkCase{"b", "bc", {"d", "e", "f"}},
                    WalkCase{"d", "de", {"f"}}, WalkCase{"b", "bcde", {"f"}},
                    WalkCase{"e", "ef", {}},
                    // A key between the last and the first one counts as behind the last.
                    WalkCase{"a", "a", {}}, WalkCase{"b", "ab", {}}),
    [](auto const& each) { return "On" + each.param.standsOn + "Without" + each.param.takenOut; });

}  // namespace
