#include "entities/ucd9012_diag_mode_config.h"

namespace Hardware::Ucd9012 {

Ucd9012DiagModeConfig::Ucd9012DiagModeConfig(Zol::Name name) : AttributeRules(std::move(name)) {}

Ucd9012DiagModeConfig::~Ucd9012DiagModeConfig() { dismissNotifiees(); }

Zol::ZolType* Ucd9012DiagModeConfig::fwkType() const { return _fwkType(); }

Zol::String8 Ucd9012DiagModeConfig::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/ucd9012_diag_mode_config.def"
    default:
      return Entity::attributeString(id);
  }
}

void Ucd9012DiagModeConfig::operationalModeIs(OperationalMode value) {
  assign(operationalMode_, value, Id::operationalMode, &NotifieeConst::onOperationalMode);
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
