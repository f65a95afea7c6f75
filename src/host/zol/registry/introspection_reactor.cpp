#include "host/zol/registry/introspection_reactor.h"

#include "host/zol/registry/recording_target.h"

namespace Zol {

IntrospectionTarget::~IntrospectionTarget() = default;

IntrospectionReactor::IntrospectionReactor() : target_(new RecordingTarget) {}

// Never freed: libraries may be loaded and looked at until the process has ended.
Ptr<IntrospectionReactor> IntrospectionReactor::global() {
  static IntrospectionReactor* const reactor = [] {
    auto* const made = new IntrospectionReactor;
    made->referencesLeak();
    return made;
  }();
  return reactor;
}

void IntrospectionReactor::handleNameSpace(String8 const& name) {
  if (target_) target_->handleNameSpace(name);
}

void IntrospectionReactor::handleType(ZolType* type, ZolType* base) {
  if (target_) target_->handleType(type, base);
}

void IntrospectionReactor::handleAttr(Ptr<ZolAttr> const& attr) {
  if (target_) target_->handleAttr(*attr);
}

void IntrospectionReactor::handleAttrContextExit() {
  if (target_) target_->handleAttrContextExit();
}

void IntrospectionReactor::handleScopeExit() {
  if (target_) target_->handleScopeExit();
}

Ptr<ZolAttr> IntrospectionReactor::defNoninstantiatingAttr(ZolType* type, Name const& name,
                                                           ZolType* valueType, ZolType* keyType,
                                                           AttrFlags flags,
                                                           std::uint32_t introspection,
                                                           AttributeId id) {
  Ptr<ZolAttr> const attr = type->attrIs(name, valueType, nullptr, nullptr, flags, id);
  attr->keyTypeIs(keyType);
  attr->introspectionFlagsIs(introspection);
  type->attributeQEnq(attr);
  if (target_) target_->defNoninstantiatingAttr(*attr);
  return attr;
}

}  // namespace Zol
