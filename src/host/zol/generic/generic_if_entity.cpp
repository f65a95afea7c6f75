#include "host/zol/generic/generic_if_entity.h"

#include "host/zol/generic/access_level.h"
#include "host/zol/generic/wrapped.h"
#include "host/zol/value_text.h"

namespace Zol {

namespace {

// The attributes that every entity has, by the ids that the registry gives them.
constexpr AttributeId kKeyId = 0;
constexpr AttributeId kNameId = 130;
constexpr AttributeId kParentId = 131;
constexpr AttributeId kParentAttrIdId = 132;
constexpr AttributeId kFullNameId = 133;
constexpr AttributeId kHasAttrLogInterfaceId = 154;

}  // namespace

GenericIfPtrInterface::~GenericIfPtrInterface() = default;

Ptr<PtrInterface const> GenericIfPtrInterface::obj() const { return zolNotifier(); }

Ptr<PtrInterface> GenericIfPtrInterface::obj() { return const_cast<PtrInterface*>(zolNotifier()); }

GenericIfEntity::GenericIfEntity(Ptr<Entity> const& entity, bool isConst, ZolType* type)
    : GenericIfPtrInterface(isConst), type_(type) {
  storeNotifier(entity.get());
}

GenericIfEntity::~GenericIfEntity() {
  if (!half_.listener) return;
  isWeakReferenceIs(false);
  half_.listener->notifierIs(nullptr);
  half_.detach(*half_.listener);
}

void GenericIfEntity::hasNotificationActiveIs(bool value) {
  if (!switchNotification(value)) return;
  if (half_.listener) half_.listener->hasNotificationActiveIs(value);
}

void GenericIfEntity::notifierIs(Ptr<PtrInterface const> const& notifier) {
  auto const* const entity = dynamic_cast<Entity const*>(notifier.get());
  bool const ofClass = entity && entity->fwkType()->isA(type());
  if (half_.listener) half_.listener->notifierIs(ofClass ? notifier : nullptr);
  storeNotifier(ofClass ? entity : nullptr);
}

void GenericIfEntity::zolDoZombieReactors(bool value) {
  if (zolMarkedForDeletion() == value) return;
  Ptr<GenericIfEntity> const hold(this);
  if (half_.listener) half_.zombie(*half_.listener, value);
  zolMarkedForDeletionIs(value);
}

void GenericIfEntity::handleNotification(ActivityConfig* activity) {
  std::uint32_t const waiting = std::exchange(runtimeWord_, kNothing);
  actsm();
  AccessRow const* const changedRow = row(static_cast<AttributeId>(waiting));
  if (changedRow && changedRow->deliver) return changedRow->deliver(*this, false);
  runtimeWord_ = waiting;
  GenericIfPtrInterface::handleNotification(activity);
  runtimeWord_ = kNothing;
  if (waiting == kEveryChange || waiting == kEveryAttribute) {
    deliverAll(level(), waiting == kEveryAttribute);
  }
}

void GenericIfEntity::deliverAll(AccessLevel const* level, bool whole) {
  if (!level) return;
  deliverAll(level->base, whole);
  for (AccessRow const& each : level->rows) {
    if (!each.deliver) continue;
    redispatch(actsm());
    each.deliver(*this, whole);
  }
}

void* GenericIfEntity::voidPtrIs(Ptr<ZolType const> const& wanted) const {
  for (ZolType const* at = type(); at; at = at->baseType()) {
    if (at == wanted.get()) return const_cast<PtrInterface*>(obj().get());
  }
  throwTypeException(type()->name());
}

AttributeId GenericIfEntity::attributeId(String8 name) const {
  for (ZolType const* at = type(); at; at = at->baseType()) {
    if (Ptr<ZolAttr> const attr = at->attr(Name(name))) return attr->attrId();
  }
  return GenericIfPtrInterface::attributeId(std::move(name));
}

Ptr<GenericIf> GenericIfEntity::attributeOp(AttributeOp const& op,
                                            Ptr<GenericIf const> const& index,
                                            Ptr<GenericIf> const& value) {
  requireMutable(op.opId);
  AccessRow const* const found = row(op.attributeId);
  if (!found) return entityAttributeOp(op, index);
  Ptr<PtrInterface> const hold = obj();
  return found->op({*found, required(), op.opId, index, value, isConst()});
}

Ptr<GenericIf> GenericIfEntity::entityAttributeOp(AttributeOp const& op,
                                                  Ptr<GenericIf const> const& index) {
  ZolAttr const* const attr = type()->attr(op.attributeId);
  if (!attr) throwUnknownAttrException(type()->name());
  if (index) throwBadIndexAttrException(attr->name());
  if (op.opId != attrOpRead) throwOpNotSupportedException(attr->name(), op.opId, false);
  Entity& entity = required();
  switch (op.attributeId) {
    case kKeyId:
      if (ZolType::KeyTextFn const key = type()->keyTextFn()) {
        return attr->type()->genericIf(key(entity), isConst());
      }
      return wrapped(entity.name(), isConst());
    case kNameId:
      return wrapped(entity.name(), isConst());
    case kParentId:
      return wrapped(entity.parent(), isConst());
    case kParentAttrIdId:
      return wrapped(static_cast<unsigned int>(entity.parentAttrId()), isConst());
    case kFullNameId:
      return wrapped(entity.fullName(), isConst());
    case kHasAttrLogInterfaceId:
      return wrapped(entity.zolHasAttrLogInterface(), isConst());
    default:
      throwUnknownAttrException(attr->name());
  }
}

String8 GenericIfEntity::strRep() const {
  return valueToStrepOfRawPtr(obj().get(), typeid(Entity));
}

Ptr<GenericIf> GenericIfEntity::clone() {
  Ptr<PtrInterface> const entity = obj();
  return type()->genericIf_(entity.get(), isConst());
}

AccessLevel const* GenericIfEntity::level() const { return nullptr; }

void GenericIfEntity::changed(AttributeId id) {
  if (zolOnAttribute(id, nullptr)) return;
  actsm();
  onAttribute(id);
}

AccessRow const* GenericIfEntity::row(AttributeId id) const {
  AccessLevel const* const rows = level();
  return rows ? rows->find(id) : nullptr;
}

AccessRow const* GenericIfEntity::rowNamed(std::string_view name) const {
  AccessLevel const* const rows = level();
  return rows ? rows->find(name) : nullptr;
}

Entity& GenericIfEntity::required() const {
  auto* const entity = dynamic_cast<Entity*>(const_cast<PtrInterface*>(obj().get()));
  if (!entity) throwRangeException(type()->fullName() + ": there is no object");
  return *entity;
}

GenericIf::AttributeIteratorConst GenericIfEntity::attributeIteratorConst(AttributeId id) const {
  AccessRow const* const found = row(id);
  if (!found || !found->walk) return GenericIfPtrInterface::attributeIteratorConst(id);
  return {Ptr<GenericIf>(const_cast<GenericIfEntity*>(this)), id, found->walk->first(required())};
}

GenericIf::AttributeIteratorConst GenericIfEntity::attributeIteratorKeyConst(
    AttributeId id, Ptr<GenericIf const> const& key) const {
  AccessRow const* const found = row(id);
  if (!found || !found->walk) {
    return GenericIfPtrInterface::attributeIteratorKeyConst(id, key);
  }
  if (!key) throwTypeException(found->keyName);
  return {Ptr<GenericIf>(const_cast<GenericIfEntity*>(this)), id,
          found->walk->at(required(), *key)};
}

Ptr<GenericIf> GenericIfEntity::attributeIterator_iterObj(AttributeIteratorConst const& it) {
  return it ? row(it.attributeId())->walk->member(it.iterator(), isConst()) : nullptr;
}

Ptr<GenericIf const> GenericIfEntity::attributeIterator_iterObj(
    AttributeIteratorConst const& it) const {
  return const_cast<GenericIfEntity*>(this)->attributeIterator_iterObj(it);
}

void GenericIfEntity::attributeIterator_iterInc(AttributeIteratorConst const& it) const {
  if (it.iterator()) row(it.attributeId())->walk->step(it.iterator());
}

Ptr<GenericIf> GenericIfEntity::attributeIterator_iterKey(AttributeIteratorConst const& it) const {
  return it ? row(it.attributeId())->walk->key(it.iterator()) : nullptr;
}

void* GenericIfEntity::attributeIterator_iterClone(AttributeIteratorConst const& it) const {
  return it.iterator() ? row(it.attributeId())->walk->clone(it.iterator()) : nullptr;
}

bool GenericIfEntity::attributeIterator_nonNull(AttributeIteratorConst const& it) const {
  return it.iterator() && row(it.attributeId())->walk->nonNull(it.iterator());
}

void GenericIfEntity::attributeIterator_iterDel(AttributeIteratorConst const& it) const {
  if (!it.iterator()) return;
  row(it.attributeId())->walk->del(it.iterator());
  it.iteratorIs(nullptr);
}

void AccessCall::refuseOp() const { GenericIf::throwOpNotSupportedException(row.name, op, false); }

void AccessCall::requireNoIndex() const {
  if (index) GenericIf::throwBadIndexAttrException(row.name);
}

GenericIf const& AccessCall::requireIndex() const {
  if (!index) GenericIf::throwTypeException(row.keyName);
  return *index;
}

GenericIf const& AccessCall::requireValue() const {
  if (!value) GenericIf::throwTypeException(row.name);
  return *value;
}

}  // namespace Zol
