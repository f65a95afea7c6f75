// The six enumerations: numbers, texts, and the conversions both ways.
#include "values/enumerations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "host/zol/exception.h"

namespace Hardware::Ucd9012 {
namespace {

// One enumeration, seen through its numbers.
struct Subject {
  std::string name;
  std::vector<std::string> texts;
  std::function<std::string(unsigned int)> stringValue;
  std::function<std::string(unsigned int)> strep;
  std::function<std::string(unsigned int)> written;
  std::function<unsigned int(unsigned int)> byNumber;
  std::function<unsigned int(std::string const&)> byName;
};

void PrintTo(Subject const& subject, std::ostream* stream) { *stream << subject.name; }

template <class E>
Subject subjectOf(char const* name, std::vector<std::string> texts, E (*byNumber)(unsigned int),
                  E (*byName)(Zol::String8)) {
  auto const text = [](Zol::String8 const& value) { return std::string(value.view()); };
  return {name,
          std::move(texts),
          [text](unsigned int number) { return text(stringValue(static_cast<E>(number))); },
          [text](unsigned int number) { return text(valueToStrep(static_cast<E>(number))); },
          [](unsigned int number) {
            std::ostringstream stream;
            stream << static_cast<E>(number);
            return stream.str();
          },
          [byNumber](unsigned int number) { return static_cast<unsigned int>(byNumber(number)); },
          [byName](std::string const& name_) { return static_cast<unsigned int>(byName(name_)); }};
}

std::string refusal(std::function<void()> const& conversion) {
  try {
    conversion();
  } catch (Zol::RangeException const& failure) {
    return failure.what();
  }
  return "accepted";
}

class AnEnumeration : public ::testing::TestWithParam<Subject> {
 protected:
  Subject const& subject = GetParam();
  unsigned int const count = static_cast<unsigned int>(subject.texts.size());
};

TEST_P(AnEnumeration, HasAFixedTextForEachNumber) {
  for (unsigned int number = 0; number < count; ++number) {
    EXPECT_EQ(subject.stringValue(number), subject.texts[number]);
    EXPECT_EQ(subject.written(number), subject.texts[number]);
    EXPECT_EQ(subject.strep(number), "'" + subject.texts[number] + "'");
  }
}

TEST_P(AnEnumeration, ComesFromItsNumbersAndTexts) {
  for (unsigned int number = 0; number < count; ++number) {
    EXPECT_EQ(subject.byNumber(number), number);
    EXPECT_EQ(subject.byName(subject.texts[number]), number);
  }
}

TEST_P(AnEnumeration, ShowsAnyOtherNumberInParentheses) {
  for (unsigned int const number : {count, count + 1, 1000u, 0x7fffffffu}) {
    std::string const shown = subject.name + "(" + std::to_string(number) + ")";
    EXPECT_EQ(subject.stringValue(number), shown);
    EXPECT_EQ(subject.written(number), shown);
    EXPECT_EQ(subject.strep(number), "'" + shown + "'");
  }
}

TEST_P(AnEnumeration, RefusesAnyOtherNumberWithItsBareName) {
  for (unsigned int const number : {count, count + 1, 1000u, 0xffffffffu}) {
    EXPECT_EQ(refusal([&] { subject.byNumber(number); }), subject.name) << number;
  }
}

TEST_P(AnEnumeration, RefusesAnyOtherTextWithItsBareName) {
  std::string const first = subject.texts.front();
  std::string upper = first;
  upper[0] = static_cast<char>(upper[0] - 'a' + 'A');
  std::vector<std::string> const others = {"",
                                           " " + first,
                                           first + " ",
                                           upper,
                                           first.substr(1),
                                           "'" + first + "'",
                                           "0",
                                           first + std::string(1, '\0'),
                                           subject.stringValue(count)};
  for (std::string const& other : others) {
    EXPECT_EQ(refusal([&] { subject.byName(other); }), subject.name) << other;
  }
}

INSTANTIATE_TEST_SUITE_P(
    OfTheModel, AnEnumeration,
    ::testing::Values(
        subjectOf<ReloadCauses>(
            "ReloadCauses",
            {"rc_unknown",     "none",          "powerLoss",        "watchdog",
             "reboot",         "remoteReboot",  "overTemp",         "scdSeuError",
             "dpmSeuError",    "cpldSeuError",  "upperDpmSeuError", "upperScdSeuError",
             "internalRail",   "plxError",      "fansMissing",      "lower",
             "upper",          "cpu",           "lowerScdSeuError", "systemPowerLoss",
             "systemOverTemp", "systemWatchdog"},
            ReloadCausesInstance, ReloadCausesInstance),
        subjectOf<CauseType>("CauseType", {"other", "gpio", "mon"}, CauseTypeInstance,
                             CauseTypeInstance),
        subjectOf<OperationalMode>("OperationalMode", {"modeNormal", "diagMode"},
                                   OperationalModeInstance, OperationalModeInstance),
        subjectOf<KernelPanicEepromStatus>(
            "KernelPanicEepromStatus",
            {"eepromReloadCauseUnknown", "eepromReloadCauseKernelPanic", "eepromReloadCauseOther"},
            KernelPanicEepromStatusInstance, KernelPanicEepromStatusInstance),
        subjectOf<Ucd9012DiagCommand>("Ucd9012DiagCommand",
                                      {"commandNoop", "commandMarginLow", "commandMarginHigh",
                                       "commandNominal", "commandReadTemperature",
                                       "commandReadVoltage"},
                                      Ucd9012DiagCommandInstance, Ucd9012DiagCommandInstance),
        subjectOf<Ucd9012DiagResult>("Ucd9012DiagResult", {"success", "failure"},
                                     Ucd9012DiagResultInstance, Ucd9012DiagResultInstance)),
    [](auto const& row) { return row.param.name; });

TEST(ReloadCause, IsUnknownByDefaultAndNotNone) {
  EXPECT_EQ(ReloadCauses{}, ReloadCauses::rc_unknown);
  EXPECT_NE(ReloadCauses{}, ReloadCauses::none);
}

TEST(ReloadCause, IsKnownByEnumeratorNameInTheSource) {
  EXPECT_EQ(ReloadCausesInstance(15), ReloadCauses::lower);
  EXPECT_EQ(ReloadCausesInstance(16), ReloadCauses::upper);
  EXPECT_EQ(ReloadCausesInstance("upperScdSeuError"), ReloadCauses::upperScdSeuError);
  EXPECT_EQ(static_cast<unsigned int>(ReloadCauses::lowerScdSeuError), 18u);
}

}  // namespace
}  // namespace Hardware::Ucd9012
