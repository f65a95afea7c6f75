#include "host/zol/notifiee.h"

#include "host/zol/activity.h"

namespace Zol {

PtrInterface::NotifieeConst::NotifieeConst() { bitIs(kNotificationActive, true); }

PtrInterface::NotifieeConst::~NotifieeConst() { storeNotifier(nullptr); }

PtrInterface::NotifieeConst* PtrInterface::NotifieeConst::zolReactor() const { return nullptr; }

PtrInterface::NotifieeConst* PtrInterface::NotifieeConst::zolRawReactor() const { return nullptr; }

bool PtrInterface::NotifieeConst::isStreamAdapter() const { return false; }

void PtrInterface::NotifieeConst::isRegisteredNotifieeIs(bool value) const { registered_ = value; }

void PtrInterface::NotifieeConst::zol_bitSetIs(Zol_BitSet bits) { bits_ = bits; }

Name PtrInterface::NotifieeConst::name() const { return {}; }

void PtrInterface::NotifieeConst::notifierIs(Ptr<PtrInterface const> const& notifier) {
  storeNotifier(notifier.get());
}

void PtrInterface::NotifieeConst::handleNotification(ActivityConfig*) {}

void PtrInterface::NotifieeConst::handleDefault(ActivityConfig*, AttributeId, bool) {}

void PtrInterface::NotifieeConst::onAttribute(AttributeId) {}

void PtrInterface::NotifieeConst::onNotification() {}

void PtrInterface::NotifieeConst::onCollectionNotification(String8) {}

void PtrInterface::NotifieeConst::onNotificationException() {}

void PtrInterface::NotifieeConst::onNotificationException(AttributeId) {}

void PtrInterface::NotifieeConst::handleNotificationException(AttributeId) {}

void PtrInterface::NotifieeConst::handleNotificationException() {}

void PtrInterface::NotifieeConst::onZeroReferences() {}

Activity* PtrInterface::NotifieeConst::activityPtr() const { return nullptr; }

Activity* PtrInterface::NotifieeConst::zolFwkActivity() { return nullptr; }

Activity const* PtrInterface::NotifieeConst::zolFwkActivity() const { return nullptr; }

ActivitySm* PtrInterface::NotifieeConst::actsm() { return nullptr; }

bool PtrInterface::NotifieeConst::zolOnAttribute(AttributeId id, unsigned char* pending) {
  Activity* const activity = zolFwkActivity();
  ActivitySm* const delivery = actsm();
  if (!activity || !delivery || delivery->take()) return false;
  if (pending && *pending < 0xff) ++*pending;
  auto const waiting = static_cast<std::uint32_t>(id);
  if (runtimeWord_ == kNothing) {
    runtimeWord_ = waiting;
    activity->listenerEnq(this);
  } else if (runtimeWord_ != waiting) {
    runtimeWord_ = kEveryChange;
  }
  return true;
}

void PtrInterface::NotifieeConst::redispatch(ActivitySm* delivery) {
  if (delivery) delivery->arm();
}

void PtrInterface::NotifieeConst::isWeakReferenceIs(bool value) {
  if (weak_ == value) return;
  weak_ = value;
  if (!notifier_) return;
  if (value) {
    notifier_->referencesDec();
  } else {
    notifier_->referencesInc();
  }
}

bool PtrInterface::NotifieeConst::switchNotification(bool value) {
  if (hasNotificationActive() == value) return false;
  if (value) {
    bitIs(kNotificationActive, true);
    if (bits_.has(kWasRegistered)) isRegisteredNotifieeIs(true);
  } else {
    bits_.flagsIs(kWasRegistered, registered_);
    bitIs(kNotificationActive, false);
    isRegisteredNotifieeIs(false);
  }
  return true;
}

void PtrInterface::NotifieeConst::storeNotifier(PtrInterface const* notifier) {
  if (notifier == notifier_) return;
  PtrInterface const* const old = notifier_;
  if (notifier && !weak_) notifier->referencesInc();
  notifier_ = notifier;
  if (old && !weak_) old->referencesDec();
}

}  // namespace Zol
