// A singly linked queue of counted members, as the lists of arguments of the by-name interface are.
#pragma once

#include "host/zol/base_collection.h"
#include "host/zol/ptr.h"

namespace Zol {

// Members in order of entry. A member is made from what it holds (`Held`), gives it by `held()`,
// and carries its link in `zolNext_`, a `Ptr<Member>`. Copying a queue copies its members; both
// then hold the same values.
template <class Member, class Value, class Held>
class LinkedQueue : public BaseRefCollection<Member> {
 public:
  class Iterator;

  LinkedQueue() = default;
  LinkedQueue(LinkedQueue const& other) : LinkedQueue() { copy(other); }
  LinkedQueue& operator=(LinkedQueue const&) = delete;
  ~LinkedQueue() override { deleteAll(); }
  // Called when a member that is to be taken out is not in the queue.
  virtual void onDeleteMemberNotFound() {}

  [[nodiscard]] bool empty() const noexcept { return !head_; }
  [[nodiscard]] Member* head() const noexcept { return head_.get(); }
  [[nodiscard]] Member* tail() const noexcept { return tail_; }

  // Enters a value behind all others; gives its member.
  Member* enq(Held held) {
    Ptr<Member> const member(new Member(std::move(held)));
    (tail_ ? tail_->zolNext_ : head_) = member;
    tail_ = member.get();
    ++this->version_;
    ++this->count_;
    return tail_;
  }
  // Takes a member out.
  void del(Member const* member) {
    Member* previous = nullptr;
    Ptr<Member> found = head_;
    while (found && found.get() != member) {
      previous = found.get();
      found = previous->zolNext_;
    }
    if (!found) return onDeleteMemberNotFound();
    (previous ? previous->zolNext_ : head_) = found->zolNext_;
    if (tail_ == found.get()) tail_ = previous;
    found->zolNext_ = nullptr;
    ++this->version_;
    --this->count_;
  }
  // Takes the chain apart in a loop, so that a long queue does not end in a deep recursion.
  void deleteAll() {
    Ptr<Member> member = std::move(head_);
    tail_ = nullptr;
    while (member) {
      Ptr<Member> const next = std::move(member->zolNext_);
      member = next;
    }
    ++this->version_;
    this->count_ = 0;
  }

 private:
  void copy(LinkedQueue const& other) {
    if (this == &other) return;
    deleteAll();
    for (Member* member = other.head(); member; member = member->zolNext_.get()) {
      enq(member->held());
    }
    this->version_ = 0;
  }

  Ptr<Member> head_;
  Member* tail_ = nullptr;
};

// Stands on a member, which it holds, or on nothing. The trap: it must not outlive the queue.
template <class Member, class Value, class Held>
class LinkedQueue<Member, Value, Held>::Iterator : public BaseCollection::StrepIterator {
 public:
  explicit Iterator(LinkedQueue& queue) : StrepIterator(&queue), queue_(&queue) {
    heldIs(queue.head());
  }

  explicit operator bool() const noexcept { return held() != nullptr; }
  [[nodiscard]] Member* entry() const noexcept { return static_cast<Member*>(held()); }
  Value& operator*() const { return *entry()->held(); }
  Value* operator->() const { return &**this; }
  [[nodiscard]] Held const& ptr() const { return entry()->held(); }

  Iterator& operator++() {
    if (std::exchange(ahead_, false) || !held()) return *this;
    previous_ = entry();
    heldIs(previous_->zolNext_.get());
    return *this;
  }
  // Takes the member out. The iterator then stands on the one behind it, where the next step stays.
  void del() {
    Ptr<Member> const member(entry());
    if (!member) return;
    heldIs(member->zolNext_.get());
    queue_->del(member.get());
    ahead_ = true;
  }

 private:
  LinkedQueue* queue_;
  Ptr<Member> previous_;
  bool ahead_ = false;
};

}  // namespace Zol
