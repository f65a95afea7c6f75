// The four value records: defaults, fields and equality.
#include <gtest/gtest.h>

#include <initializer_list>

#include "values/external_voltage_rail.h"
#include "values/page_fault_cause.h"
#include "values/psoc_cause.h"
#include "values/ucd_cause.h"

namespace Hardware::Ucd9012 {
namespace {

// Each record equals itself alone.
template <class Record>
void expectDifferent(std::initializer_list<Record> records) {
  for (Record const& one : records) {
    for (Record const& other : records) EXPECT_EQ(one == other, &one == &other);
  }
}

TEST(Records, AreZeroByDefault) {
  EXPECT_EQ(UcdCause(), UcdCause(ReloadCauses::rc_unknown, CauseType::other, 0, false));
  EXPECT_EQ(PsocCause(), PsocCause(ReloadCauses::rc_unknown, 0, false));
  EXPECT_EQ(PageFaultCause(), PageFaultCause(ReloadCauses::rc_unknown, 0, 0));
  EXPECT_EQ(ExternalVoltageRail(), ExternalVoltageRail(0, 0));
}

TEST(Records, HoldWhatTheyAreMadeFrom) {
  UcdCause const ucd(ReloadCauses::cpu, CauseType::mon, 0xffffffff, true);
  EXPECT_EQ(ucd.reloadCauseKey(), ReloadCauses::cpu);
  EXPECT_EQ(ucd.type(), CauseType::mon);
  EXPECT_EQ(ucd.id(), 0xffffffff);
  EXPECT_TRUE(ucd.isRemote());

  PsocCause const psoc(ReloadCauses::reboot, 0xffff, true);
  EXPECT_EQ(psoc.reloadCauseKey(), ReloadCauses::reboot);
  EXPECT_EQ(psoc.bitNum(), 0xffff);
  EXPECT_TRUE(psoc.origin());

  PageFaultCause const fault(ReloadCauses::lower, 7, 0x80000001);
  EXPECT_EQ(fault.reloadCauseKey(), ReloadCauses::lower);
  EXPECT_EQ(fault.id(), 7u);
  EXPECT_EQ(fault.faultMask(), 0x80000001);

  ExternalVoltageRail const rail(255, 254);
  EXPECT_EQ(rail.railNum(), 255);
  EXPECT_EQ(rail.faultType(), 254);
}

TEST(Records, DifferWhenAnyOneFieldDiffers) {
  using enum ReloadCauses;
  expectDifferent<UcdCause>({{cpu, CauseType::gpio, 3, false},
                             {none, CauseType::gpio, 3, false},
                             {cpu, CauseType::mon, 3, false},
                             {cpu, CauseType::gpio, 4, false},
                             {cpu, CauseType::gpio, 3, true}});
  expectDifferent<PsocCause>({{cpu, 3, false}, {none, 3, false}, {cpu, 4, false}, {cpu, 3, true}});
  expectDifferent<PageFaultCause>({{cpu, 3, 4}, {none, 3, 4}, {cpu, 4, 4}, {cpu, 3, 5}});
  expectDifferent<ExternalVoltageRail>({{3, 4}, {4, 4}, {3, 5}});
}

}  // namespace
}  // namespace Hardware::Ucd9012
