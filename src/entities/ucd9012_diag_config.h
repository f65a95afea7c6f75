// A diagnostic command with its parameters.
#pragma once

#include <cstdint>

#include "host/zol/attribute_rules.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// What a controller is asked to do for diagnosis. The answer stands in a `Ucd9012DiagStatus` of the
// status side; nothing here compares the two.
//
// A mutator `<attr>Is( value )` with the present value does nothing. Otherwise it stores the value,
// adds 1 to the mutation counter and tells each listener through `on<Attr>()`. No value is refused.
class ZOL_EXPORT Ucd9012DiagConfig final : public Zol::AttributeRules<Zol::Entity> {
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

  explicit Ucd9012DiagConfig(Zol::Name name);
  ~Ucd9012DiagConfig() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] Ucd9012DiagCommand command() const { return read(command_); }
  void commandIs(Ucd9012DiagCommand value);

  // Tells one request from the next.
  [[nodiscard]] std::uint32_t epoch() const { return read(epoch_); }
  void epochIs(std::uint32_t value);

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
