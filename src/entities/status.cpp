#include "entities/status.h"

namespace Hardware::Ucd9012 {

Status::Status(Zol::Name name) : AttributeRules(std::move(name)) {}

Status::~Status() { dismissNotifiees(); }

Zol::ZolType* Status::fwkType() const { return _fwkType(); }

Zol::String8 Status::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/status.def"
    default:
      return Entity::attributeString(id);
  }
}

Status::NotifieeConst::~NotifieeConst() = default;

void Status::NotifieeConst::notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<Status const*>(notifier.get()));
}

Zol::Ptr<Status const> Status::NotifieeConst::notifier() const {
  return static_cast<Status const*>(entity());
}

Zol::Ptr<Status> Status::Notifiee::notifier() const {
  return const_cast<Status*>(static_cast<Status const*>(entity()));
}

}  // namespace Hardware::Ucd9012
