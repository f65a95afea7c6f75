// The typed half of an ordered collection: searches by key and iterators.
#pragma once

#include <bit>
#include <cstddef>

#include "host/zol/ptr.h"
#include "host/zol/rb_tree_map_generic.h"

namespace Zol {

// An ordered collection of entries of class `Entry`, which hold a `Value` (the entry itself when
// both are the same class). An entry gives its key by `zolKey()` and carries its links in the
// member `zolTreeLink_`. Integer keys are unsigned and compare at their own width.
template <class Entry, class Key, class Value>
class RbTreeMap final : public RbTreeMapGeneric {
 public:
  class IteratorConst;
  class Iterator;
  class TIterator;

  // The entry under the key, or null.
  [[nodiscard]] Entry* operator[](Key const& key) const {
    Entry* at = top();
    while (at && !(at->zolKey() == key)) at = key < at->zolKey() ? left(at) : right(at);
    return at;
  }
  // Enters the entry. Gives the one that stood under its key before and has left for it, or null.
  Ptr<Entry> newMember(Entry* entry) {
    Key const key = entry->zolKey();
    Entry* last = nullptr;
    bool less = true;
    for (Entry* at = top(); at; at = less ? left(at) : right(at)) {
      if (at->zolKey() == key) {
        Ptr<Entry> const replaced(at);
        memberReplace(position(), 0, at, entry);
        return replaced;
      }
      last = at;
      less = key < at->zolKey();
    }
    memberNewChild(position(), 0, last, entry, less);
    return nullptr;
  }
  // Does nothing for an entry that is no member.
  void deleteMember(Entry* entry) {
    if ((*this)[entry->zolKey()] == entry) _memberDelG(position(), 0, entry);
  }

 private:
  [[nodiscard]] static std::ptrdiff_t position() noexcept {
    static_assert(sizeof(&Entry::zolTreeLink_) == sizeof(std::ptrdiff_t));
    return std::bit_cast<std::ptrdiff_t>(&Entry::zolTreeLink_);
  }
  [[nodiscard]] Entry* top() const noexcept { return static_cast<Entry*>(root()); }
  [[nodiscard]] static Entry* left(Entry* at) noexcept {
    return static_cast<Entry*>(at->zolTreeLink_.left);
  }
  [[nodiscard]] static Entry* right(Entry* at) noexcept {
    return static_cast<Entry*>(at->zolTreeLink_.right);
  }
  // The first member, the first at or above a key, or the first above it.
  [[nodiscard]] Entry* first() const noexcept {
    return root() ? static_cast<Entry*>(leftmost(position(), root())) : nullptr;
  }
  [[nodiscard]] Entry* atOrAbove(Key const& key) const {
    Entry* candidate = nullptr;
    for (Entry* at = top(); at;) {
      if (at->zolKey() == key) return at;
      bool const less = key < at->zolKey();
      if (less) candidate = at;
      at = less ? left(at) : right(at);
    }
    return candidate;
  }
  [[nodiscard]] Entry* above(Key const& key) const {
    Entry* candidate = nullptr;
    for (Entry* at = top(); at;) {
      bool const less = key < at->zolKey();
      if (less) candidate = at;
      at = less ? left(at) : right(at);
    }
    return candidate;
  }
  [[nodiscard]] static Entry* behind(Entry* entry) noexcept {
    return static_cast<Entry*>(following(position(), entry));
  }
};

// What all iterators over entries do: hold the entry, and the version of the last step.
template <class Entry, bool kOrdered>
class BaseIteratorConst : public BaseCollection::StrepIterator {
 public:
  explicit operator bool() const noexcept { return held() != nullptr; }
  [[nodiscard]] Entry* entry() const noexcept { return static_cast<Entry*>(held()); }
  // Whether it stands on an entry whose key is not 0.
  [[nodiscard]] bool hasBookmark() const override { return entry() && entry()->zolKey() != 0; }

 protected:
  using StrepIterator::StrepIterator;

  // The collection's version at the last step.
  std::uint32_t version_ = 0;
};

// Stands on a member, or on nothing. It holds its entry and finds its way by key after any change:
// the next step then goes to the least key above the one it stood on, whether or not its own member
// is still there. So members may come and go during a walk. The trap: it must not outlive its
// collection.
template <class Entry, class Key, class Value>
class RbTreeMap<Entry, Key, Value>::IteratorConst : public BaseIteratorConst<Entry, true> {
 public:
  // On the first member; on nothing for a null map.
  explicit IteratorConst(RbTreeMap const* map) : IteratorConst(map, map ? map->first() : nullptr) {}
  // On the member under the key or, when it is absent, on the one with the least greater key.
  IteratorConst(RbTreeMap const* map, Key const& key)
      : IteratorConst(map, map ? map->atOrAbove(key) : nullptr) {}
  // The same, under the name that both kinds of collection have for it.
  [[nodiscard]] static IteratorConst notBefore(RbTreeMap const* map, Key const& key) {
    return IteratorConst(map, key);
  }

  // Moves to the member behind; stays where it is when it stands on nothing.
  void advance() {
    Entry* const at = this->entry();
    if (!at) return;
    Entry* const next = this->version_ == map_->version() ? behind(at) : map_->above(at->zolKey());
    // Before the entry goes: its end may change the collection, which the next step has to see.
    this->version_ = map_->version();
    this->heldIs(next);
  }
  IteratorConst& operator++() {
    advance();
    return *this;
  }
  [[nodiscard]] Key key() const { return this->entry()->zolKey(); }
  [[nodiscard]] Ptr<Value> ptr() const { return Ptr<Value>(value()); }
  [[nodiscard]] auto& operator*() const { return *value(); }
  [[nodiscard]] auto operator->() const { return value(); }
  [[nodiscard]] RbTreeMap const& map() const noexcept { return *map_; }

 private:
  IteratorConst(RbTreeMap const* map, Entry* entry)
      : BaseIteratorConst<Entry, true>(map), map_(map) {
    this->version_ = map ? map->version() : 0;
    this->heldIs(entry);
  }
  [[nodiscard]] auto value() const { return valueOfEntry<Value>(this->entry()); }

  RbTreeMap const* map_;
};

template <class Entry, class Key, class Value>
class RbTreeMap<Entry, Key, Value>::Iterator : public IteratorConst {
 public:
  using IteratorConst::IteratorConst;
};

template <class Entry, class Key, class Value>
class RbTreeMap<Entry, Key, Value>::TIterator : public Iterator {
 public:
  using Iterator::Iterator;
};

}  // namespace Zol
