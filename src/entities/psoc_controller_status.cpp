#include "entities/psoc_controller_status.h"

namespace Hardware::Ucd9012 {

PsocControllerStatus::~PsocControllerStatus() = default;

Zol::ZolType* PsocControllerStatus::fwkType() const { return _fwkType(); }

PsocControllerStatus::NotifieeConst::~NotifieeConst() = default;

Zol::Ptr<PsocControllerStatus const> PsocControllerStatus::NotifieeConst::notifier() const {
  return dynamic_cast<PsocControllerStatus const*>(entity());
}

Zol::Ptr<PsocControllerStatus> PsocControllerStatus::Notifiee::notifier() const {
  return dynamic_cast<PsocControllerStatus*>(const_cast<Zol::Entity*>(entity()));
}

}  // namespace Hardware::Ucd9012
