#include "entities/ucd9032_controller_status.h"

namespace Hardware::Ucd9012 {

Ucd9032ControllerStatus::~Ucd9032ControllerStatus() = default;

Zol::ZolType* Ucd9032ControllerStatus::fwkType() const { return _fwkType(); }

Ucd9032ControllerStatus::NotifieeConst::~NotifieeConst() = default;

Zol::Ptr<Ucd9032ControllerStatus const> Ucd9032ControllerStatus::NotifieeConst::notifier() const {
  return dynamic_cast<Ucd9032ControllerStatus const*>(entity());
}

Zol::Ptr<Ucd9032ControllerStatus> Ucd9032ControllerStatus::Notifiee::notifier() const {
  return dynamic_cast<Ucd9032ControllerStatus*>(const_cast<Zol::Entity*>(entity()));
}

}  // namespace Hardware::Ucd9012
