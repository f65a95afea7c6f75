// Listeners for tests.
#pragma once

#include "host/zol/ptr.h"

namespace Hardware::Ucd9012::Test {

// A new listener of class `Listener`, registered on the entity.
template <class Listener, class Notifier>
Zol::Ptr<Listener> listenTo(Zol::Ptr<Notifier> const& notifier) {
  Zol::Ptr<Listener> const listener = new Listener;
  listener->isRegisteredNotifieeIs(true);
  listener->notifierIs(notifier);
  return listener;
}

}  // namespace Hardware::Ucd9012::Test
