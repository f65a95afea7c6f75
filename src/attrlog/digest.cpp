#include "attrlog/digest.h"

#include "host/models/siblings.h"
#include "host/zol/digest.h"

namespace Hardware::Ucd9012 {

void digestConfig(Zol::Entity const& root, Zol::Digest& digest) {
  auto const& config = static_cast<Config const&>(root);
#define ZOL_CONTROLLERS(attr, Attr, Type)                  \
  for (auto it = config.attr##IteratorConst(); it; ++it) { \
    digest.member(#attr, it.key(), *it);                   \
  }
#include "attrlog/config_controllers.def"
}

void digestControllerConfig(Zol::Entity const& controller, Zol::Digest& digest) {
  auto const& entity = static_cast<ControllerConfig const&>(controller);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/controller_config.def"
}

}  // namespace Hardware::Ucd9012
