#include "host/zol/base_collection.h"

namespace Zol {

using StrepIterator = BaseCollection::StrepIterator;

BaseCollection::~BaseCollection() = default;

StrepIterator::StrepIterator(StrepIterator const& other)
    : collection_(other.collection_),
      entry_(collection_ ? collection_->iteratorSpaceCopy(other) : nullptr) {}

StrepIterator& StrepIterator::operator=(StrepIterator const& other) {
  if (this == &other) return *this;
  PtrInterface* const entry =
      other.collection_ ? other.collection_->iteratorSpaceCopy(other) : nullptr;
  if (collection_) collection_->iteratorDelete(*this);
  collection_ = other.collection_;
  entry_ = entry;
  return *this;
}

StrepIterator::~StrepIterator() {
  if (collection_) collection_->iteratorDelete(*this);
}

bool StrepIterator::hasBookmark() const { return false; }

void StrepIterator::heldIs(PtrInterface* entry) {
  if (entry) entry->referencesInc();
  if (PtrInterface* const old = std::exchange(entry_, entry)) old->referencesDec();
}

}  // namespace Zol
