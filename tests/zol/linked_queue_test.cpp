// The queue of argument lists: order, taking out, copies, walks, and long chains.
#include "host/zol/linked_queue.h"

#include <gtest/gtest.h>

#include <vector>

namespace Zol {
namespace {

struct Value : PtrInterface {
  explicit Value(int n) : number(n) {}
  int number;
};
class Member : public PtrInterface {
 public:
  explicit Member(Ptr<Value> held) : held_(std::move(held)) {}
  [[nodiscard]] Ptr<Value> const& held() const { return held_; }
  Ptr<Member> zolNext_;

 private:
  Ptr<Value> held_;
};
class Queue : public LinkedQueue<Member, Value, Ptr<Value>> {
 public:
  int notFound = 0;
  void onDeleteMemberNotFound() override { ++notFound; }
};

std::vector<int> numbers(LinkedQueue<Member, Value, Ptr<Value>>& queue) {
  std::vector<int> all;
  for (Queue::Iterator it(queue); it; ++it) all.push_back(it->number);
  return all;
}

TEST(LinkedQueue, KeepsTheOrderAndTakesOutAtAnyPlace) {
  Queue queue;
  std::vector<Member*> members;
  for (int i = 0; i < 5; ++i) members.push_back(queue.enq(new Value(i)));
  for (int const out : {0, 4, 2}) queue.del(members[static_cast<std::size_t>(out)]);
  EXPECT_EQ(numbers(queue), (std::vector{1, 3}));
  Ptr<Member> const apart(new Member(new Value(9)));
  queue.del(apart.get());
  EXPECT_EQ(queue.notFound, 1);
  EXPECT_EQ(queue.count(), 2u);
  queue.enq(new Value(5));
  EXPECT_EQ(numbers(queue), (std::vector{1, 3, 5}));
  EXPECT_EQ(queue.version(), 9u);
}

TEST(LinkedQueue, CopiesItsMembersAndSharesTheValues) {
  Queue queue;
  for (int i = 0; i < 3; ++i) queue.enq(new Value(i));
  Queue copy(queue);
  EXPECT_EQ(copy.version(), 0u);
  EXPECT_EQ(copy.head()->held(), queue.head()->held());
  queue.deleteAll();
  EXPECT_TRUE(queue.empty());
  EXPECT_EQ(numbers(copy), (std::vector{0, 1, 2}));
}

TEST(LinkedQueue, IsTakenApartUnderAWalk) {
  Queue queue;
  for (int i = 0; i < 4; ++i) queue.enq(new Value(i));
  std::vector<int> seen;
  for (Queue::Iterator it(queue); it; ++it) {
    seen.push_back(it->number);
    if (it->number % 2 == 0) it.del();
  }
  EXPECT_EQ(seen, (std::vector{0, 1, 2, 3}));
  EXPECT_EQ(numbers(queue), (std::vector{1, 3}));
}

TEST(LinkedQueue, EndsWithoutDeepRecursion) {
  Queue queue;
  for (int i = 0; i < 1000000; ++i) queue.enq(new Value(i));
  queue.deleteAll();
  EXPECT_EQ(queue.count(), 0u);
}

}  // namespace
}  // namespace Zol
