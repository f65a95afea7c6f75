#include "values/enumerations.h"

#include <ostream>

#include "host/zol/enumeration.h"

namespace Hardware::Ucd9012 {

namespace {

constexpr Zol::Enumerator kReloadCausesRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/reload_causes.def"
};
constexpr Zol::Enumeration<ReloadCauses> kReloadCauses("ReloadCauses", kReloadCausesRows);

constexpr Zol::Enumerator kCauseTypesRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/cause_type.def"
};
constexpr Zol::Enumeration<CauseType> kCauseTypes("CauseType", kCauseTypesRows);

constexpr Zol::Enumerator kOperationalModesRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/operational_mode.def"
};
constexpr Zol::Enumeration<OperationalMode> kOperationalModes("OperationalMode",
                                                              kOperationalModesRows);

constexpr Zol::Enumerator kKernelPanicEepromStatusesRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/kernel_panic_eeprom_status.def"
};
constexpr Zol::Enumeration<KernelPanicEepromStatus> kKernelPanicEepromStatuses(
    "KernelPanicEepromStatus", kKernelPanicEepromStatusesRows);

constexpr Zol::Enumerator kDiagCommandsRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/ucd9012_diag_command.def"
};
constexpr Zol::Enumeration<Ucd9012DiagCommand> kDiagCommands("Ucd9012DiagCommand",
                                                             kDiagCommandsRows);

constexpr Zol::Enumerator kDiagResultsRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/ucd9012_diag_result.def"
};
constexpr Zol::Enumeration<Ucd9012DiagResult> kDiagResults("Ucd9012DiagResult", kDiagResultsRows);

}  // namespace

Zol::String8 stringValue(ReloadCauses value) { return kReloadCauses.stringValue(value); }
Zol::String8 stringValue(CauseType value) { return kCauseTypes.stringValue(value); }
Zol::String8 stringValue(OperationalMode value) { return kOperationalModes.stringValue(value); }
Zol::String8 stringValue(KernelPanicEepromStatus value) {
  return kKernelPanicEepromStatuses.stringValue(value);
}
Zol::String8 stringValue(Ucd9012DiagCommand value) { return kDiagCommands.stringValue(value); }
Zol::String8 stringValue(Ucd9012DiagResult value) { return kDiagResults.stringValue(value); }

ReloadCauses ReloadCausesInstance(unsigned int number) { return kReloadCauses.instance(number); }
CauseType CauseTypeInstance(unsigned int number) { return kCauseTypes.instance(number); }
OperationalMode OperationalModeInstance(unsigned int number) {
  return kOperationalModes.instance(number);
}
KernelPanicEepromStatus KernelPanicEepromStatusInstance(unsigned int number) {
  return kKernelPanicEepromStatuses.instance(number);
}
Ucd9012DiagCommand Ucd9012DiagCommandInstance(unsigned int number) {
  return kDiagCommands.instance(number);
}
Ucd9012DiagResult Ucd9012DiagResultInstance(unsigned int number) {
  return kDiagResults.instance(number);
}

ReloadCauses ReloadCausesInstance(Zol::String8 name) { return kReloadCauses.instance(name); }
CauseType CauseTypeInstance(Zol::String8 name) { return kCauseTypes.instance(name); }
OperationalMode OperationalModeInstance(Zol::String8 name) {
  return kOperationalModes.instance(name);
}
KernelPanicEepromStatus KernelPanicEepromStatusInstance(Zol::String8 name) {
  return kKernelPanicEepromStatuses.instance(name);
}
Ucd9012DiagCommand Ucd9012DiagCommandInstance(Zol::String8 name) {
  return kDiagCommands.instance(name);
}
Ucd9012DiagResult Ucd9012DiagResultInstance(Zol::String8 name) {
  return kDiagResults.instance(name);
}

Zol::String8 valueToStrep(ReloadCauses const& value) { return kReloadCauses.strep(value); }
Zol::String8 valueToStrep(CauseType const& value) { return kCauseTypes.strep(value); }
Zol::String8 valueToStrep(OperationalMode const& value) { return kOperationalModes.strep(value); }
Zol::String8 valueToStrep(KernelPanicEepromStatus const& value) {
  return kKernelPanicEepromStatuses.strep(value);
}
Zol::String8 valueToStrep(Ucd9012DiagCommand const& value) { return kDiagCommands.strep(value); }
Zol::String8 valueToStrep(Ucd9012DiagResult const& value) { return kDiagResults.strep(value); }

std::ostream& operator<<(std::ostream& stream, ReloadCauses const& value) {
  return stream << stringValue(value);
}
std::ostream& operator<<(std::ostream& stream, CauseType const& value) {
  return stream << stringValue(value);
}
std::ostream& operator<<(std::ostream& stream, OperationalMode const& value) {
  return stream << stringValue(value);
}
std::ostream& operator<<(std::ostream& stream, KernelPanicEepromStatus const& value) {
  return stream << stringValue(value);
}
std::ostream& operator<<(std::ostream& stream, Ucd9012DiagCommand const& value) {
  return stream << stringValue(value);
}
std::ostream& operator<<(std::ostream& stream, Ucd9012DiagResult const& value) {
  return stream << stringValue(value);
}

}  // namespace Hardware::Ucd9012
