// The list of an entity's listeners, and the snapshot of it that a notification pass walks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/zol/base_collection.h"
#include "host/zol/notifiee.h"

namespace Zol {

// A list of listeners linked through the listeners themselves. It holds no counts: standing in the
// list keeps nobody alive. Each insertion and removal raises the version.
class ZOL_EXPORT ListRawGeneric : public BaseRefCollection<PtrInterface::NotifieeConst> {
 public:
  class LrIteratorConst;
  using Member = PtrInterface::NotifieeConst;

  ~ListRawGeneric() override { clear(); }

  [[nodiscard]] bool empty() const noexcept { return head_ == nullptr; }
  [[nodiscard]] Member const* head() const noexcept { return head_; }
  [[nodiscard]] static Member const* next(Member const& member) noexcept { return member.next_; }

  void pushFront(Member const& member) noexcept;
  void pushBack(Member const& member) noexcept;
  // Does nothing when the member is not in the list.
  void remove(Member const& member) noexcept;
  // Unlinks every member; a weak one also forgets its notifier. The members live on.
  void clear() noexcept;

 private:
  Member const* head_ = nullptr;
  Member const* tail_ = nullptr;
};

// Walks a list as it stands, holding the listener that it stands on; for tools that look at one. A
// listener that has left the list leads nowhere: the walk ends there.
class ZOL_EXPORT ListRawGeneric::LrIteratorConst : public BaseCollection::StrepIterator {
 public:
  explicit LrIteratorConst(ListRawGeneric const& list) : StrepIterator(&list) {
    stand(list.head());
  }
  explicit operator bool() const noexcept { return held() != nullptr; }
  Member const& operator*() const noexcept { return static_cast<Member const&>(*held()); }
  Member const* operator->() const noexcept { return &**this; }
  LrIteratorConst& operator++() {
    if (held()) stand(next(**this));
    return *this;
  }

 private:
  void stand(Member const* member) { heldIs(const_cast<Member*>(member)); }
};

// The list of the listeners of class `T`.
template <class T>
class ListRaw : public ListRawGeneric {
 public:
  using Member = T;
};

// The members of a list as they stood when the snapshot was taken, each held by a count until the
// walk has passed it. What may happen during the walk: a listener added now is not seen; one that
// leaves the list is still visited while anyone else holds it, and passed over once only the
// snapshot does. Up to 16 members are held without an allocation.
class ZOL_EXPORT SnapshotIteratorGeneric {
 public:
  using Member = PtrInterface::NotifieeConst;

  explicit SnapshotIteratorGeneric(ListRawGeneric const& list);
  SnapshotIteratorGeneric(SnapshotIteratorGeneric const&) = delete;
  SnapshotIteratorGeneric& operator=(SnapshotIteratorGeneric const&) = delete;
  ~SnapshotIteratorGeneric();

  explicit operator bool() const noexcept { return index_ < size_; }
  // Drops the member that the walk stands on and those behind it that nobody else holds any more.
  void advance();

 protected:
  [[nodiscard]] Member* current() const noexcept { return members_[index_]; }

 private:
  static constexpr std::size_t kInline = 16;

  void drop() { members_[index_++]->referencesDec(); }

  std::array<Member*, kInline> inline_;
  std::vector<Member*> overflow_;
  Member** members_;
  std::size_t size_ = 0;
  std::size_t index_ = 0;
};

template <class List>
class SnapshotIterator : public SnapshotIteratorGeneric {
 public:
  using Member = typename List::Member;

  explicit SnapshotIterator(ListRawGeneric const& list) : SnapshotIteratorGeneric(list) {}
  SnapshotIterator& operator++() {
    advance();
    return *this;
  }
  Member& operator*() const noexcept { return static_cast<Member&>(*current()); }
  Member* operator->() const noexcept { return static_cast<Member*>(current()); }
};

}  // namespace Zol
