// A diagnostic command with its parameters.
#pragma once

#include <cstdint>

#include "entities/entity_rules.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// What a controller is asked to do for diagnosis. The answer stands in a `Ucd9012DiagStatus` of the
// status side; nothing here compares the two.
//
// A mutator `<attr>Is( value )` with the present value does nothing. Otherwise it stores the value,
// adds 1 to the mutation counter and tells each listener through `on<Attr>()`. No value is refused.
class ZOL_EXPORT Ucd9012DiagConfig final : public EntityRules<Zol::AttributeRules<Zol::Entity>> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/ucd9012_diag_config.def"
    };
  };

  // An entry of `parameter`.
  class ZolParameter final : public Zol::OrderedValueEntry<std::uint32_t, Zol::String8> {
    using OrderedValueEntry::OrderedValueEntry;
  };
  using ParameterMap = Zol::RbTreeMap<ZolParameter, std::uint32_t, Zol::String8>;

  // The command is `commandNoop`, without parameters, and the epoch 0.
  explicit Ucd9012DiagConfig(Zol::Name name);
  ~Ucd9012DiagConfig() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // What the controller is asked to do.
  [[nodiscard]] Ucd9012DiagCommand command() const { return read(command_); }
  void commandIs(Ucd9012DiagCommand value);

  // The command's parameters, in the order of their numbers; the command gives each its meaning. An
  // absent number reads as the empty text.
  [[nodiscard]] Zol::String8 parameter(std::uint32_t key) const;
  Zol::String8 parameterDel(std::uint32_t key);
  Zol::String8 parameterDel(ParameterMap::Iterator& iterator);
  void parameterNotify(std::uint32_t key);
  void parameterIs(std::uint32_t key, Zol::String8 value);
  Zol::Ptr<ZolParameter> newParameter(std::uint32_t key, Zol::String8 value);
  void parameterDelAll();

  // Tells one request from the next.
  [[nodiscard]] std::uint32_t epoch() const { return read(epoch_); }
  void epochIs(std::uint32_t value);

#include "host/zol/stamp/stamp_walks.h"
#include "schema/ucd9012_diag_config.def"

 private:
#include "host/zol/stamp/stamp_fields.h"
#include "schema/ucd9012_diag_config.def"
};

// The slots: `on<Attr>()` for each attribute that can change.
class ZOL_EXPORT Ucd9012DiagConfig::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  ~NotifieeConst() override;
  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<Ucd9012DiagConfig const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "schema/ucd9012_diag_config.def"
};

class ZOL_EXPORT Ucd9012DiagConfig::Notifiee : public Ucd9012DiagConfig::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<Ucd9012DiagConfig> notifier() const;
};

}  // namespace Hardware::Ucd9012
