// What all collections have in common: a version by which iterators notice changes, a count, and
// iterators that hold their entry.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "host/zol/export.h"
#include "host/zol/ptr_interface.h"

namespace Zol {

class ZOL_EXPORT BaseCollection {
 public:
  class StrepIterator;

  BaseCollection() = default;
  BaseCollection(BaseCollection const&) = delete;
  BaseCollection& operator=(BaseCollection const&) = delete;
  virtual ~BaseCollection();
  // Drops the reference that an iterator holds on its entry.
  virtual void iteratorDelete(StrepIterator& iterator) const = 0;
  // Takes a reference on the entry of an iterator for a copy of it, and gives the entry.
  virtual PtrInterface* iteratorSpaceCopy(StrepIterator const& iterator) const = 0;

  // Raised at each change of membership.
  [[nodiscard]] std::uint32_t version() const noexcept { return version_; }
  [[nodiscard]] std::uint32_t count() const noexcept { return count_; }

 protected:
  std::uint32_t version_ = 0;
  std::uint32_t count_ = 0;
};

// Holds a collection, which it must not outlive, and its current entry, which it keeps alive.
class ZOL_EXPORT BaseCollection::StrepIterator {
 public:
  StrepIterator(StrepIterator const& other);
  StrepIterator& operator=(StrepIterator const& other);
  virtual ~StrepIterator();
  // Whether the iterator stands on an entry whose key is not zero.
  [[nodiscard]] virtual bool hasBookmark() const;

 protected:
  explicit StrepIterator(BaseCollection const* collection) noexcept : collection_(collection) {}

  [[nodiscard]] PtrInterface* held() const noexcept { return entry_; }
  // Holds another entry, or none, in place of the present one.
  void heldIs(PtrInterface* entry);

 private:
  template <class T>
  friend class BaseRefCollection;

  BaseCollection const* collection_;
  PtrInterface* entry_ = nullptr;
};

// A collection of counted objects of class `T`.
template <class T>
class BaseRefCollection : public BaseCollection {
 public:
  void iteratorDelete(StrepIterator& iterator) const override {
    if (PtrInterface* const entry = std::exchange(iterator.entry_, nullptr)) entry->referencesDec();
  }
  PtrInterface* iteratorSpaceCopy(StrepIterator const& iterator) const override {
    if (iterator.entry_) iterator.entry_->referencesInc();
    return iterator.entry_;
  }
};

// What an iterator over entries gives: the entry itself when that is the value, otherwise what it
// keeps.
template <class Value, class Entry>
[[nodiscard]] auto valueOfEntry(Entry* entry) {
  if constexpr (std::is_base_of_v<Value, Entry>) {
    return static_cast<Value*>(entry);
  } else {
    return entry->zolValue();
  }
}

}  // namespace Zol
