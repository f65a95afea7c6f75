#include "entities/ucd9012_diag_status.h"

namespace Hardware::Ucd9012 {

Ucd9012DiagStatus::Ucd9012DiagStatus(Zol::Name name) : AttributeRules(std::move(name)) {}

Ucd9012DiagStatus::~Ucd9012DiagStatus() { dismissNotifiees(); }

Zol::ZolType* Ucd9012DiagStatus::fwkType() const { return _fwkType(); }

Zol::String8 Ucd9012DiagStatus::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/ucd9012_diag_status.def"
    default:
      return Entity::attributeString(id);
  }
}

bool Ucd9012DiagStatus::zolHasAttrLogInterface() const { return true; }

void Ucd9012DiagStatus::resultIs(Ucd9012DiagResult value) {
  assign(result_, value, Id::result, &NotifieeConst::onResult);
}

void Ucd9012DiagStatus::dataIs(Zol::String8 value) {
  assign(data_, value, Id::data, &NotifieeConst::onData);
}

void Ucd9012DiagStatus::epochIs(std::uint32_t value) {
  assign(epoch_, value, Id::epoch, &NotifieeConst::onEpoch);
}

Ucd9012DiagStatus::NotifieeConst::~NotifieeConst() = default;

void Ucd9012DiagStatus::NotifieeConst::notifierIs(
    Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<Ucd9012DiagStatus const*>(notifier.get()));
}

Zol::Ptr<Ucd9012DiagStatus const> Ucd9012DiagStatus::NotifieeConst::notifier() const {
  return static_cast<Ucd9012DiagStatus const*>(entity());
}

Zol::Ptr<Ucd9012DiagStatus> Ucd9012DiagStatus::Notifiee::notifier() const {
  return const_cast<Ucd9012DiagStatus*>(static_cast<Ucd9012DiagStatus const*>(entity()));
}

}  // namespace Hardware::Ucd9012
