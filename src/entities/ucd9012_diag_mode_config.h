// A diagnostic mode: an operational mode paired with a command.
#pragma once

#include "entities/entity_rules.h"
#include "entities/ucd9012_diag_config.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// An operational mode paired with a command: an entry of `ControllerConfig::diagModeConfig`, known
// by its name.
//
// A mutator `<attr>Is( value )` with the present value does nothing. Otherwise it stores the value,
// adds 1 to the mutation counter and tells each listener through `on<Attr>()`. No value is refused.
class ZOL_EXPORT Ucd9012DiagModeConfig final
    : public EntityRules<Zol::AttributeRules<Zol::Entity>> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/ucd9012_diag_mode_config.def"
    };
  };

  // The mode is `modeNormal`, and there is no command.
  explicit Ucd9012DiagModeConfig(Zol::Name name);
  // Takes out the command first, and tells of it.
  ~Ucd9012DiagModeConfig() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // The mode that this entry stands for.
  [[nodiscard]] OperationalMode operationalMode() const { return read(operationalMode_); }
  void operationalModeIs(OperationalMode value);

  // The command of this entry, or null. The same name keeps it, another name replaces it.
  [[nodiscard]] Zol::Ptr<Ucd9012DiagConfig> diagCommandConfig() const;
  Zol::Ptr<Ucd9012DiagConfig> diagCommandConfigDel();
  Zol::ValidPtr<Ucd9012DiagConfig> diagCommandConfigIs(Zol::Name name);
  Zol::Ptr<Ucd9012DiagConfig> newDiagCommandConfig(Zol::Name name);

 private:
  friend class Zol::HashMap<Ucd9012DiagModeConfig, Zol::Name, Ucd9012DiagModeConfig>;
  friend class Zol::HashMapVTable<Ucd9012DiagModeConfig, Zol::Name>;

#include "host/zol/stamp/stamp_fields.h"
#include "schema/ucd9012_diag_mode_config.def"
  Zol::HashLink zolHashLink_;
};

// The slots: `on<Attr>()` for each attribute that can change.
class ZOL_EXPORT Ucd9012DiagModeConfig::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  ~NotifieeConst() override;
  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<Ucd9012DiagModeConfig const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "schema/ucd9012_diag_mode_config.def"
};

class ZOL_EXPORT Ucd9012DiagModeConfig::Notifiee : public Ucd9012DiagModeConfig::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<Ucd9012DiagModeConfig> notifier() const;
};

}  // namespace Hardware::Ucd9012
