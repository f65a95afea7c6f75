#include "host/zol/list_raw.h"

namespace Zol {

void ListRawGeneric::pushFront(Member const& member) noexcept {
  member.next_ = head_;
  head_ = &member;
  if (!tail_) tail_ = &member;
  ++version_;
  ++count_;
}

void ListRawGeneric::pushBack(Member const& member) noexcept {
  member.next_ = nullptr;
  if (tail_) {
    tail_->next_ = &member;
  } else {
    head_ = &member;
  }
  tail_ = &member;
  ++version_;
  ++count_;
}

void ListRawGeneric::remove(Member const& member) noexcept {
  Member const* previous = nullptr;
  for (Member const* at = head_; at; previous = at, at = at->next_) {
    if (at != &member) continue;
    (previous ? previous->next_ : head_) = at->next_;
    if (tail_ == at) tail_ = previous;
    at->next_ = nullptr;
    ++version_;
    --count_;
    return;
  }
}

void ListRawGeneric::clear() noexcept {
  while (head_) {
    auto* const member = const_cast<Member*>(head_);
    head_ = member->next_;
    member->next_ = nullptr;
    if (member->weak_) member->notifier_ = nullptr;
  }
  tail_ = nullptr;
  ++version_;
  count_ = 0;
}

SnapshotIteratorGeneric::SnapshotIteratorGeneric(ListRawGeneric const& list) {
  members_ = inline_.data();
  if (list.count() > kInline) {
    overflow_.resize(list.count());
    members_ = overflow_.data();
  }
  for (Member const* at = list.head(); at; at = ListRawGeneric::next(*at)) {
    at->referencesInc();
    members_[size_++] = const_cast<Member*>(at);
  }
}

SnapshotIteratorGeneric::~SnapshotIteratorGeneric() {
  while (index_ < size_) drop();
}

void SnapshotIteratorGeneric::advance() {
  drop();
  while (index_ < size_ && members_[index_]->references() == 1) drop();
}

}  // namespace Zol
