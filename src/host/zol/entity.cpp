#include "host/zol/entity.h"

#include "host/zol/attrlog/stream_adapter.h"
#include "host/zol/dir.h"
#include "host/zol/notification_pass.h"
#include "host/zol/path.h"
#include "host/zol/registry/zol_type.h"

namespace Zol {

Entity::Entity(Name name) : name_(std::move(name)) {}

Entity::~Entity() = default;

void Entity::zeroReferencesIs(bool) {
  if (!hasNotifiees()) return;
  notificationPass<NotifieeConst>(notifiees_, kZeroReferencesId,
                                  [](NotifieeConst& listener) { listener.onZeroReferences(); });
}

Name const& Entity::name() const { return name_; }

Ptr<Entity const> Entity::parent() const { return parent_; }

Ptr<Entity> Entity::parent() { return parent_; }

void Entity::parentIs(Ptr<Entity> const& parent) {
  // Standing in a directory is nothing that a log knows of.
  Entity const* const holder = dynamic_cast<Dir const*>(parent_) ? nullptr : parent_;
  parent_ = parent.get();
  if (!parent_ && holder) ZolNboAttrLogSa::withdrawAnnouncements(*this, *holder);
}

ZolAttr const* Entity::parentAttr() const {
  return parent_ ? parent_->fwkType()->attr(parentAttrId_) : nullptr;
}

AttributeId Entity::parentAttrId() const { return parentAttrId_; }

void Entity::parentAttrIdIs(AttributeId id) { parentAttrId_ = id; }

String8 Entity::uriPath() const { return fullName(); }

String8 Entity::fullName() const { return pathOf(*this); }

String8 Entity::attributeString(AttributeId id) const {
  ZolAttr const* const attr = _fwkType()->attr(id);
  return attr ? String8(attr->name()) : String8("unknown");
}

void Entity::zolNotifieeAdapterIs(Ptr<Entity const> const&) {}

void Entity::handleParent(Ptr<Entity> const&) {}

bool Entity::zolHasAttrLogInterface() const { return false; }

Entity::NotifieeConst::~NotifieeConst() {
  // A weak listener outside the list may have outlived its notifier, which is not looked at then.
  if (isRegisteredNotifiee() && entity()) leave();
}

void Entity::NotifieeConst::onParent() {}

void Entity::NotifieeConst::onVersion() {}

void Entity::NotifieeConst::isRegisteredNotifieeIs(bool value) const {
  if (isRegisteredNotifiee() == value) return;
  PtrInterface::NotifieeConst::isRegisteredNotifieeIs(value);
  if (!entity()) return;
  value ? join() : leave();
}

Name Entity::NotifieeConst::name() const { return entity() ? entity()->name() : Name(); }

char const Entity::NotifieeConst::kFrameListener = 0;

void Entity::NotifieeConst::notifierIs(Ptr<PtrInterface const> const& notifier) {
  listenerClass_ = &kFrameListener;
  entityIs(dynamic_cast<Entity const*>(notifier.get()));
}

void Entity::NotifieeConst::entityIs(Entity const* entity) {
  Entity const* const old = this->entity();
  if (entity == old) return;
  // A weak listener has no count on the old notifier, which may be at its end: it is not held here.
  Ptr<Entity const> const hold(isWeakReference() ? nullptr : old);
  if (old && isRegisteredNotifiee()) leave();
  storeNotifier(entity);
  if (entity && isRegisteredNotifiee()) join();
}

// Stream adapters are told first, the newest of them foremost; everybody else in order of joining.
void Entity::NotifieeConst::join() const {
  ListRawGeneric& list = const_cast<Entity*>(entity())->notifiees_;
  if (dynamic_cast<ZolNboAttrLogSa*>(zolReactor())) {
    list.pushFront(*this);
  } else {
    list.pushBack(*this);
  }
}

void Entity::NotifieeConst::leave() const {
  const_cast<Entity*>(entity())->notifiees_.remove(*this);
}

}  // namespace Zol
