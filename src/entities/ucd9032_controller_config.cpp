#include "entities/ucd9032_controller_config.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

Ucd9032ControllerConfig::~Ucd9032ControllerConfig() = default;

Zol::ZolType* Ucd9032ControllerConfig::fwkType() const { return _fwkType(); }

Ucd9032ControllerConfig::NotifieeConst::~NotifieeConst() = default;

Zol::Ptr<Ucd9032ControllerConfig const> Ucd9032ControllerConfig::NotifieeConst::notifier() const {
  return dynamic_cast<Ucd9032ControllerConfig const*>(entity());
}

Zol::Ptr<Ucd9032ControllerConfig> Ucd9032ControllerConfig::Notifiee::notifier() const {
  return dynamic_cast<Ucd9032ControllerConfig*>(const_cast<Zol::Entity*>(entity()));
}

}  // namespace Hardware::Ucd9012
