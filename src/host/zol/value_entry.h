// The entries of collections that keep values, rather than entities, under a key.
#pragma once

#include "host/zol/hash_map.h"
#include "host/zol/rb_tree_map.h"

namespace Zol {

// Of an ordered collection.
template <class Key, class Value>
class OrderedValueEntry : public PtrInterface {
 public:
  // Keeps both as given.
  OrderedValueEntry(Key key, Value value) : key_(std::move(key)), value_(std::move(value)) {}

  [[nodiscard]] Key const& zolKey() const noexcept { return key_; }
  [[nodiscard]] Value const* zolValue() const noexcept { return &value_; }
  void zolValueIs(Value const& value) { value_ = value; }

 private:
  Key key_;
  Value value_;

 public:
  RbTreeLink zolTreeLink_;
};

// Of a hashed collection.
template <class Key, class Value>
class HashedValueEntry : public PtrInterface {
 public:
  // Keeps both as given.
  HashedValueEntry(Key key, Value value) : key_(std::move(key)), value_(std::move(value)) {}

  [[nodiscard]] Key const& zolKey() const noexcept { return key_; }
  [[nodiscard]] Value const* zolValue() const noexcept { return &value_; }
  void zolValueIs(Value const& value) { value_ = value; }

 private:
  Key key_;
  Value value_;

 public:
  HashLink zolHashLink_;
};

// Of a hashed collection of references, which has no key of its own: the key is the name of the
// entity that it refers to, read at each comparison.
template <class Referred>
class ReferenceEntry : public PtrInterface {
 public:
  explicit ReferenceEntry(Ptr<Referred> const& referred) : referred_(referred) {}

  [[nodiscard]] Name const& zolKey() const { return referred_->name(); }
  [[nodiscard]] Referred* zolValue() const noexcept { return referred_.get(); }
  void zolValueIs(Ptr<Referred> const& referred) { referred_ = referred; }

 private:
  Ptr<Referred> referred_;

 public:
  HashLink zolHashLink_;
};

}  // namespace Zol
