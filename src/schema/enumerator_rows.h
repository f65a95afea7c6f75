// The enumerators of each enumeration, as rows that can be walked.
#pragma once

#include <array>

#include "host/zol/enumeration.h"
#include "schema/types.h"

namespace Hardware::Ucd9012 {

// In the order of the numbers, which run from 0 without a gap.
template <class E>
inline constexpr std::array<Zol::Enumerator, 0> kEnumeratorRows{};

template <>
inline constexpr auto kEnumeratorRows<OperationalMode> = std::to_array<Zol::Enumerator>({
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/operational_mode.def"
});
template <>
inline constexpr auto kEnumeratorRows<CauseType> = std::to_array<Zol::Enumerator>({
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/cause_type.def"
});
template <>
inline constexpr auto kEnumeratorRows<ReloadCauses> = std::to_array<Zol::Enumerator>({
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/reload_causes.def"
});
template <>
inline constexpr auto kEnumeratorRows<Ucd9012DiagCommand> = std::to_array<Zol::Enumerator>({
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/ucd9012_diag_command.def"
});
template <>
inline constexpr auto kEnumeratorRows<Ucd9012DiagResult> = std::to_array<Zol::Enumerator>({
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/ucd9012_diag_result.def"
});
template <>
inline constexpr auto kEnumeratorRows<KernelPanicEepromStatus> = std::to_array<Zol::Enumerator>({
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "schema/kernel_panic_eeprom_status.def"
});

}  // namespace Hardware::Ucd9012
