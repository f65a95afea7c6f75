#include "types/registration.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "host/models/power_controller.h"
#include "schema/constructor_args.h"
#include "schema/enumerator_rows.h"
#include "types/all_classes.h"
#include "types/own_attributes.h"

namespace Hardware::Ucd9012 {

namespace {

using Zol::FlagClass::kE;
using Zol::FlagClass::kK;
using Zol::FlagClass::kL;

constexpr Zol::AttributeId kHasAttrLogInterfaceId = 154;
constexpr Zol::AttributeId kOwnKeyId = 0;

struct Dependency {
  std::string_view fullName;
  Zol::ZolType* (*type)();
};

constexpr auto kAlphabetically = [] {
  auto types = std::to_array<Dependency>({
#define ZOL_ANY_TYPE(X) {kFullName<X>, &Zol::typeOf<X>},
#include "schema/types.def"
  });
  std::ranges::sort(types, {}, &Dependency::fullName);
  return types;
}();

// Makes the type objects, so that no report of one type comes in between those of another.
void fetchDependencies() {
  Hardware::PowerController::ControllerConfig::_fwkType();
  Hardware::PowerController::ControllerStatus::_fwkType();
  for (Dependency const& dependency : kAlphabetically) dependency.type();
  Zol::Entity::_fwkType();
}

template <class E>
void registerEnumeration(Zol::IntrospectionReactor& reactor) {
  Zol::ZolType* const type = Zol::typeOf<E>();
  reactor.handleType(type, nullptr);
  type->sizeIs(sizeof(E));
  type->isValueIs(true);
  type->isEnumTypeIs(true);
  type->hasGenericIfSupportIs(true);
  for (Zol::Enumerator const& row : kEnumeratorRows<E>) {
    reactor.defNoninstantiatingAttr(type, row.text, type, nullptr, kE.flags, kE.introspection,
                                    static_cast<Zol::AttributeId>(row.number));
  }
  type->valAttrIs(type->attr("value"));
  reactor.handleScopeExit();
}

template <class X>
void addConstructorArgs(Zol::ZolType& type) {
  for (ConstructorArg const& arg : kConstructorArgs<X>) {
    type.constructorArgNameQEnq(arg.name);
    type.constructorArgTypeQEnq(arg.type);
  }
}

template <class R>
void registerRecord(Zol::IntrospectionReactor& reactor) {
  Zol::ZolType* const type = Zol::typeOf<R>();
  reactor.handleType(type, nullptr);
  type->sizeIs(sizeof(R));
  type->isValueIs(true);
  type->hasGenericIfSupportIs(true);
  addConstructorArgs<R>(*type);
  AttributeRegistration attributes(reactor, *type);
  addOwnAttributes<R>(attributes);
  reactor.handleScopeExit();
}

void copyAttributes(Zol::IntrospectionReactor& reactor, Zol::ZolType& type,
                    Zol::ZolType const& base) {
  for (auto it = base.attributeQIteratorConst(); it; ++it) {
    Zol::Ptr<Zol::ZolAttr> const copy = it->copyFor(&type);
    type.attributeQEnq(copy);
    reactor.handleAttr(copy);
    reactor.handleAttrContextExit();
  }
}

template <class X>
void openEntity(Zol::IntrospectionReactor& reactor, Zol::ZolType* base) {
  Zol::ZolType* const type = Zol::typeOf<X>();
  reactor.handleType(type, base);
  type->sizeIs(sizeof(X));
  type->isEntityIs(true);
  type->hasGenericIfSupportIs(true);
  addConstructorArgs<X>(*type);
  copyAttributes(reactor, *type, *base);
  AttributeRegistration attributes(reactor, *type);
  attributes.plain<bool>("zolHasAttrLogInterface", kHasAttrLogInterfaceId, kL);
  addOwnAttributes<X>(attributes);
}

template <class X, class Base>
void registerEntity(Zol::IntrospectionReactor& reactor) {
  openEntity<X>(reactor, Zol::typeOf<Base>());
  reactor.handleScopeExit();
}

template <class X, class Base, class Key>
void registerKeyedEntity(Zol::IntrospectionReactor& reactor) {
  openEntity<X>(reactor, Zol::typeOf<Base>());
  AttributeRegistration(reactor, *Zol::typeOf<X>()).plain<Key>("fwkKey", kOwnKeyId, kK);
  reactor.handleScopeExit();
}

constinit bool registered = false;

}  // namespace

void zolInitHwRailSeq() {
  if (registered) return;
  Zol::Ptr<Zol::IntrospectionReactor> const reactor = Zol::IntrospectionReactor::global();
  if (!reactor->target() || !reactor->target()->enabled()) return;
  registered = true;
  fetchDependencies();
  reactor->handleNameSpace("Hardware");
  reactor->handleNameSpace("Ucd9012");
#define ZOL_ENUM_TYPE(X) registerEnumeration<X>(*reactor);
#define ZOL_RECORD_TYPE(X) registerRecord<X>(*reactor);
#define ZOL_ENTITY_TYPE(X, Base) registerEntity<X, Base>(*reactor);
#define ZOL_KEYED_ENTITY_TYPE(X, Base, Key) registerKeyedEntity<X, Base, Key>(*reactor);
#include "schema/types.def"
  reactor->handleScopeExit();
  reactor->handleScopeExit();
}

}  // namespace Hardware::Ucd9012
