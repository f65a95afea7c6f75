// What must hold between the rows of the lists, proved when they are compiled.
#include <algorithm>
#include <ranges>

#include "host/models/power_controller.h"
#include "schema/attribute_rows.h"
#include "schema/enumerator_rows.h"

namespace Hardware::Ucd9012 {

namespace {

using Zol::AttrFlags;

// Ids of records begin behind those of counted objects as such; each level of derivation begins 128
// above the one before.
constexpr Zol::AttributeId kFirstOfRecord = 2;
constexpr Zol::AttributeId kFirstBelowEntity = 258;
constexpr Zol::AttributeId kFirstBelowController = 386;

template <class X>
constexpr bool idsRunFrom(Zol::AttributeId first) {
  return std::ranges::all_of(kAttributeRows<X>,
                             [&first](AttributeRow const& row) { return row.id == first++; });
}

static_assert(idsRunFrom<UcdCause>(kFirstOfRecord));
static_assert(idsRunFrom<PsocCause>(kFirstOfRecord));
static_assert(idsRunFrom<PageFaultCause>(kFirstOfRecord));
static_assert(idsRunFrom<ExternalVoltageRail>(kFirstOfRecord));
static_assert(idsRunFrom<Ucd9012DiagConfig>(kFirstBelowEntity));
static_assert(idsRunFrom<Ucd9012DiagModeConfig>(kFirstBelowEntity));
static_assert(idsRunFrom<Ucd9012DiagStatus>(kFirstBelowEntity));
static_assert(idsRunFrom<VoltageRailConfig>(kFirstBelowEntity));
static_assert(idsRunFrom<Config>(kFirstBelowEntity));
static_assert(idsRunFrom<Status>(kFirstBelowEntity));
static_assert(idsRunFrom<ControllerConfig>(kFirstBelowController));
static_assert(idsRunFrom<ControllerStatus>(kFirstBelowController));

constexpr bool isOneOf(AttributeKind kind, std::initializer_list<AttributeKind> kinds) {
  return std::ranges::find(kinds, kind) != kinds.end();
}

// The flag class of a row says of the attribute what its kind says.
constexpr bool classFits(AttributeRow const& row) {
  using enum AttributeKind;
  AttrFlags const flags = row.attrClass.flags;
  bool const keyed = isOneOf(row.kind, {values, texts, children, references});
  bool const made = isOneOf(row.kind, {singleton, children});
  bool const entity = made || isOneOf(row.kind, {parameterReference, reference, references});
  bool const fixed = isOneOf(row.kind, {parameter, parameterReference});
  bool const keyField = isOneOf(row.kind, {children, references});
  return flags.has(AttrFlags::kKeyed) == keyed && flags.has(AttrFlags::kInstantiating) == made &&
         flags.has(AttrFlags::kHoldsEntity) == entity && flags.has(AttrFlags::kFixed) == fixed &&
         flags.has(AttrFlags::kConstructorParameter) == fixed &&
         flags.has(AttrFlags::kHasMutator) == !fixed && flags.has(AttrFlags::kMutable) == !fixed &&
         ((row.attrClass.introspection & Zol::kIntrospectKeyField) != 0) == keyField;
}

// The operations of a class that others derive from are virtual, and only those.
template <class X>
constexpr bool classesFit(bool virtualOperations) {
  return std::ranges::all_of(kAttributeRows<X>, [virtualOperations](AttributeRow const& row) {
    return classFits(row) && row.attrClass.flags.has(AttrFlags::kVirtual) == virtualOperations;
  });
}

#define ZOL_ENTITY_TYPE(X, Base) static_assert(classesFit<X>(!std::is_same_v<Base, Zol::Entity>));
#define ZOL_RECORD_TYPE(X) static_assert(classesFit<X>(false));
#include "schema/types.def"

template <class E>
constexpr bool numbersRun() {
  unsigned int next = 0;
  return !kEnumeratorRows<E>.empty() &&
         std::ranges::all_of(kEnumeratorRows<E>,
                             [&next](Zol::Enumerator const& row) { return row.number == next++; });
}

#define ZOL_ENUM_TYPE(X) static_assert(numbersRun<X>());
#include "schema/types.def"

}  // namespace

}  // namespace Hardware::Ucd9012
