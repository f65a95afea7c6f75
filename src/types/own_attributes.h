// Registers the attributes that a class defines itself.
#pragma once

#include <span>

#include "host/zol/registry/introspection_reactor.h"
#include "host/zol/registry/type_of.h"
#include "schema/constructor_args.h"

namespace Hardware::Ucd9012 {

// Adds attributes to one type and reports each to the reactor.
class AttributeRegistration {
 public:
  AttributeRegistration(Zol::IntrospectionReactor& reactor, Zol::ZolType& type)
      : reactor_(reactor), type_(type) {}

  template <class Value>
  void plain(Zol::Name const& name, Zol::AttributeId id, Zol::AttrClass attrClass) {
    define(name, id, attrClass, Zol::typeOf<Value>(), nullptr);
  }
  template <class Value, class Key>
  void keyed(Zol::Name const& name, Zol::AttributeId id, Zol::AttrClass attrClass) {
    define(name, id, attrClass, Zol::typeOf<Value>(), Zol::typeOf<Key>());
  }
  // One entity that the holder makes.
  template <class Value>
  void child(Zol::Name const& name, Zol::AttributeId id, Zol::AttrClass attrClass) {
    Made const made = begin(name, id, attrClass, Zol::typeOf<Value>(), nullptr);
    addArgs(*made, kConstructorArgs<Value>);
    finish(made, attrClass);
  }
  // Entities by a key that is their attribute `field`; the holder makes them, or only refers to
  // them.
  template <class Value, class Key>
  void members(Zol::Name const& name, Zol::AttributeId id, Zol::AttrClass attrClass,
               Zol::Name const& field) {
    bool const makes = attrClass.flags.has(Zol::AttrFlags::kInstantiating);
    Made const made = begin(name, id, attrClass, Zol::typeOf<Value>(), &field);
    made->keyTypeIs(Zol::typeOf<Key>());
    if (makes) addArgs(*made, kConstructorArgs<Value>);
    made->keyFieldNameIs(field);
    if (makes) made->keyWidthIs(0);
    finish(made, attrClass);
  }

 private:
  using Made = Zol::Ptr<Zol::ZolAttr>;

  void define(Zol::Name const& name, Zol::AttributeId id, Zol::AttrClass attrClass,
              Zol::ZolType* type, Zol::ZolType* keyType);
  // `keyField` is null for an attribute without a key.
  [[nodiscard]] Made begin(Zol::Name const& name, Zol::AttributeId id, Zol::AttrClass attrClass,
                           Zol::ZolType* type, Zol::Name const* keyField);
  static void addArgs(Zol::ZolAttr& made, std::span<ConstructorArg const> args);
  void finish(Made const& made, Zol::AttrClass attrClass);

  Zol::IntrospectionReactor& reactor_;
  Zol::ZolType& type_;
};

// A class without attributes of its own, such as a chip variant, adds none.
template <class X>
void addOwnAttributes(AttributeRegistration&) {}

template <>
void addOwnAttributes<UcdCause>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<PsocCause>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<PageFaultCause>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<ExternalVoltageRail>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<Ucd9012DiagConfig>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<Ucd9012DiagModeConfig>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<Ucd9012DiagStatus>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<VoltageRailConfig>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<ControllerConfig>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<ControllerStatus>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<Config>(AttributeRegistration& attributes);
template <>
void addOwnAttributes<Status>(AttributeRegistration& attributes);

}  // namespace Hardware::Ucd9012
