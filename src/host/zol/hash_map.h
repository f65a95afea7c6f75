// The typed half of a hashed collection: key functions, lookup and iterators.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "host/zol/base_collection.h"
#include "host/zol/entity.h"
#include "host/zol/hash_map_generic.h"

namespace Zol {

// The bits of the key, or of its hash, in reverse order.
[[nodiscard]] inline std::uint32_t keyHash(std::uint32_t key) noexcept { return bitReverse(key); }
[[nodiscard]] inline std::uint32_t keyHash(Name const& key) noexcept {
  return bitReverse(key.hash());
}

// The key of an entry. An entity gives its name, and one of a final class without a virtual call.
template <class Entry>
[[nodiscard]] auto const& keyOfEntry(Entry const& entry) {
  if constexpr (std::is_base_of_v<Entity, Entry> && std::is_final_v<Entry>) {
    return entry.Entity::name();
  } else {
    return entry.zolKey();
  }
}

// The key functions of entries of one class. An entry gives its key by `zolKey()` and carries its
// chain link in the member `zolHashLink_`.
template <class Entry, class Key>
class HashMapVTable final : public HashMapVTableGeneric {
 public:
  [[nodiscard]] std::uint32_t hash(PtrInterface const* entry) const override {
    return keyHash(keyOf(entry));
  }
  [[nodiscard]] bool keyEquals(void const* key, PtrInterface const* entry) const override {
    return *static_cast<Key const*>(key) == keyOf(entry);
  }
  [[nodiscard]] bool keyLessThan(void const* key, PtrInterface const* entry,
                                 PtrInterface const* other) const override {
    if (other) return keyOf(other) < keyOf(entry);
    return key == nullptr || *static_cast<Key const*>(key) < keyOf(entry);
  }
  void setNext(PtrInterface* entry, PtrInterface* next) const override {
    static_cast<Entry*>(entry)->zolHashLink_.next = next;
  }

  // Made with the first map of this kind and never freed, so that maps may die in any order at the
  // end.
  static HashMapVTable const* get() {
    static HashMapVTable const* zolVTable_ = nullptr;
    if (!zolVTable_) zolVTable_ = new HashMapVTable;
    return zolVTable_;
  }

 private:
  static Key const& keyOf(PtrInterface const* entry) {
    return keyOfEntry(*static_cast<Entry const*>(entry));
  }
};

// A hashed collection of entries of class `Entry`, which hold a `Value` (the entry itself when both
// are the same class).
template <class Entry, class Key, class Value>
class HashMap {
 public:
  class IteratorConst;
  class Iterator;

  HashMap() : generic_(4) {
    static_assert(sizeof(&Entry::zolHashLink_) == sizeof(std::ptrdiff_t));
    auto const position = std::bit_cast<std::ptrdiff_t>(&Entry::zolHashLink_);
    generic_.entriesAre(HashMapVTable<Entry, Key>::get(), static_cast<std::uint16_t>(position));
  }

  [[nodiscard]] std::uint32_t count() const noexcept { return generic_.count(); }
  [[nodiscard]] std::uint32_t version() const noexcept { return generic_.version(); }

  // The entry under the key, or null. Calls nothing virtual for an entry of a final class.
  [[nodiscard]] Entry* operator[](Key const& key) const {
    auto* at = static_cast<Entry*>(generic_.chainOf(keyHash(key)));
    while (at && !(keyOfEntry(*at) == key)) at = static_cast<Entry*>(at->zolHashLink_.next.get());
    return at;
  }
  // Enters the entry. Gives the one that stood under its key before and has left for it, or null.
  Ptr<Entry> newMember(Entry* entry) {
    Ptr<PtrInterface> const replaced = generic_.newMemberG(entry, &entry->zolKey());
    return static_cast<Entry*>(replaced.get());
  }
  // Takes the entry out; does nothing for one that is no member.
  void deleteMember(Entry* entry) { generic_.deleteMember(entry); }

  // The untyped half.
  [[nodiscard]] HashMapGeneric const& generic() const noexcept { return generic_; }

 private:
  HashMapGeneric generic_;
};

// Stands on a member, or on nothing. It holds its entry and finds its way by key after any change,
// so members may come and go during a walk, also the one it stands on: a member present throughout
// is neither skipped nor seen twice. The trap: it must not outlive its collection.
template <class Entry, class Key, class Value>
class HashMap<Entry, Key, Value>::IteratorConst {
 public:
  // On the first member in walking order; on nothing for a null map.
  explicit IteratorConst(HashMap const* map) : map_(map) {
    if (!map_) return;
    entry_ = static_cast<Entry*>(map_->generic_.findNextG(nullptr, bucket_));
    version_ = map_->version();
  }
  // On the member under the key, or on nothing.
  IteratorConst(HashMap const* map, Key const& key) : map_(map) {
    if (!map_) return;
    entry_ = (*map_)[key];
    if (!entry_) return;
    bucket_ = static_cast<std::int32_t>(map_->generic_.bucketOf(keyHash(key)));
    version_ = map_->version();
  }

  // On the member under the key or, when it is absent, on the one that would follow it.
  [[nodiscard]] static IteratorConst notBefore(HashMap const* map, Key const& key) {
    IteratorConst it(nullptr);
    it.map_ = map;
    it.version_ = map->version();
    it.entry_ = static_cast<Entry*>(map->generic_.startAtHash(&key, keyHash(key), it.bucket_));
    return it;
  }

  explicit operator bool() const noexcept { return static_cast<bool>(entry_); }
  // Stays where it is when it stands on nothing.
  IteratorConst& operator++() {
    if (!entry_) return *this;
    HashMapGeneric const& generic = map_->generic_;
    PtrInterface* const next = version_ == generic.version()
                                   ? generic.next(entry_.get(), bucket_)
                                   : generic.findNextG(entry_.get(), bucket_);
    // Before the entry goes: its end may change the collection, which the next step has to see.
    version_ = generic.version();
    entry_ = static_cast<Entry*>(next);
    return *this;
  }
  [[nodiscard]] Key key() const { return entry_->zolKey(); }
  [[nodiscard]] Ptr<Value> ptr() const { return Ptr<Value>(value()); }
  [[nodiscard]] auto& operator*() const { return *value(); }
  [[nodiscard]] auto operator->() const { return value(); }
  [[nodiscard]] Entry* entry() const noexcept { return entry_.get(); }
  [[nodiscard]] HashMap const& map() const noexcept { return *map_; }

 private:
  [[nodiscard]] auto value() const { return valueOfEntry<Value>(entry_.get()); }

  std::uint32_t version_ = 0;
  std::int32_t bucket_ = -1;
  HashMap const* map_;
  Ptr<Entry> entry_;
};

template <class Entry, class Key, class Value>
class HashMap<Entry, Key, Value>::Iterator : public IteratorConst {
 public:
  using IteratorConst::IteratorConst;
};

}  // namespace Zol
