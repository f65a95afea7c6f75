#include "entities/ucd9012_diag_config.h"

namespace Hardware::Ucd9012 {

Ucd9012DiagConfig::Ucd9012DiagConfig(Zol::Name name) : EntityRules(std::move(name)) {}

Ucd9012DiagConfig::~Ucd9012DiagConfig() { dismissNotifiees(); }

Zol::ZolType* Ucd9012DiagConfig::fwkType() const { return _fwkType(); }

Zol::String8 Ucd9012DiagConfig::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/ucd9012_diag_config.def"
    default:
      return Entity::attributeString(id);
  }
}

bool Ucd9012DiagConfig::zolHasAttrLogInterface() const { return true; }

void Ucd9012DiagConfig::commandIs(Ucd9012DiagCommand value) {
  assign(command_, value, Id::command, &NotifieeConst::onCommand);
}

void Ucd9012DiagConfig::epochIs(std::uint32_t value) {
  assign(epoch_, value, Id::epoch, &NotifieeConst::onEpoch);
}

using Self = Ucd9012DiagConfig;
#include "entities/stamp_member_bodies.h"
#include "schema/ucd9012_diag_config.def"

void Ucd9012DiagConfig::parameterIs(std::uint32_t key, Zol::String8 value) {
  valueIs(
      parameter_, key, value, [&] { return newParameter(key, value); },
      [this](std::uint32_t changed) { parameterNotify(changed); });
}

Zol::Ptr<Ucd9012DiagConfig::ZolParameter> Ucd9012DiagConfig::newParameter(std::uint32_t key,
                                                                          Zol::String8 value) {
  return makeEntry(parameter_, new ZolParameter(key, value));
}

Ucd9012DiagConfig::NotifieeConst::~NotifieeConst() = default;

void Ucd9012DiagConfig::NotifieeConst::notifierIs(
    Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<Ucd9012DiagConfig const*>(notifier.get()));
}

Zol::Ptr<Ucd9012DiagConfig const> Ucd9012DiagConfig::NotifieeConst::notifier() const {
  return static_cast<Ucd9012DiagConfig const*>(entity());
}

Zol::Ptr<Ucd9012DiagConfig> Ucd9012DiagConfig::Notifiee::notifier() const {
  return const_cast<Ucd9012DiagConfig*>(static_cast<Ucd9012DiagConfig const*>(entity()));
}

}  // namespace Hardware::Ucd9012
