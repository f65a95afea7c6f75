// The root of all counted objects: one 32-bit reference word and the virtual operations that every
// object of the runtime has.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "host/zol/export.h"
#include "host/zol/forward.h"

namespace Zol {

// Process-wide switch of the reference arithmetic. Set it before a second thread touches a counted
// object; setting it back while other threads run is not supported.
struct ZOL_EXPORT VFPtrInterface {
  // True makes each change of a reference word atomic; false at first.
  static bool enableThreadSafePointers;
};

// A counted object. A new one has count 0; the first `Ptr` makes it 1 and the last one to go
// destroys it, so an object that is ever held by a `Ptr` must have been made with `new`.
//
// Reference word: bits 0 to 28 the count, bit 29 notification active, bit 30 being released, bit 31
// marked for deletion. Bits 29 and 31 do not keep an object alive.
class ZOL_EXPORT PtrInterface {
 public:
  class NotifieeConst;

  // The bits of the count.
  static constexpr std::uint32_t kCountMask = 0x1fffffff;
  // Bit 29.
  static constexpr std::uint32_t kNotificationActive = 0x20000000;
  // Bit 30.
  static constexpr std::uint32_t kReleasing = 0x40000000;
  // Bit 31.
  static constexpr std::uint32_t kMarkedForDeletion = 0x80000000;
  // The bits that keep an object alive.
  static constexpr std::uint32_t kReleaseMask = kCountMask | kReleasing;

  PtrInterface() noexcept = default;
  // A copy is a new object that nobody refers to yet.
  PtrInterface(PtrInterface const&) noexcept {}
  PtrInterface& operator=(PtrInterface const&) noexcept { return *this; }

  static void* operator new(std::size_t size) { return ::operator new(size); }
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void* object) noexcept { ::operator delete(object); }
  static void operator delete(void*, void*) noexcept {}

  // Adds a reference.
  void referencesInc() const noexcept { add(1); }
  // Drops one reference; the last one runs `handleZeroRef`.
  void referencesDec() const {
    if ((add(~std::uint32_t{0}) & kReleaseMask) == 0) handleZeroRef();
  }
  // Drops a reference without the end of an object that nobody else holds: see `SelfHold`.
  void referencesDecKeep() const noexcept { add(~std::uint32_t{0}); }
  // Adds a reference that nobody ever drops, so that the object lives as long as the process.
  void referencesLeak() const noexcept { add(1); }
  // The count, without the other bits.
  [[nodiscard]] std::uint32_t references() const noexcept { return word() & kCountMask; }

  // Whether notification is active.
  [[nodiscard]] bool hasNotificationActive() const noexcept {
    return (word() & kNotificationActive) != 0;
  }
  // Whether the object is marked for deletion.
  [[nodiscard]] bool zolMarkedForDeletion() const noexcept {
    return (word() & kMarkedForDeletion) != 0;
  }
  // Sets or clears the mark; it neither keeps the object alive nor ends it.
  void zolMarkedForDeletionIs(bool value) const noexcept { bitIs(kMarkedForDeletion, value); }

  // Sets or clears the notification bit; objects that listen do more.
  virtual void hasNotificationActiveIs(bool value);
  // A hook of the runtime; it does nothing.
  virtual void zolAuditErrors(unsigned int level) const;
  // A hook of the runtime; it does nothing.
  virtual void auditErrors(unsigned int level) const;
  // Told by the runtime when the last reference has gone, while the object is still whole.
  virtual void zeroReferencesIs(bool value);
  [[nodiscard]] virtual ZolType* fwkType() const;
  virtual ~PtrInterface();

  // The type object of counted objects as such, the root of all types of objects.
  static ZolType* _fwkType();

 protected:
  // Sets or clears one of the bits beside the count.
  void bitIs(std::uint32_t bit, bool value) const noexcept {
    if (VFPtrInterface::enableThreadSafePointers) {
      std::atomic_ref<std::uint32_t> shared(word_);
      value ? shared.fetch_or(bit) : shared.fetch_and(~bit);
    } else {
      word_ = value ? (word_ | bit) : (word_ & ~bit);
    }
  }

 private:
  // Returns the word after the addition.
  std::uint32_t add(std::uint32_t step) const noexcept {
    if (VFPtrInterface::enableThreadSafePointers) {
      return std::atomic_ref<std::uint32_t>(word_).fetch_add(step, std::memory_order_acq_rel) +
             step;
    }
    return word_ += step;
  }
  [[nodiscard]] std::uint32_t word() const noexcept {
    if (VFPtrInterface::enableThreadSafePointers) {
      return std::atomic_ref<std::uint32_t>(word_).load(std::memory_order_acquire);
    }
    return word_;
  }
  void handleZeroRef() const;

  mutable std::uint32_t word_ = 0;
};

// Holds an object while it works on itself and hands itself out. One that nobody held before is not
// destroyed by that: it goes back to count 0 and waits for its first owner.
class SelfHold {
 public:
  explicit SelfHold(PtrInterface const& object) noexcept
      : object_(object), unowned_(object.references() == 0) {
    object_.referencesInc();
  }
  ~SelfHold() { unowned_ ? object_.referencesDecKeep() : object_.referencesDec(); }
  SelfHold(SelfHold const&) = delete;
  SelfHold& operator=(SelfHold const&) = delete;

 private:
  PtrInterface const& object_;
  bool const unowned_;
};

}  // namespace Zol
