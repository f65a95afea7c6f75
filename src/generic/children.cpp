#include "generic/children.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

Zol::Ptr<Zol::Entity> childOfConfig(Zol::Entity& holder, std::string_view attr,
                                    Zol::String8 const* key) {
  if (!key) return nullptr;
  auto& config = static_cast<Config&>(holder);
#define ZOL_CONTROLLERS(controllers, Controllers, Type) \
  if (attr == #controllers) return config.controllers(*key);
#include "entities/config_controllers.def"
  return nullptr;
}

Zol::String8 keyTextOfRail(Zol::Entity const& rail) {
  return std::to_string(static_cast<VoltageRailConfig const&>(rail).zolKey());
}

}  // namespace Hardware::Ucd9012
