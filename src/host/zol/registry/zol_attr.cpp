#include "host/zol/registry/zol_attr.h"

namespace Zol {

namespace {

void copyTexts(TextQueue::IteratorConst from, TextQueue& to) {
  for (; from; ++from) to.enq(*from);
}

}  // namespace

ZolAttr::ZolAttr(Name name, ZolType* owner, ZolType* type, AttrFlags flags, AttributeId id)
    : Entity(std::move(name)), owner_(owner), type_(type), id_(id), flags_(flags) {}

ZolAttr::~ZolAttr() = default;

ZolType* ZolAttr::fwkType() const { return _fwkType(); }

Ptr<ZolAttr> ZolAttr::copyFor(ZolType* owner) const {
  Ptr<ZolAttr> const copy = new ZolAttr(name(), owner, type_, flags_, id_);
  copy->keyType_ = keyType_;
  copy->introspection_ = introspection_;
  copy->keyWidth_ = keyWidth_;
  copy->keyFieldName_ = keyFieldName_;
  copy->keyAttr_ = keyAttr_;
  copyTexts(constructorArgNameQIteratorConst(), copy->argNames_);
  copyTexts(constructorArgTypeQIteratorConst(), copy->argTypes_);
  return copy;
}

}  // namespace Zol
