// Visits every attribute of an entity of each class, as the lists of attributes have them.
#pragma once

#include <hwrailseq.h>

namespace test {

using namespace Hardware::Ucd9012;

template <class V>
void eachAttribute(Config& x, V& v) {
#include "support/stamp_visits.h"
#include "schema/config.def"
}
template <class V>
void eachAttribute(Status& x, V& v) {
#include "support/stamp_visits.h"
#include "schema/status.def"
}
template <class V>
void eachAttribute(ControllerConfig& x, V& v) {
#include "support/stamp_visits.h"
#include "host/models/power_controller_config.def"

#include "support/stamp_visits.h"
#include "schema/controller_config.def"
}
template <class V>
void eachAttribute(ControllerStatus& x, V& v) {
#include "support/stamp_visits.h"
#include "host/models/power_controller_status.def"

#include "support/stamp_visits.h"
#include "schema/controller_status.def"
}
template <class V>
void eachAttribute(VoltageRailConfig& x, V& v) {
#include "support/stamp_visits.h"
#include "schema/voltage_rail_config.def"
}
template <class V>
void eachAttribute(Ucd9012DiagConfig& x, V& v) {
#include "support/stamp_visits.h"
#include "schema/ucd9012_diag_config.def"
}
template <class V>
void eachAttribute(Ucd9012DiagModeConfig& x, V& v) {
#include "support/stamp_visits.h"
#include "schema/ucd9012_diag_mode_config.def"
}
template <class V>
void eachAttribute(Ucd9012DiagStatus& x, V& v) {
#include "support/stamp_visits.h"
#include "schema/ucd9012_diag_status.def"
}
template <class V>
void eachAttribute(SmbusDexo::DexoDesc& x, V& v) {
#include "support/stamp_visits.h"
#include "host/models/smbus_dexo_desc.def"
}
template <class V>
void eachAttribute(I2cDexo::DexoDesc& x, V& v) {
#include "support/stamp_visits.h"
#include "host/models/i2c_dexo_desc.def"
}

}  // namespace test
