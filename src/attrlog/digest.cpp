#include "attrlog/digest.h"

#include "entities/config.h"
#include "entities/status.h"
#include "host/models/siblings.h"
#include "host/zol/digest.h"

namespace Hardware::Ucd9012 {

template <>
void digestOf<Config>(Zol::Entity const& of, Zol::Digest& digest) {
  auto const& entity = static_cast<Config const&>(of);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/config.def"
}

template <>
void digestOf<Status>(Zol::Entity const& of, Zol::Digest& digest) {
  auto const& entity = static_cast<Status const&>(of);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/status.def"
}

template <>
void digestOf<ControllerConfig>(Zol::Entity const& of, Zol::Digest& digest) {
  auto const& entity = static_cast<ControllerConfig const&>(of);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/controller_config.def"
}

template <>
void digestOf<ControllerStatus>(Zol::Entity const& of, Zol::Digest& digest) {
  auto const& entity = static_cast<ControllerStatus const&>(of);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/controller_status.def"
}

template <>
void digestOf<VoltageRailConfig>(Zol::Entity const& of, Zol::Digest& digest) {
  auto const& entity = static_cast<VoltageRailConfig const&>(of);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/voltage_rail_config.def"
}

template <>
void digestOf<Ucd9012DiagConfig>(Zol::Entity const& of, Zol::Digest& digest) {
  auto const& entity = static_cast<Ucd9012DiagConfig const&>(of);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/ucd9012_diag_config.def"
}

template <>
void digestOf<Ucd9012DiagModeConfig>(Zol::Entity const& of, Zol::Digest& digest) {
  auto const& entity = static_cast<Ucd9012DiagModeConfig const&>(of);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/ucd9012_diag_mode_config.def"
}

template <>
void digestOf<Ucd9012DiagStatus>(Zol::Entity const& of, Zol::Digest& digest) {
  auto const& entity = static_cast<Ucd9012DiagStatus const&>(of);
#include "host/zol/stamp/stamp_digest.h"
#include "schema/ucd9012_diag_status.def"
}

}  // namespace Hardware::Ucd9012
