#include "entities/ucd9012_controller_config.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

Ucd9012ControllerConfig::~Ucd9012ControllerConfig() = default;

Zol::ZolType* Ucd9012ControllerConfig::fwkType() const { return _fwkType(); }

Ucd9012ControllerConfig::NotifieeConst::~NotifieeConst() = default;

Zol::Ptr<Ucd9012ControllerConfig const> Ucd9012ControllerConfig::NotifieeConst::notifier() const {
  return dynamic_cast<Ucd9012ControllerConfig const*>(entity());
}

Zol::Ptr<Ucd9012ControllerConfig> Ucd9012ControllerConfig::Notifiee::notifier() const {
  return dynamic_cast<Ucd9012ControllerConfig*>(const_cast<Zol::Entity*>(entity()));
}

}  // namespace Hardware::Ucd9012
