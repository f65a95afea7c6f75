#include "entities/ucd9012_diag_mode_config.h"

namespace Hardware::Ucd9012 {

Ucd9012DiagModeConfig::Ucd9012DiagModeConfig(Zol::Name name) : EntityRules(std::move(name)) {}

Ucd9012DiagModeConfig::~Ucd9012DiagModeConfig() {
  diagCommandConfigDel();
  dismissNotifiees();
}

Zol::ZolType* Ucd9012DiagModeConfig::fwkType() const { return _fwkType(); }

Zol::String8 Ucd9012DiagModeConfig::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/ucd9012_diag_mode_config.def"
    default:
      return Entity::attributeString(id);
  }
}

bool Ucd9012DiagModeConfig::zolHasAttrLogInterface() const { return true; }

void Ucd9012DiagModeConfig::operationalModeIs(OperationalMode value) {
  assign(operationalMode_, value, Id::operationalMode, &NotifieeConst::onOperationalMode);
}

using Self = Ucd9012DiagModeConfig;
#include "entities/stamp_member_bodies.h"
#include "schema/ucd9012_diag_mode_config.def"

Zol::ValidPtr<Ucd9012DiagConfig> Ucd9012DiagModeConfig::diagCommandConfigIs(Zol::Name name) {
  return singletonIs(
      diagCommandConfig_, Id::diagCommandConfig, &NotifieeConst::onDiagCommandConfig,
      [&](Ucd9012DiagConfig const& child) { return child.name() == name; },
      [&] { return newDiagCommandConfig(name); });
}

Zol::Ptr<Ucd9012DiagConfig> Ucd9012DiagModeConfig::newDiagCommandConfig(Zol::Name name) {
  return makeSingleton(Id::diagCommandConfig, new Ucd9012DiagConfig(std::move(name)));
}

Ucd9012DiagModeConfig::NotifieeConst::~NotifieeConst() = default;

void Ucd9012DiagModeConfig::NotifieeConst::notifierIs(
    Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<Ucd9012DiagModeConfig const*>(notifier.get()));
}

Zol::Ptr<Ucd9012DiagModeConfig const> Ucd9012DiagModeConfig::NotifieeConst::notifier() const {
  return static_cast<Ucd9012DiagModeConfig const*>(entity());
}

Zol::Ptr<Ucd9012DiagModeConfig> Ucd9012DiagModeConfig::Notifiee::notifier() const {
  return const_cast<Ucd9012DiagModeConfig*>(static_cast<Ucd9012DiagModeConfig const*>(entity()));
}

}  // namespace Hardware::Ucd9012
