#include "host/zol/hash_map_generic.h"

#include <utility>

namespace Zol {

namespace {
constexpr unsigned int kMaxLog = 24;
}

HashLink& HashMapGeneric::link(PtrInterface const* entry) const noexcept {
  auto* const bytes = reinterpret_cast<unsigned char*>(const_cast<PtrInterface*>(entry));
  return *reinterpret_cast<HashLink*>(bytes + linkPosition_);
}

// Whether `member` stands before the place given by a hash and, within it, a key or an entry.
bool HashMapGeneric::before(PtrInterface const* member, std::uint32_t hash, void const* key,
                            PtrInterface const* entry) const {
  std::uint32_t const mine = vTable_->hash(member);
  if (mine != hash) return mine < hash;
  if (entry) return vTable_->keyLessThan(nullptr, entry, member);
  return !vTable_->keyEquals(key, member) && !vTable_->keyLessThan(key, member, nullptr);
}

void HashMapGeneric::chain(std::uint32_t bucket, PtrInterface* previous, PtrInterface* entry) {
  Ptr<PtrInterface>& place = previous ? link(previous).next : buckets_[bucket];
  vTable_->setNext(entry, place.get());
  place = entry;
}

void HashMapGeneric::unchain(std::uint32_t bucket, PtrInterface* previous, PtrInterface* entry) {
  Ptr<PtrInterface>& place = previous ? link(previous).next : buckets_[bucket];
  Ptr<PtrInterface> const hold(entry);
  place = link(entry).next;
  vTable_->setNext(entry, nullptr);
}

Ptr<PtrInterface> HashMapGeneric::newMemberG(PtrInterface* entry, void const* key) {
  if (!buckets_) buckets_ = std::make_unique<Ptr<PtrInterface>[]>(std::size_t{1} << log_);
  if (count_ >= (std::uint32_t{1} << log_)) grow();
  Ptr<PtrInterface> const hold(entry);
  std::uint32_t const hash = vTable_->hash(entry);
  std::uint32_t const bucket = bucketOf(hash);
  PtrInterface* previous = nullptr;
  PtrInterface* at = buckets_[bucket].get();
  while (at && before(at, hash, key, nullptr)) {
    previous = at;
    at = link(at).next.get();
  }
  Ptr<PtrInterface> replaced;
  if (at && vTable_->keyEquals(key, at)) {
    replaced = at;
    unchain(bucket, previous, at);
  } else {
    ++count_;
  }
  chain(bucket, previous, entry);
  ++version_;
  return replaced;
}

void HashMapGeneric::deleteMember(PtrInterface* entry) {
  if (!buckets_) return;
  std::uint32_t const bucket = bucketOf(vTable_->hash(entry));
  PtrInterface* previous = nullptr;
  for (PtrInterface* at = buckets_[bucket].get(); at; previous = at, at = link(at).next.get()) {
    if (at != entry) continue;
    unchain(bucket, previous, entry);
    --count_;
    ++version_;
    return;
  }
}

PtrInterface* HashMapGeneric::next(PtrInterface const* entry, std::int32_t& bucket) const {
  if (PtrInterface* const follower = link(entry).next.get()) return follower;
  return findNextBucket(bucket);
}

PtrInterface* HashMapGeneric::findNextBucket(std::int32_t& bucket) const {
  std::uint32_t const end = bucketCount();
  for (auto at = static_cast<std::uint32_t>(bucket + 1); at < end; ++at) {
    if (PtrInterface* const first = buckets_[at].get()) {
      bucket = static_cast<std::int32_t>(at);
      return first;
    }
  }
  bucket = -1;
  return nullptr;
}

PtrInterface* HashMapGeneric::findNextG(PtrInterface const* entry, std::int32_t& bucket) const {
  bucket = -1;
  if (!buckets_) return nullptr;
  if (!entry) return findNextBucket(bucket);
  std::uint32_t const hash = vTable_->hash(entry);
  bucket = static_cast<std::int32_t>(bucketOf(hash));
  PtrInterface* at = buckets_[bucketOf(hash)].get();
  while (at && before(at, hash, nullptr, entry)) at = link(at).next.get();
  // What stands at the entry's own place is the entry, or one that has replaced it.
  if (at && vTable_->hash(at) == hash && !vTable_->keyLessThan(nullptr, at, entry)) {
    at = link(at).next.get();
  }
  return at ? at : findNextBucket(bucket);
}

PtrInterface* HashMapGeneric::startAtHash(void const* key, std::uint32_t hash,
                                          std::int32_t& bucket) const {
  bucket = -1;
  if (!buckets_) return nullptr;
  bucket = static_cast<std::int32_t>(bucketOf(hash));
  PtrInterface* at = buckets_[bucketOf(hash)].get();
  while (at && before(at, hash, key, nullptr)) at = link(at).next.get();
  return at ? at : findNextBucket(bucket);
}

// Each bucket falls into two neighbours, and the order within a chain stays as it is.
void HashMapGeneric::grow() {
  if (log_ >= kMaxLog) return;
  std::uint32_t const oldCount = bucketCount();
  auto const old = std::move(buckets_);
  ++log_;
  buckets_ = std::make_unique<Ptr<PtrInterface>[]>(std::size_t{1} << log_);
  for (std::uint32_t bucket = 0; bucket < oldCount; ++bucket) {
    Ptr<PtrInterface> entry = std::move(old[bucket]);
    PtrInterface* last = nullptr;
    std::uint32_t lastBucket = 0;
    while (entry) {
      Ptr<PtrInterface> const following = link(entry.get()).next;
      vTable_->setNext(entry.get(), nullptr);
      std::uint32_t const home = bucketOf(vTable_->hash(entry.get()));
      if (last && lastBucket == home) {
        vTable_->setNext(last, entry.get());
      } else {
        buckets_[home] = entry;
      }
      last = entry.get();
      lastBucket = home;
      entry = following;
    }
  }
}

void HashMapGeneric::emptyAllBuckets() {
  if (count_ == 0) return;
  ++version_;
  count_ = 0;
  std::uint32_t const end = bucketCount();
  for (std::uint32_t bucket = 0; bucket < end; ++bucket) {
    Ptr<PtrInterface> entry = std::move(buckets_[bucket]);
    while (entry) {
      Ptr<PtrInterface> following = link(entry.get()).next;
      vTable_->setNext(entry.get(), nullptr);
      entry = std::move(following);
    }
  }
}

}  // namespace Zol
