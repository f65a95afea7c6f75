// The outcome of a diagnostic command.
#pragma once

#include <cstdint>

#include "host/zol/attribute_rules.h"
#include "host/zol/hash_map.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// How the command of a `Ucd9012DiagConfig` ended. One that nobody has written says `success` with
// epoch 0.
//
// A mutator `<attr>Is( value )` with the present value does nothing. Otherwise it stores the value,
// adds 1 to the mutation counter and tells each listener through `on<Attr>()`. No value is refused.
class ZOL_EXPORT Ucd9012DiagStatus final : public Zol::AttributeRules<Zol::Entity> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/ucd9012_diag_status.def"
    };
  };

  // The result is `success`, without data, and the epoch 0.
  explicit Ucd9012DiagStatus(Zol::Name name);
  ~Ucd9012DiagStatus() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // How the command ended.
  [[nodiscard]] Ucd9012DiagResult result() const { return read(result_); }
  void resultIs(Ucd9012DiagResult value);

  // What the command produced, as text.
  [[nodiscard]] Zol::String8 data() const { return read(data_); }
  void dataIs(Zol::String8 value);

  // The epoch of the request that this answers.
  [[nodiscard]] std::uint32_t epoch() const { return read(epoch_); }
  void epochIs(std::uint32_t value);

 private:
  friend class Zol::HashMap<Ucd9012DiagStatus, Zol::Name, Ucd9012DiagStatus>;
  friend class Zol::HashMapVTable<Ucd9012DiagStatus, Zol::Name>;

#include "host/zol/stamp/stamp_fields.h"
#include "schema/ucd9012_diag_status.def"
  Zol::HashLink zolHashLink_;
};

// The slots: `on<Attr>()` for each attribute that can change.
class ZOL_EXPORT Ucd9012DiagStatus::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  ~NotifieeConst() override;
  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<Ucd9012DiagStatus const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "schema/ucd9012_diag_status.def"
};

class ZOL_EXPORT Ucd9012DiagStatus::Notifiee : public Ucd9012DiagStatus::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<Ucd9012DiagStatus> notifier() const;
};

}  // namespace Hardware::Ucd9012
