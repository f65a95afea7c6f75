// The listener half of a reactor: it stands in the entity's list and forwards what it hears.
#pragma once

#include "host/zol/attrlog/stream_adapter.h"

namespace Zol {

// `Listener` is the entity class's `Notifiee`, `Owner` what reacts. The owner holds this half; this
// half holds neither the owner nor the entity. A class derived from it forwards each slot that it
// reacts to.
template <class Listener, class Owner>
class ReactorAdapter : public Listener {
 public:
  ReactorAdapter(Owner* owner, Entity* entity) : owner_(owner) {
    this->bits_.flagsIs(flagStreaming, true);
    this->isRegisteredNotifieeIs(true);
    this->notifierIs(Ptr<PtrInterface const>(entity));
    this->isWeakReferenceIs(true);
  }

  [[nodiscard]] PtrInterface::NotifieeConst* zolReactor() const override { return owner_; }
  [[nodiscard]] PtrInterface::NotifieeConst* zolRawReactor() const override { return owner_; }
  [[nodiscard]] Owner* zolReactorAdapter() const noexcept { return owner_; }
  void zolReactorAdapterIs(Owner* owner) noexcept { owner_ = owner; }

  using Listener::onNotificationException;
  void onNotificationException(AttributeId id) override {
    if (owner_) owner_->onNotificationException(id);
  }
  void onZeroReferences() override {
    if (owner_) owner_->onZeroReferences();
    hasNotificationActiveIs(false);
  }

  // Off: leaves the list and remembers that it stood in it. On: goes back in. The owner follows.
  void hasNotificationActiveIs(bool value) override {
    if (!this->switchNotification(value)) return;
    if (owner_ && !this->zolMarkedForDeletion()) owner_->hasNotificationActiveIs(value);
  }

  // A zombie hears nothing more; false brings it back, with its owner.
  virtual void zolDoZombieReactors(bool value) {
    if (this->zolMarkedForDeletion() == value) return;
    Ptr<ReactorAdapter> const hold(this);
    if (!value) this->zolMarkedForDeletionIs(false);
    if (this->zolNotifier()) hasNotificationActiveIs(!value);
    this->zolMarkedForDeletionIs(value);
  }

 private:
  Owner* owner_;
};

}  // namespace Zol
