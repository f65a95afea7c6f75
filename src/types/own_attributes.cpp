#include "types/own_attributes.h"

#include "host/models/siblings.h"
#include "types/all_classes.h"

namespace Hardware::Ucd9012 {

void AttributeRegistration::define(Zol::Name const& name, Zol::AttributeId id,
                                   Zol::AttrClass attrClass, Zol::ZolType* type,
                                   Zol::ZolType* keyType) {
  reactor_.defNoninstantiatingAttr(&type_, name, type, keyType, attrClass.flags,
                                   attrClass.introspection, id);
}

// What the reactor cannot define is put together here: a definition of the name that was copied
// from the base must be gone first.
AttributeRegistration::Made AttributeRegistration::begin(Zol::Name const& name, Zol::AttributeId id,
                                                         Zol::AttrClass attrClass,
                                                         Zol::ZolType* type,
                                                         Zol::Name const* keyField) {
  type_.attrDel(name);
  Made const keyAttr = keyField ? type_.attr(*keyField) : nullptr;
  return type_.attrIs(name, type, keyAttr, nullptr, attrClass.flags, id);
}

void AttributeRegistration::addArgs(Zol::ZolAttr& made, std::span<ConstructorArg const> args) {
  for (ConstructorArg const& arg : args) {
    made.constructorArgNameQEnq(arg.name);
    made.constructorArgTypeQEnq(arg.type);
  }
}

void AttributeRegistration::finish(Made const& made, Zol::AttrClass attrClass) {
  made->introspectionFlagsIs(attrClass.introspection);
  type_.attributeQEnq(made);
  reactor_.handleAttr(made);
  reactor_.handleAttrContextExit();
}

template <>
void addOwnAttributes<UcdCause>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/ucd_cause.def"
}

template <>
void addOwnAttributes<PsocCause>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/psoc_cause.def"
}

template <>
void addOwnAttributes<PageFaultCause>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/page_fault_cause.def"
}

template <>
void addOwnAttributes<ExternalVoltageRail>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/external_voltage_rail.def"
}

template <>
void addOwnAttributes<Ucd9012DiagConfig>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/ucd9012_diag_config.def"
}

template <>
void addOwnAttributes<Ucd9012DiagModeConfig>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/ucd9012_diag_mode_config.def"
}

template <>
void addOwnAttributes<Ucd9012DiagStatus>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/ucd9012_diag_status.def"
}

template <>
void addOwnAttributes<VoltageRailConfig>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/voltage_rail_config.def"
}

template <>
void addOwnAttributes<ControllerConfig>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/controller_config.def"
}

template <>
void addOwnAttributes<ControllerStatus>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/controller_status.def"
}

template <>
void addOwnAttributes<Config>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/config.def"
}

template <>
void addOwnAttributes<Status>(AttributeRegistration& attributes) {
#include "host/zol/registry/stamp_attributes.h"
#include "schema/status.def"
}

}  // namespace Hardware::Ucd9012
