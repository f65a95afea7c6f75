#include "entities/ucd9012_controller_status.h"

namespace Hardware::Ucd9012 {

Ucd9012ControllerStatus::~Ucd9012ControllerStatus() = default;

Zol::ZolType* Ucd9012ControllerStatus::fwkType() const { return _fwkType(); }

Ucd9012ControllerStatus::NotifieeConst::~NotifieeConst() = default;

Zol::Ptr<Ucd9012ControllerStatus const> Ucd9012ControllerStatus::NotifieeConst::notifier() const {
  return dynamic_cast<Ucd9012ControllerStatus const*>(entity());
}

Zol::Ptr<Ucd9012ControllerStatus> Ucd9012ControllerStatus::Notifiee::notifier() const {
  return dynamic_cast<Ucd9012ControllerStatus*>(const_cast<Zol::Entity*>(entity()));
}

}  // namespace Hardware::Ucd9012
