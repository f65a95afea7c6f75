// The six enumerations of the power-controller model, with their conversions to and from numbers
// and texts. The numbers go over the wire and never change; number 0 is the default of each.
#pragma once

#include <iosfwd>
#include <type_traits>

#include "host/zol/export.h"
#include "host/zol/forward.h"
#include "host/zol/text.h"

namespace Hardware::Ucd9012 {

// Why the system last reloaded. `rc_unknown`, the default, says that no cause is established;
// `none` says that there was none.
enum class ReloadCauses : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "schema/reload_causes.def"
};

// The kind of input that reports a cause.
enum class CauseType : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "schema/cause_type.def"
};

// The mode of a controller.
enum class OperationalMode : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "schema/operational_mode.def"
};

// What the kernel-panic EEPROM says about the last reload.
enum class KernelPanicEepromStatus : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "schema/kernel_panic_eeprom_status.def"
};

// What a diagnostic request asks for.
enum class Ucd9012DiagCommand : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "schema/ucd9012_diag_command.def"
};

// How a diagnostic request ended. Number 0 is the good result.
enum class Ucd9012DiagResult : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "schema/ucd9012_diag_result.def"
};

// The enumerator's text. A number that has no enumerator gives the name of the enumeration with the
// number, as "CauseType(3)". Never fails.
ZOL_EXPORT Zol::String8 stringValue(ReloadCauses value);
ZOL_EXPORT Zol::String8 stringValue(CauseType value);
ZOL_EXPORT Zol::String8 stringValue(OperationalMode value);
ZOL_EXPORT Zol::String8 stringValue(KernelPanicEepromStatus value);
ZOL_EXPORT Zol::String8 stringValue(Ucd9012DiagCommand value);
ZOL_EXPORT Zol::String8 stringValue(Ucd9012DiagResult value);

// The enumerator of a number. Throws `RangeException` with the bare name of the enumeration, as
// "CauseType", for a number that has none.
ZOL_EXPORT ReloadCauses ReloadCausesInstance(unsigned int number);
ZOL_EXPORT CauseType CauseTypeInstance(unsigned int number);
ZOL_EXPORT OperationalMode OperationalModeInstance(unsigned int number);
ZOL_EXPORT KernelPanicEepromStatus KernelPanicEepromStatusInstance(unsigned int number);
ZOL_EXPORT Ucd9012DiagCommand Ucd9012DiagCommandInstance(unsigned int number);
ZOL_EXPORT Ucd9012DiagResult Ucd9012DiagResultInstance(unsigned int number);

// The enumerator whose text equals `name` byte by byte. Throws the same for a text that none has.
ZOL_EXPORT ReloadCauses ReloadCausesInstance(Zol::String8 name);
ZOL_EXPORT CauseType CauseTypeInstance(Zol::String8 name);
ZOL_EXPORT OperationalMode OperationalModeInstance(Zol::String8 name);
ZOL_EXPORT KernelPanicEepromStatus KernelPanicEepromStatusInstance(Zol::String8 name);
ZOL_EXPORT Ucd9012DiagCommand Ucd9012DiagCommandInstance(Zol::String8 name);
ZOL_EXPORT Ucd9012DiagResult Ucd9012DiagResultInstance(Zol::String8 name);

// The text of `stringValue` in apostrophes.
ZOL_EXPORT Zol::String8 valueToStrep(ReloadCauses const& value);
ZOL_EXPORT Zol::String8 valueToStrep(CauseType const& value);
ZOL_EXPORT Zol::String8 valueToStrep(OperationalMode const& value);
ZOL_EXPORT Zol::String8 valueToStrep(KernelPanicEepromStatus const& value);
ZOL_EXPORT Zol::String8 valueToStrep(Ucd9012DiagCommand const& value);
ZOL_EXPORT Zol::String8 valueToStrep(Ucd9012DiagResult const& value);

// Reads the quoted text at `position`, white space in front of it included, and moves behind it.
// The pointer only selects the enumeration. Throws `RangeException`: with the bare name of the
// enumeration for a text that none of its enumerators has, and for what is no quoted text the
// failure of `Zol::quotedAt`.
ZOL_EXPORT ReloadCauses sequenceToValue(Zol::String8::IteratorConst& position,
                                        Zol::String8::IteratorConst const& end, ReloadCauses*);
ZOL_EXPORT CauseType sequenceToValue(Zol::String8::IteratorConst& position,
                                     Zol::String8::IteratorConst const& end, CauseType*);
ZOL_EXPORT OperationalMode sequenceToValue(Zol::String8::IteratorConst& position,
                                           Zol::String8::IteratorConst const& end,
                                           OperationalMode*);
ZOL_EXPORT KernelPanicEepromStatus sequenceToValue(Zol::String8::IteratorConst& position,
                                                   Zol::String8::IteratorConst const& end,
                                                   KernelPanicEepromStatus*);
ZOL_EXPORT Ucd9012DiagCommand sequenceToValue(Zol::String8::IteratorConst& position,
                                              Zol::String8::IteratorConst const& end,
                                              Ucd9012DiagCommand*);
ZOL_EXPORT Ucd9012DiagResult sequenceToValue(Zol::String8::IteratorConst& position,
                                             Zol::String8::IteratorConst const& end,
                                             Ucd9012DiagResult*);

// Writes the bare text of `stringValue`.
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, ReloadCauses const& value);
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, CauseType const& value);
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, OperationalMode const& value);
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, KernelPanicEepromStatus const& value);
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, Ucd9012DiagCommand const& value);
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, Ucd9012DiagResult const& value);

// The type objects.
ZOL_EXPORT Zol::ZolType* _fwkType_ReloadCauses();
ZOL_EXPORT Zol::ZolType* _fwkType_CauseType();
ZOL_EXPORT Zol::ZolType* _fwkType_OperationalMode();
ZOL_EXPORT Zol::ZolType* _fwkType_KernelPanicEepromStatus();
ZOL_EXPORT Zol::ZolType* _fwkType_Ucd9012DiagCommand();
ZOL_EXPORT Zol::ZolType* _fwkType_Ucd9012DiagResult();

// How `Zol::typeOf` finds them.
inline Zol::ZolType* zolTypeOf(std::type_identity<ReloadCauses>) { return _fwkType_ReloadCauses(); }
inline Zol::ZolType* zolTypeOf(std::type_identity<CauseType>) { return _fwkType_CauseType(); }
inline Zol::ZolType* zolTypeOf(std::type_identity<OperationalMode>) {
  return _fwkType_OperationalMode();
}
inline Zol::ZolType* zolTypeOf(std::type_identity<KernelPanicEepromStatus>) {
  return _fwkType_KernelPanicEepromStatus();
}
inline Zol::ZolType* zolTypeOf(std::type_identity<Ucd9012DiagCommand>) {
  return _fwkType_Ucd9012DiagCommand();
}
inline Zol::ZolType* zolTypeOf(std::type_identity<Ucd9012DiagResult>) {
  return _fwkType_Ucd9012DiagResult();
}

}  // namespace Hardware::Ucd9012
