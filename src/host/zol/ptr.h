// Counted references: `Ptr<T>`, which may be null, and `ValidPtr<T>`, which may not.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "host/zol/exception.h"

namespace Zol {

// One counted reference to a `T`, or null. The size of a plain pointer. `*` and `->` do not test
// for null.
//
//   Zol::Ptr<Config> config = new Config( "board" );   // count 1
//
// The trap: two objects that hold each other by `Ptr` never go away; links upwards are plain
// pointers.
template <class T>
class Ptr {
 public:
  Ptr() noexcept = default;
  // A reference to nothing.
  Ptr(std::nullptr_t) noexcept {}
  // A reference to the object, which must have been made with `new`; null is allowed.
  Ptr(T* object) noexcept : object_(object) {
    if (object_) object_->referencesInc();
  }
  Ptr(Ptr const& other) noexcept : Ptr(other.object_) {}
  Ptr(Ptr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> Ptr(Ptr<U> const& other)
  noexcept : Ptr(other.get()) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> Ptr(Ptr<U>&& other)
  noexcept : object_(other.release()) {}
  ~Ptr() {
    if (object_) object_->referencesDec();
  }

  Ptr& operator=(Ptr const& other) { return assign(other.object_); }
  Ptr& operator=(Ptr&& other) {
    if (this != &other) {
      T* const old = std::exchange(object_, std::exchange(other.object_, nullptr));
      if (old) old->referencesDec();
    }
    return *this;
  }
  Ptr& operator=(T* object) { return assign(object); }
  Ptr& operator=(std::nullptr_t) { return assign(nullptr); }

  [[nodiscard]] T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  T& operator*() const noexcept { return *object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  // Gives the held count away with the plain pointer; this reference is null afterwards.
  [[nodiscard]] T* release() noexcept { return std::exchange(object_, nullptr); }

 private:
  // The new reference is taken before the old one goes: the old one may hold the new object.
  Ptr& assign(T* object) {
    if (object == object_) return *this;
    if (object) object->referencesInc();
    T* const old = std::exchange(object_, object);
    if (old) old->referencesDec();
    return *this;
  }

  T* object_ = nullptr;
};

template <class T, class U>
bool operator==(Ptr<T> const& a, Ptr<U> const& b) noexcept {
  return a.get() == b.get();
}
template <class T, class U>
requires std::is_convertible_v<U*, T const*>
bool operator==(Ptr<T> const& a, U* b) noexcept { return a.get() == b; }
template <class T>
bool operator==(Ptr<T> const& a, std::nullptr_t) noexcept {
  return a.get() == nullptr;
}

// The dynamic cast of a counted reference; null when the object is no `T`.
template <class T, class U>
Ptr<T> ptrCast(Ptr<U> const& ptr) {
  return Ptr<T>(dynamic_cast<T*>(ptr.get()));
}

// A counted reference that cannot be null. Made from null it throws `RangeException` with the text
// "null ValidPtr".
template <class T>
class ValidPtr {
 public:
  // Both throw for null.
  ValidPtr(T* object) : ptr_(object) { require(); }
  template <class U>
  requires std::is_convertible_v<U*, T*> ValidPtr(Ptr<U> ptr) : ptr_(std::move(ptr)) { require(); }
  // Copied, never moved: what is moved from would be null.
  ValidPtr(ValidPtr const&) = default;
  ValidPtr& operator=(ValidPtr const&) = default;

  [[nodiscard]] T* get() const noexcept { return ptr_.get(); }
  T* operator->() const noexcept { return ptr_.get(); }
  T& operator*() const noexcept { return *ptr_; }
  // The same reference as one that may be null.
  operator Ptr<T> const&() const noexcept { return ptr_; }
  // And as one to a base class.
  template <class U>
  requires(std::is_convertible_v<T*, U*> && !std::is_same_v<T, U>) operator Ptr<U>()
      const noexcept {
    return ptr_;
  }

 private:
  void require() const {
    if (!ptr_) throwRangeException("null ValidPtr");
  }

  Ptr<T> ptr_;
};

template <class T, class U>
bool operator==(ValidPtr<T> const& a, Ptr<U> const& b) noexcept {
  return a.get() == b.get();
}
template <class T, class U>
bool operator==(ValidPtr<T> const& a, ValidPtr<U> const& b) noexcept {
  return a.get() == b.get();
}

}  // namespace Zol
