// The queue in which a type keeps its attributes, its derived types and the texts of its
// constructor's arguments, in order of entry.
#pragma once

#include <cstdint>
#include <type_traits>

#include "host/zol/ptr.h"
#include "host/zol/ptr_interface.h"

namespace Zol {

// Base of the members of a queue, which derive from it as `Self`. A member holds an object, by
// count, or a text. Its key is its number in order of entry.
template <class Self, class Value>
class LinkQueueMember : public PtrInterface {
 public:
  // What the queue holds of a value of this class: counted objects by reference.
  using Held = std::conditional_t<std::is_base_of_v<PtrInterface, Value>, Ptr<Value>, Value>;

  LinkQueueMember(std::uint32_t key, Held held) : key_(key), held_(std::move(held)) {}

  [[nodiscard]] std::uint32_t fwkQkey() const noexcept { return key_; }
  [[nodiscard]] Held const& held() const noexcept { return held_; }
  void heldIs(Held held) { held_ = std::move(held); }

  Ptr<Self> zolNext_;

 private:
  std::uint32_t key_;
  Held held_;
};

// Members in order of entry. Keys run upward by one and wrap around. Each entry and removal raises
// the version, by which iterators notice that they must find their way anew.
template <class Member, class Key, class Value>
class LinkQueue {
 public:
  class IteratorConst;

  explicit LinkQueue(Key firstKey = 1) noexcept : nextKey_(firstKey) {}
  LinkQueue(LinkQueue const&) = delete;
  LinkQueue& operator=(LinkQueue const&) = delete;
  // Taken apart in a loop, so that a long queue does not end in a deep recursion.
  ~LinkQueue() {
    while (head_) head_ = Ptr<Member>(head_->zolNext_);
  }

  [[nodiscard]] std::uint32_t version() const noexcept { return version_; }
  [[nodiscard]] bool empty() const noexcept { return !head_; }
  [[nodiscard]] Member* head() const noexcept { return head_.get(); }
  [[nodiscard]] Member* tail() const noexcept { return tail_; }

  // Enters a value behind all others; gives its member.
  template <class Held>
  Member* enq(Held held) {
    Ptr<Member> const member = new Member(nextKey_++, std::move(held));
    (tail_ ? tail_->zolNext_ : head_) = member;
    tail_ = member.get();
    ++version_;
    return tail_;
  }

  // Takes a member out; does nothing when it is not in the queue. Iterators that stand on it go on.
  void del(Member const* member) {
    Member* previous = nullptr;
    Member* found = head_.get();
    while (found && found != member) {
      previous = found;
      found = found->zolNext_.get();
    }
    if (!found) return;
    Ptr<Member> const hold = found;
    (previous ? previous->zolNext_ : head_) = found->zolNext_;
    if (tail_ == found) tail_ = previous;
    ++version_;
  }

 private:
  Ptr<Member> head_;
  Member* tail_ = nullptr;
  Key nextKey_;
  std::uint32_t version_ = 0;
};

// Stands on a member, which it holds, or on nothing. After any change of the queue it goes on
// behind the key it stood on. The trap: it must not outlive the queue.
template <class Member, class Key, class Value>
class LinkQueue<Member, Key, Value>::IteratorConst {
 public:
  explicit IteratorConst(LinkQueue const& queue)
      : queue_(&queue), version_(queue.version()), member_(queue.head()) {}
  IteratorConst(IteratorConst const&) = default;
  IteratorConst& operator=(IteratorConst const&) = default;
  virtual ~IteratorConst() = default;

  // True on a member whose key is not 0.
  [[nodiscard]] virtual bool hasBookmark() const { return member_ && key() != 0; }

  explicit operator bool() const noexcept { return static_cast<bool>(member_); }
  [[nodiscard]] Key key() const { return member_->fwkQkey(); }
  Value const& operator*() const { return *pointer(); }
  Value const* operator->() const { return pointer(); }
  [[nodiscard]] auto const& ptr() const { return member_->held(); }

  IteratorConst& operator++() {
    if (version_ == queue_->version()) {
      member_ = next(member_.get());
    } else {
      member_ = member_ ? following(key()) : nullptr;
      version_ = queue_->version();
    }
    return *this;
  }

 private:
  static Member* next(Member const* member) { return member->zolNext_.get(); }

  [[nodiscard]] Value const* pointer() const {
    if constexpr (std::is_base_of_v<PtrInterface, Value>) {
      return member_->held().get();
    } else {
      return &member_->held();
    }
  }

  // The first member behind `key` in the order of entry, which is the order of the keys but for one
  // place where they may fall from the highest to the lowest number. Where they do, a key that lies
  // between the last and the first one is taken to be behind the last.
  [[nodiscard]] Member* following(Key key) const {
    Member* const found = atOrBehind(key);
    return found && found->fwkQkey() == key ? next(found) : found;
  }

  [[nodiscard]] Member* atOrBehind(Key key) const {
    if (queue_->empty()) return nullptr;
    Key const first = queue_->head()->fwkQkey();
    Key const last = queue_->tail()->fwkQkey();
    if (key == first) return queue_->head();
    if (key == last) return queue_->tail();
    bool const wrapped = last < first;
    bool const behindTheFall = wrapped && key < first;
    if ((!wrapped || behindTheFall) && key > last) return nullptr;
    bool fallen = false;
    Key previous = first;
    for (Member* member = queue_->head(); member; member = next(member)) {
      Key const own = member->fwkQkey();
      fallen = fallen || own < previous;
      previous = own;
      if (behindTheFall ? fallen && own >= key : fallen || own >= key) return member;
    }
    return nullptr;
  }

  LinkQueue const* queue_;
  std::uint32_t version_;
  Ptr<Member> member_;
};

}  // namespace Zol
