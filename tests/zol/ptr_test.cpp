// Counted objects: how long they live, what their reference word says, and what the references to
// them allow.
#include "host/zol/ptr.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "host/zol/ptr_interface.h"

namespace Zol {
namespace {

// Tells of its end, and does what the test wants when its last reference has gone.
class Node : public PtrInterface {
 public:
  explicit Node(int* ends = nullptr) : ends_(ends) {}
  ~Node() override {
    if (ends_) ++*ends_;
  }
  void zeroReferencesIs(bool) override { atZero(*this); }

  Ptr<Node> next;
  std::function<void(Node&)> atZero = [](Node&) {};

 private:
  int* ends_;
};

class Leaf : public Node {
 public:
  using Node::Node;
};

class Other : public PtrInterface {};

class CountedObject : public ::testing::Test {
 protected:
  int ends = 0;
  Ptr<Node> node = new Node(&ends);
};

TEST_F(CountedObject, StartsAtZeroAndEndsWithItsLastReference) {
  auto* const fresh = new Node(&ends);
  EXPECT_EQ(fresh->references(), 0u);
  Ptr<Node> first = fresh;
  Ptr<Node> second = first;
  EXPECT_EQ(fresh->references(), 2u);
  first = nullptr;
  EXPECT_EQ(ends, 0);
  second = nullptr;
  EXPECT_EQ(ends, 1);
}

TEST_F(CountedObject, KeepsFlagsBesideTheCountThatDoNotKeepItAlive) {
  EXPECT_EQ(PtrInterface::kReleaseMask, 0x5fffffffu);
  for (bool const set : {true, false, true}) {
    node->hasNotificationActiveIs(set);
    node->zolMarkedForDeletionIs(set);
    Ptr<Node> const second = node;
    EXPECT_EQ(node->references(), 2u);
    EXPECT_EQ(node->hasNotificationActive(), set);
    EXPECT_EQ(node->zolMarkedForDeletion(), set);
  }
  node = nullptr;
  EXPECT_EQ(ends, 1);
}

TEST_F(CountedObject, OutlivesItsHoldersByALeakedReference) {
  Node* const raw = node.get();
  raw->referencesLeak();
  node = nullptr;
  ASSERT_EQ(ends, 0);
  EXPECT_EQ(raw->references(), 1u);
  raw->referencesDec();
  EXPECT_EQ(ends, 1);
}

TEST_F(CountedObject, LivesOnWhenItIsTakenAsItsLastReferenceGoesAndIsToldOnceEachTime) {
  Ptr<Node> rescued;
  int told = 0;
  node->atZero = [&](Node& self) {
    ++told;
    for (int i = 0; i < 3; ++i) Ptr<Node> const brief = &self;
    if (told == 1) rescued = &self;
  };
  node = nullptr;
  ASSERT_EQ(ends, 0);
  EXPECT_EQ(rescued->references(), 1u);
  rescued = nullptr;
  EXPECT_EQ(told, 2);
  EXPECT_EQ(ends, 1);
}

TEST_F(CountedObject, IsCountedRightByTwoThreadsAndEndsOnce) {
  VFPtrInterface::enableThreadSafePointers = true;
  auto const copyOften = [](Ptr<Node> held) {
    for (int i = 0; i < 20000; ++i) {
      Ptr<Node> const copy = held;
      copy->zolMarkedForDeletionIs(i % 2 == 0);
    }
  };
  std::thread other(copyOften, node);
  copyOften(std::move(node));
  other.join();
  VFPtrInterface::enableThreadSafePointers = false;
  EXPECT_EQ(ends, 1);
}

using Reference = CountedObject;

TEST_F(Reference, MayBeAssignedWhatOnlyItsOldObjectHolds) {
  node->next = new Node(&ends);
  node->next->next = new Node(&ends);
  node->next->next->next = new Node(&ends);
  node = node->next;
  EXPECT_EQ(ends, 1);
  node = node->next.get();
  EXPECT_EQ(ends, 2);
  node = std::move(node->next);
  EXPECT_EQ(ends, 3);
  EXPECT_EQ(node->references(), 1u);
}

TEST_F(Reference, DoesNothingWhenAssignedItsOwnObjectAndHandsItsCountOnWhenMoved) {
  Ptr<Node>& same = node;
  node = same;
  node = same.get();
  node = std::move(same);
  EXPECT_EQ(ends, 0);
  EXPECT_EQ(node->references(), 1u);
  Ptr<Node> second = std::move(node);
  EXPECT_FALSE(node);
  Ptr<Node> third = second;
  third = std::move(second);
  EXPECT_FALSE(second);
  EXPECT_EQ(third->references(), 1u);
}

TEST_F(Reference, CastsToWhatTheObjectIs) {
  Ptr<PtrInterface> const leaf = new Leaf;
  EXPECT_EQ(ptrCast<Leaf>(leaf), leaf);
  EXPECT_EQ(ptrCast<Node>(leaf), leaf);
  EXPECT_EQ(leaf->references(), 1u);
  EXPECT_FALSE(ptrCast<Other>(leaf));
  EXPECT_FALSE(ptrCast<Leaf>(node));
  EXPECT_FALSE(ptrCast<Leaf>(Ptr<Node>()));
}

using ValidReference = CountedObject;

TEST_F(ValidReference, RefusesNull) {
  EXPECT_THROW(ValidPtr<Node>(static_cast<Node*>(nullptr)), RangeException);
  try {
    ValidPtr<Node> const valid{Ptr<Leaf>()};
    FAIL() << "took null";
  } catch (RangeException const& failure) {
    EXPECT_STREQ(failure.what(), "null ValidPtr");
  }
}

TEST_F(ValidReference, IsNeverLeftNullByAMove) {
  ValidPtr<Node> first(node);
  ValidPtr<Node> const second = std::move(first);
  EXPECT_EQ(first.get(), node.get());
  EXPECT_EQ(second.get(), node.get());
  EXPECT_EQ(node->references(), 3u);
}

}  // namespace
}  // namespace Zol
