// The untyped half of every hashed collection: buckets, chains, growth and the walking order.
#pragma once

#include <cstdint>
#include <memory>

#include "host/zol/ptr.h"
#include "host/zol/ptr_interface.h"

namespace Zol {

// The link that an entry of a hashed collection carries. It holds the next entry of the chain.
struct HashLink {
  Ptr<PtrInterface> next;
};

// The reversal of the 32 bits of a number: bit 0 goes to bit 31.
[[nodiscard]] constexpr std::uint32_t bitReverse(std::uint32_t value) noexcept {
  value = ((value >> 1) & 0x55555555U) | ((value & 0x55555555U) << 1);
  value = ((value >> 2) & 0x33333333U) | ((value & 0x33333333U) << 2);
  value = ((value >> 4) & 0x0f0f0f0fU) | ((value & 0x0f0f0f0fU) << 4);
  value = ((value >> 8) & 0x00ff00ffU) | ((value & 0x00ff00ffU) << 8);
  return (value >> 16) | (value << 16);
}

// What the untyped half asks of the entries. Keys go by address of the key's type.
class ZOL_EXPORT HashMapVTableGeneric {
 public:
  // The reversed hash of the entry's key.
  [[nodiscard]] virtual std::uint32_t hash(PtrInterface const* entry) const = 0;
  [[nodiscard]] virtual bool keyEquals(void const* key, PtrInterface const* entry) const = 0;
  // With `other`: whether the key of `other` is less than that of `entry`. Without: whether `key`
  // is less than the key of `entry`; true for a null `key`.
  [[nodiscard]] virtual bool keyLessThan(void const* key, PtrInterface const* entry,
                                         PtrInterface const* other) const = 0;
  // Stores `next` in the chain link of `entry`.
  virtual void setNext(PtrInterface* entry, PtrInterface* next) const = 0;

 protected:
  ~HashMapVTableGeneric() = default;
};

// A hashed collection of counted entries. Members stand in one total order, by reversed hash and
// then by key, which growth does not change: the bucket is the top bits of the reversed hash, and
// each chain is sorted. So a walk goes on correctly from any entry after any change, also from one
// that has left.
//
// Starts with 16 buckets at the first member and doubles them when the members outnumber them.
class ZOL_EXPORT HashMapGeneric {
 public:
  // `initialLog` is the base-two logarithm of the first number of buckets, 0 to 31.
  explicit HashMapGeneric(unsigned int initialLog) : log_(static_cast<std::uint8_t>(initialLog)) {}
  HashMapGeneric(HashMapGeneric const&) = delete;
  HashMapGeneric& operator=(HashMapGeneric const&) = delete;
  ~HashMapGeneric() { emptyAllBuckets(); }

  // `linkPosition` is the offset of the `HashLink` inside an entry.
  void entriesAre(HashMapVTableGeneric const* vTable, std::uint16_t linkPosition) noexcept {
    vTable_ = vTable;
    linkPosition_ = linkPosition;
  }

  // Raised at each change of membership.
  [[nodiscard]] std::uint32_t version() const noexcept { return version_; }
  [[nodiscard]] std::uint32_t count() const noexcept { return count_; }
  [[nodiscard]] std::uint32_t bucketCount() const noexcept {
    return buckets_ ? std::uint32_t{1} << log_ : 0;
  }
  [[nodiscard]] std::uint32_t bucketOf(std::uint32_t hash) const noexcept {
    return log_ == 0 ? 0 : hash >> (32U - log_);
  }

  // Chains the entry. `key` is the entry's key; one that exists under an equal key is replaced, and
  // the count stays. Gives the entry that was replaced, or null.
  Ptr<PtrInterface> newMemberG(PtrInterface* entry, void const* key);
  // Unchains the entry; does nothing when it is not a member.
  void deleteMember(PtrInterface* entry);
  // The first member of the bucket of a hash, or null.
  [[nodiscard]] PtrInterface* chainOf(std::uint32_t hash) const noexcept {
    return buckets_ ? buckets_[bucketOf(hash)].get() : nullptr;
  }
  // The member behind `entry` in walking order, whether or not `entry` is still a member; the first
  // one for a null `entry`. `bucket` takes its bucket, -1 at the end.
  [[nodiscard]] PtrInterface* findNextG(PtrInterface const* entry, std::int32_t& bucket) const;
  // The member behind `entry`, which is a member in `bucket`: no key is read.
  [[nodiscard]] PtrInterface* next(PtrInterface const* entry, std::int32_t& bucket) const;
  // The first member of the first bucket behind `bucket` that has one; null at the end.
  [[nodiscard]] PtrInterface* findNextBucket(std::int32_t& bucket) const;
  // The first member that does not stand before the key. `bucket` takes its bucket, -1 at the end.
  [[nodiscard]] PtrInterface* startAtHash(void const* key, std::uint32_t hash,
                                          std::int32_t& bucket) const;
  // Releases all members; chains of any length are taken down without recursion.
  void emptyAllBuckets();

 private:
  [[nodiscard]] HashLink& link(PtrInterface const* entry) const noexcept;
  [[nodiscard]] bool before(PtrInterface const* member, std::uint32_t hash, void const* key,
                            PtrInterface const* entry) const;
  void unchain(std::uint32_t bucket, PtrInterface* previous, PtrInterface* entry);
  void chain(std::uint32_t bucket, PtrInterface* previous, PtrInterface* entry);
  void grow();

  std::uint32_t version_ = 0;
  std::uint32_t count_ = 0;
  HashMapVTableGeneric const* vTable_ = nullptr;
  std::uint8_t log_;
  std::uint16_t linkPosition_ = 0;
  std::unique_ptr<Ptr<PtrInterface>[]> buckets_;
};

}  // namespace Zol
