#include "entities/psoc_controller_config.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

PsocControllerConfig::~PsocControllerConfig() = default;

Zol::ZolType* PsocControllerConfig::fwkType() const { return _fwkType(); }

PsocControllerConfig::NotifieeConst::~NotifieeConst() = default;

Zol::Ptr<PsocControllerConfig const> PsocControllerConfig::NotifieeConst::notifier() const {
  return dynamic_cast<PsocControllerConfig const*>(entity());
}

Zol::Ptr<PsocControllerConfig> PsocControllerConfig::Notifiee::notifier() const {
  return dynamic_cast<PsocControllerConfig*>(const_cast<Zol::Entity*>(entity()));
}

}  // namespace Hardware::Ucd9012
