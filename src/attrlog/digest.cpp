#include "attrlog/digest.h"

#include "host/models/siblings.h"
#include "host/zol/digest.h"

namespace Hardware::Ucd9012 {

void digestConfig(Zol::Entity const& root, Zol::Digest& digest) {
  auto const& config = static_cast<Config const&>(root);
  auto const addMembers = [&](char const* attribute, auto it) {
    for (; it; ++it) digest.member(attribute, it.key(), *it);
  };
  addMembers("realUcd9012Controller", config.realUcd9012ControllerIteratorConst());
  addMembers("realUcd9032Controller", config.realUcd9032ControllerIteratorConst());
  addMembers("realPsocController", config.realPsocControllerIteratorConst());
}

void digestControllerConfig(Zol::Entity const& controller, Zol::Digest& digest) {
  auto const& entity = static_cast<ControllerConfig const&>(controller);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/controller_config.def"
}

}  // namespace Hardware::Ucd9012
