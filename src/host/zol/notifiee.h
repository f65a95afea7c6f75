// The base of everything that listens to an object: its place in the notifier's list, its link to
// the notifier, and the slots that every listener has.
#pragma once

#include <cstdint>

#include "host/zol/bit_set.h"
#include "host/zol/ptr.h"
#include "host/zol/ptr_interface.h"

namespace Zol {

class ListRawGeneric;

// A listener. Made without arguments it listens to nobody, is not registered and is active:
//
//   listener->isRegisteredNotifieeIs( true );
//   listener->notifierIs( config );      // from now on it hears every change
//
// A listener holds its notifier unless it is weak; the notifier's list does not hold the listener.
// The trap: a pass holds each listener while it runs, so a listener must be made with `new` and
// held by a `Ptr`, never live on the stack.
class ZOL_EXPORT PtrInterface::NotifieeConst : public PtrInterface {
 public:
  // Flags of the runtime, 29 of them.
  using Zol_BitSet = BitSet<29, unsigned int>;

  NotifieeConst();
  NotifieeConst(NotifieeConst const&) = delete;
  NotifieeConst& operator=(NotifieeConst const&) = delete;
  ~NotifieeConst() override;

  // The object behind this listener that reacts to what it hears, or null for a plain listener.
  [[nodiscard]] virtual NotifieeConst* zolReactor() const;
  // The same; for the runtime, which looks at what it gives.
  [[nodiscard]] virtual NotifieeConst* zolRawReactor() const;
  // Whether this is a stream adapter, which joins its notifier's list at the head.
  [[nodiscard]] virtual bool isStreamAdapter() const;
  // Enters or leaves the list of the present notifier. Without one, the wish is kept for the next.
  virtual void isRegisteredNotifieeIs(bool value) const;
  // Sets the flags of the runtime; not for clients.
  virtual void zol_bitSetIs(Zol_BitSet bits);
  // The notifier's name; empty without a notifier.
  [[nodiscard]] virtual Name name() const;
  // Starts listening to `notifier` and stops listening to the former one; null stops only. An
  // object of a class that this listener cannot listen to counts as null.
  virtual void notifierIs(Ptr<PtrInterface const> const& notifier);

  // Slots of the runtime. None of them does anything by itself.
  virtual void handleNotification(ActivityConfig* activity);
  // A slot of the runtime that does nothing by itself.
  virtual void handleDefault(ActivityConfig* activity, AttributeId id, bool whole);
  // A slot of the runtime that does nothing by itself.
  virtual void onAttribute(AttributeId id);
  // A slot of the runtime that does nothing by itself.
  virtual void onNotification();
  // A slot of the runtime that does nothing by itself.
  virtual void onCollectionNotification(String8 name);
  // A slot of the runtime that does nothing by itself; see the one with an id.
  virtual void onNotificationException();
  // Called in place of a slot of this listener that threw, inside the handling of that exception.
  // `id` is the attribute of the pass. An exception out of it leaves the mutator.
  virtual void onNotificationException(AttributeId id);
  // A slot of the runtime that does nothing by itself.
  virtual void handleNotificationException(AttributeId id);
  virtual void handleNotificationException();
  // The notifier has lost its last reference. It is still whole.
  virtual void onZeroReferences();
  // The activity that changes are queued for, or null.
  [[nodiscard]] virtual Activity* activityPtr() const;
  // The same.
  virtual Activity* zolFwkActivity();
  [[nodiscard]] virtual Activity const* zolFwkActivity() const;
  // The delivery of that activity, or null.
  virtual ActivitySm* actsm();

  // Queues the change of an attribute for the listener's activity and gives true; false when the
  // change is to be told now: there is no activity, or this is its delivery. `pending`, of a keyed
  // attribute, counts the changes that wait, up to 255. One attribute waits by its id; several wait
  // as all of them.
  bool zolOnAttribute(AttributeId id, unsigned char* pending);
  // Lets the next `zolOnAttribute` be a delivery again.
  void redispatch(ActivitySm* delivery);

  // True: from now on this listener holds no count on its notifier. A notifier that dies first
  // clears the link of the weak listeners in its list. The trap: one that has left the list before
  // learns nothing of it, and may then only be destroyed.
  void isWeakReferenceIs(bool value);
  // See `isWeakReferenceIs`; false at first.
  [[nodiscard]] bool isWeakReference() const noexcept { return weak_; }
  // See `isRegisteredNotifieeIs`; false at first.
  [[nodiscard]] bool isRegisteredNotifiee() const noexcept { return registered_; }
  // The notifier as a plain pointer, or null.
  [[nodiscard]] PtrInterface const* zolNotifier() const noexcept { return notifier_; }
  // The flags of the runtime.
  [[nodiscard]] Zol_BitSet zol_bitSet() const noexcept { return bits_; }
  // See `listenerCast`.
  [[nodiscard]] void const* zolListenerClass() const noexcept { return listenerClass_; }

 protected:
  // Switches notification on or off. Off leaves the notifier's list and remembers whether the
  // listener stood in it; on goes back in. False when it already is so.
  bool switchNotification(bool value);
  // Stores the notifier, counted unless this listener is weak, and drops the count on the old one.
  void storeNotifier(PtrInterface const* notifier);

  // In the flag word: was registered when notification was switched off.
  static constexpr unsigned int kWasRegistered = 0x80000;
  // What waits for delivery, besides the id of an attribute: nothing, every change, every
  // attribute.
  static constexpr std::uint32_t kNothing = 0;
  // Every change waits.
  static constexpr std::uint32_t kEveryChange = 0xffffffff;
  // Every attribute waits.
  static constexpr std::uint32_t kEveryAttribute = 0xfffffffe;

  // The flags of the runtime.
  Zol_BitSet bits_;
  // The attribute that waits for delivery.
  std::uint32_t runtimeWord_ = kNothing;
  // The class that this listener is of, below the class of the list that it stands in: see
  // `listenerCast`. Null for a listener of the list's own class.
  void const* listenerClass_ = nullptr;

 private:
  friend class ListRawGeneric;

  PtrInterface const* notifier_ = nullptr;
  bool weak_ = false;
  mutable bool registered_ = false;
  mutable NotifieeConst const* next_ = nullptr;
};

}  // namespace Zol
