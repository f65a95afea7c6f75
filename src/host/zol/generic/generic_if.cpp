#include "host/zol/generic/generic_if.h"

#include "host/zol/registry/model_type.h"

namespace Zol {

GenericIf::~GenericIf() = default;

AttributeId GenericIf::attributeId(String8 name) const { throwUnknownAttrException(name); }

Ptr<GenericIf> GenericIf::attributeOp(AttributeOp const& op, Ptr<GenericIf const> const&,
                                      Ptr<GenericIf> const&) {
  requireMutable(op.opId);
  throwUnknownAttrException(type()->name());
}

void GenericIf::zolDoZombieReactors(bool value) {
  if (zolMarkedForDeletion() != value) zolMarkedForDeletionIs(value);
}

GenericIf::AttributeIteratorConst GenericIf::attributeIteratorConst(AttributeId id) const {
  throwUnknownAttrException(type()->name() + ": no attribute with keys has the id " +
                            std::to_string(id));
}

GenericIf::AttributeIteratorConst GenericIf::attributeIteratorKeyConst(
    AttributeId id, Ptr<GenericIf const> const&) const {
  return GenericIf::attributeIteratorConst(id);
}

GenericIf::AttributeIterator GenericIf::attributeIterator(AttributeId id) const {
  return attributeIteratorConst(id);
}

GenericIf::AttributeIterator GenericIf::attributeIteratorKey(
    AttributeId id, Ptr<GenericIf const> const& key) const {
  return attributeIteratorKeyConst(id, key);
}

Ptr<GenericIf> GenericIf::attributeIterator_iterObj(AttributeIteratorConst const&) {
  return nullptr;
}

Ptr<GenericIf const> GenericIf::attributeIterator_iterObj(AttributeIteratorConst const& it) const {
  return const_cast<GenericIf*>(this)->attributeIterator_iterObj(it);
}

void GenericIf::attributeIterator_iterInc(AttributeIteratorConst const&) const {}

Ptr<GenericIf> GenericIf::attributeIterator_iterKey(AttributeIteratorConst const&) const {
  return nullptr;
}

void* GenericIf::attributeIterator_iterClone(AttributeIteratorConst const&) const {
  return nullptr;
}

bool GenericIf::attributeIterator_nonNull(AttributeIteratorConst const&) const { return false; }

void GenericIf::attributeIterator_iterDel(AttributeIteratorConst const&) const {}

Ptr<GenericIf> GenericIf::clone() const { return const_cast<GenericIf*>(this)->clone(); }

void GenericIf::onAttribute(AttributeId, Ptr<GenericIf const>&) {}

void GenericIf::requireMutable(std::int32_t op) const {
  if (isConst_ && isMutation(op)) {
    throwConstException("attempting to modify a const instance");
  }
}

void GenericIf::throwConstException(String8 const& text) { throw ConstException(text); }
void GenericIf::throwBadIndexAttrException(String8 const& name) {
  throw BadIndexAttrException(name);
}
void GenericIf::throwTypeException(String8 const& name) { throw TypeException(name); }
void GenericIf::throwOpNotSupportedException(String8 const& name, std::int32_t op, bool) {
  throw OpNotSupportedException(name, op);
}
void GenericIf::throwUnknownArgException(String8 const& name) { throw UnknownArgException(name); }
void GenericIf::throwUnknownAttrException(String8 const& name) { throw UnknownAttrException(name); }

GenericIf::AttributeIteratorConst::AttributeIteratorConst(Ptr<GenericIf> generic, AttributeId id,
                                                          void* iterator)
    : generic_(std::move(generic)), id_(id), iterator_(iterator) {}

GenericIf::AttributeIteratorConst::AttributeIteratorConst(AttributeIteratorConst const& other)
    : generic_(other.generic_),
      id_(other.id_),
      iterator_(other.iterator_ ? generic_->attributeIterator_iterClone(other) : nullptr) {}

GenericIf::AttributeIteratorConst::AttributeIteratorConst(AttributeIteratorConst&& other) noexcept
    : generic_(std::move(other.generic_)),
      id_(other.id_),
      iterator_(std::exchange(other.iterator_, nullptr)) {}

GenericIf::AttributeIteratorConst& GenericIf::AttributeIteratorConst::operator=(
    AttributeIteratorConst other) noexcept {
  std::swap(generic_, other.generic_);
  std::swap(id_, other.id_);
  std::swap(iterator_, other.iterator_);
  return *this;
}

GenericIf::AttributeIteratorConst::~AttributeIteratorConst() {
  if (iterator_) generic_->attributeIterator_iterDel(*this);
}

GenericIf::AttributeIteratorConst& GenericIf::AttributeIteratorConst::operator++() {
  generic_->attributeIterator_iterInc(*this);
  return *this;
}

Ptr<GenericIf> GenericIf::AttributeIteratorConst::obj() const {
  return generic_ ? generic_->attributeIterator_iterObj(*this) : nullptr;
}

Ptr<GenericIf> GenericIf::AttributeIteratorConst::key() const {
  return generic_ ? generic_->attributeIterator_iterKey(*this) : nullptr;
}

ZolType* GenericIf::List::_fwkType() {
  static ZolType* const type = ModelType::value("Zol::GenericIf::List", sizeof(Queue)).type();
  return type;
}

GenericIf::List_::~List_() = default;

Ptr<GenericIf::List_> GenericIf::List_::List_Is() { return new List_(false); }

ZolType* GenericIf::List_::type() const { return List::_fwkType(); }

void* GenericIf::List_::voidPtrIs(Ptr<ZolType const> const& wanted) const {
  if (wanted != type()) throwTypeException(type()->name());
  return &queue_;
}

String8 GenericIf::List_::strRep() const {
  std::string text = "[";
  for (List::ZolGenericIf* at = queue_.head(); at; at = at->zolNext_.get()) {
    if (at != queue_.head()) text += ", ";
    text += at->held() ? std::string(at->held()->strRep().view()) : "None";
  }
  return text + "]";
}

Ptr<GenericIf> GenericIf::List_::clone() {
  Ptr<List_> const copy = new List_(isConst());
  for (List::ZolGenericIf* at = queue_.head(); at; at = at->zolNext_.get()) {
    copy->valueEnq(at->held());
  }
  return copy;
}

}  // namespace Zol
