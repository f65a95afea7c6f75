// The pass that tells an entity's listeners of one change.
#pragma once

#include "host/zol/entity.h"
#include "host/zol/expect.h"

namespace Zol {

// Whether a listener of the list's class is one of the class `To` below it, without a walk of the
// type tree: each such class marks its listeners with the address of its `kListenerClass` at
// construction. A class whose listeners are all that its list can hold but those of the frame,
// which hear of the entity's end only, has no mark of its own.
template <class To>
To* listenerCast(Entity::NotifieeConst& member) {
  if constexpr (requires { To::kListenerClass; }) {
    return To::isListener(member) ? static_cast<To*>(&member) : nullptr;
  } else if constexpr (std::is_same_v<To, Entity::NotifieeConst>) {
    return &member;
  } else {
    return member.isOfFrame() ? nullptr : static_cast<To*>(&member);
  }
}

// Calls `slot( listener )` for each listener of class `To`, in list order. A listener that throws
// is told so through `onNotificationException( id )`, and the pass goes on; an exception out of
// that leaves the pass. Listeners of another class than `To` are skipped silently. What happens to
// members that come and go meanwhile is told at `SnapshotIteratorGeneric`.
template <class To, class Slot>
void notificationPass(ListRawGeneric const& listeners, AttributeId id, Slot&& slot) {
  for (SnapshotIterator<ListRaw<Entity::NotifieeConst>> it(listeners); it; ++it) {
    try {
      Expect const scope(0);
      if (To* const listener = listenerCast<To>(*it)) slot(*listener);
    } catch (...) {
      it->onNotificationException(id);
    }
  }
}

}  // namespace Zol
