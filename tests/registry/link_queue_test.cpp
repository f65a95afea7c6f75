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
  Queue::IteratorConst at(char const* text) const {
    Queue::IteratorConst it(queue);
    while (it && it->view() != text) ++it;
    return it;
  }

  Queue queue;
};

TEST_F(LinkQueueTest, WalksInOrderOfEntry) {
  EXPECT_THAT(rest(Queue::IteratorConst(queue)), IsEmpty());
  enq("a");
  enq("b");
  enq("c");
  EXPECT_THAT(rest(Queue::IteratorConst(queue)), ElementsAre("a", "b", "c"));
}

TEST_F(LinkQueueTest, WalkSeesWhatIsEnteredBehindIt) {
  enq("a");
  Queue::IteratorConst it(queue);
  enq("b");
  ++it;
  EXPECT_THAT(rest(it), ElementsAre("b"));
}

TEST_F(LinkQueueTest, WalkGoesOnAfterItsOwnMemberWasTakenOut) {
  enq("a");
  Member const* const b = enq("b");
  enq("c");
  Queue::IteratorConst it = at("b");
  queue.del(b);
  EXPECT_EQ(it->view(), "b");
  ++it;
  EXPECT_THAT(rest(it), ElementsAre("c"));
  EXPECT_THAT(rest(Queue::IteratorConst(queue)), ElementsAre("a", "c"));
}

TEST_F(LinkQueueTest, WalkEndsWhenTheLastMemberIsTakenOutUnderIt) {
  enq("a");
  Member const* const b = enq("b");
  Queue::IteratorConst it = at("b");
  queue.del(b);
  ++it;
  EXPECT_FALSE(it);
  enq("c");
  EXPECT_THAT(rest(Queue::IteratorConst(queue)), ElementsAre("a", "c"));
}

TEST_F(LinkQueueTest, WalkEndsWhenTheQueueIsEmptied) {
  Member const* const a = enq("a");
  Queue::IteratorConst it(queue);
  queue.del(a);
  ++it;
  EXPECT_FALSE(it);
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

// The keys of a to f fall from the highest to 0 behind c. Each case takes some out while a walk
// stands on one.
struct WrapCase {
  std::string standsOn;
  std::string takenOut;
  std::vector<std::string> seenBehind;
};

class WrappedQueue : public testing::TestWithParam<WrapCase> {};

TEST_P(WrappedQueue, WalkGoesOnInOrderOfEntry) {
  Queue queue(kHighestKey - 2);
  std::vector<Member*> members;
  for (char const* text : {"a", "b", "c", "d", "e", "f"}) {
    members.push_back(queue.enq(Zol::String8(text)));
  }
  Queue::IteratorConst it(queue);
  while (it->view() != GetParam().standsOn) ++it;
  for (char const name : GetParam().takenOut) {
    queue.del(members[static_cast<std::size_t>(name - 'a')]);
  }
  ++it;
  EXPECT_EQ(rest(it), GetParam().seenBehind);
}

INSTANTIATE_TEST_SUITE_P(
    , WrappedQueue,
    testing::Values(WrapCase{"a", "b", {"c", "d", "e", "f"}},
                    WrapCase{"b", "b", {"c", "d", "e", "f"}}, WrapCase{"c", "c", {"d", "e", "f"}},
                    WrapCase{"d", "d", {"e", "f"}}, WrapCase{"e", "e", {"f"}},
                    WrapCase{"f", "f", {}}, WrapCase{"f", "a", {}},
                    WrapCase{"a", "f", {"b", "c", "d", "e"}}, WrapCase{"b", "bc", {"d", "e", "f"}},
                    WrapCase{"d", "de", {"f"}}, WrapCase{"b", "bcde", {"f"}},
                    WrapCase{"e", "ef", {}},
                    // A key between the last and the first one counts as behind the last.
                    WrapCase{"a", "a", {}}, WrapCase{"b", "ab", {}}),
    [](auto const& each) { return "On" + each.param.standsOn + "Without" + each.param.takenOut; });

}  // namespace
