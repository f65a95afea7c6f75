#include "host/zol/registry/zol_type.h"

#include <functional>
#include <unordered_map>

#include "host/zol/generic/generic_if_entity.h"
#include "host/zol/value_reading.h"

namespace Zol {

namespace {

struct NameHash {
  std::size_t operator()(Name const& name) const noexcept { return name.hash(); }
};

// All types that have a full name. Types are registered while libraries load and may be looked up
// while the process ends, so this is made on first use and never freed.
std::unordered_map<Name, ZolType*, NameHash>& typeNodes() {
  static auto* const nodes = new std::unordered_map<Name, ZolType*, NameHash>;
  return *nodes;
}

[[noreturn]] void throwNotMade(ZolType const& type, char const* from) {
  throwInternalException(type.fullName() + ": no " + (type.isEntity() ? "entity" : "value") +
                         " of this type can be made from a " + from);
}

}  // namespace

struct ZolType::Content {
  AttributeQueue attributes;
  DerivedTypeQueue derivedTypes;
  TextQueue argNames;
  TextQueue argTypes;
  std::unordered_map<Name, Ptr<ZolAttr>, NameHash> byName;
  std::unordered_map<AttributeId, ZolAttr const*> byId;

  [[nodiscard]] ZolAttributeQ* queuedAs(Name const& name) const {
    ZolAttributeQ* member = attributes.head();
    while (member && !(member->held()->name() == name)) member = member->zolNext_.get();
    return member;
  }
  // Attributes of one type have ids of their own, so the id is free once its attribute has gone.
  void forget(ZolAttr const& attr) {
    auto const found = byId.find(attr.attrId());
    if (found != byId.end() && found->second == &attr) byId.erase(found);
  }
};

ZolType::ZolType(Name name, ZolType* enclosing, ZolType* base, ZolTypeFlags const& flags)
    : Entity(std::move(name)),
      enclosing_(enclosing),
      base_(base),
      flags_(flags),
      content_(std::make_unique<Content>()) {}

ZolType::~ZolType() = default;

ZolType* ZolType::fwkType() const { return _fwkType(); }

String8 ZolType::fullName() const { return fullName_.empty() ? String8(name()) : fullName_; }

Ptr<Entity> ZolType::newEntity(Name const&, Dir*) const { throwNotMade(*this, "name"); }

Ptr<Entity> ZolType::newEntity(Ptr<NboAttrLog::In> const&, Zol_BitSet, unsigned int,
                               PtrInterface*) const {
  throwNotMade(*this, "stream");
}

void ZolType::childAttrLogIs(Ptr<ZolAttr const> const& attr, Ptr<PtrInterface> const& child,
                             Ptr<NboAttrLog::Out> const& out) const {
  if (base_) base_->childAttrLogIs(attr, child, out);
}

Ptr<GenericIf> ZolType::genericIf(void const*, bool) const { throwNotMade(*this, "value"); }

Ptr<GenericIf> ZolType::genericIf(GenericIf const*, bool) const { throwNotMade(*this, "list"); }

Ptr<GenericIf> ZolType::genericIf(String8 const& text, bool isConst) const {
  if (!isEntity_) throwNotMade(*this, "text");
  Ptr<Entity> const entity = strepToValue<Ptr<Entity>>(text);
  if (entity && !entity->fwkType()->isA(this)) {
    throwRangeException(text + " is a " + entity->fwkType()->fullName() + " and no " + fullName());
  }
  return genericIf_(entity.get(), isConst);
}

Ptr<GenericIf> ZolType::genericIf(char const* text, bool isConst) const {
  return genericIf(String8(text), isConst);
}

Ptr<GenericIf> ZolType::genericIf_(PtrInterface* object, bool isConst) const {
  Ptr<Entity> entity(dynamic_cast<Entity*>(object));
  if (entity && !entity->fwkType()->isA(this)) entity = nullptr;
  return new GenericIfEntity(entity, isConst, const_cast<ZolType*>(this));
}

Ptr<GenericIf> ZolType::genericIf(PtrInterface* object, bool isConst) {
  ZolType const* const type = object ? object->fwkType() : Entity::_fwkType();
  return type->genericIf_(object, isConst);
}

bool ZolType::typeFlagsDoEmbeddedWriteConstraints() const {
  return flags_.has(ZolTypeFlags::kEmbeddedWriteConstraints);
}

void ZolType::sizeIs(std::size_t size) { size_ = size; }

void ZolType::isValueIs(bool value) { isValue_ = value; }

void ZolType::isEnumTypeIs(bool value) { isEnumType_ = value; }

void ZolType::isEntityIs(bool value) { isEntity_ = value; }

void ZolType::hasGenericIfSupportIs(bool value) { hasGenericIfSupport_ = value; }

void ZolType::valAttrIs(Ptr<ZolAttr> const& attr) { valAttr_ = attr; }

void ZolType::attributeQEnq(Ptr<ZolAttr> const& attr) {
  Ptr<ZolAttr> const hold = attr;
  if (ZolAttributeQ* const standing = content_->queuedAs(hold->name())) {
    content_->forget(*standing->held());
    standing->heldIs(hold);
  } else {
    content_->attributes.enq(hold);
  }
  content_->byName[hold->name()] = hold;
  content_->byId[hold->attrId()] = hold.get();
}

void ZolType::derivedTypeQEnq(ZolType* derived) {
  content_->derivedTypes.enq(Ptr<ZolType>(derived));
}

void ZolType::constructorArgNameQEnq(String8 name) { content_->argNames.enq(std::move(name)); }

void ZolType::constructorArgTypeQEnq(String8 type) { content_->argTypes.enq(std::move(type)); }

Ptr<ZolAttr> ZolType::attrIs(Name const& name, ZolType* type, Ptr<ZolAttr> const& keyAttr,
                             Ptr<ZolAttr> const& redefined, AttrFlags flags, AttributeId id) {
  Ptr<ZolAttr> const made = new ZolAttr(name, this, type, flags, id);
  made->keyAttrIs(keyAttr);
  if (redefined) made->introspectionFlagsIs(redefined->introspectionFlags());
  content_->byName[name] = made;
  return made;
}

void ZolType::attrDel(Name const& name) {
  auto const found = content_->byName.find(name);
  if (found == content_->byName.end()) return;
  Ptr<ZolAttr> const hold = found->second;
  content_->byName.erase(found);
  content_->forget(*hold);
  content_->attributes.del(content_->queuedAs(hold->name()));
}

bool ZolType::isA(ZolType const* other) const noexcept {
  ZolType const* type = this;
  while (type && type != other) type = type->base_;
  return type != nullptr;
}

Ptr<ZolAttr> ZolType::attr(Name const& name) const {
  auto const found = content_->byName.find(name);
  return found == content_->byName.end() ? nullptr : found->second;
}

ZolAttr const* ZolType::attr(AttributeId id) const {
  if (content_->attributes.empty()) return base_ ? base_->attr(id) : nullptr;
  auto const found = content_->byId.find(id);
  return found == content_->byId.end() ? nullptr : found->second;
}

ZolType::AttributeQueue::IteratorConst ZolType::attributeQIteratorConst() const {
  return AttributeQueue::IteratorConst(content_->attributes);
}

ZolType::DerivedTypeQueue::IteratorConst ZolType::derivedTypeQIteratorConst() const {
  return DerivedTypeQueue::IteratorConst(content_->derivedTypes);
}

TextQueue::IteratorConst ZolType::constructorArgNameQIteratorConst() const {
  return TextQueue::IteratorConst(content_->argNames);
}

TextQueue::IteratorConst ZolType::constructorArgTypeQIteratorConst() const {
  return TextQueue::IteratorConst(content_->argTypes);
}

void ZolType::typeNodeIs(ZolType* type, String8 const& fullName) {
  type->fullName_ = fullName;
  typeNodes()[fullName] = type;
}

ZolType* ZolType::typeNode(Name const& fullName) {
  auto const found = typeNodes().find(fullName);
  return found == typeNodes().end() ? nullptr : found->second;
}

}  // namespace Zol
