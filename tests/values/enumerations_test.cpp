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

using ::testing::ElementsAre;

// One enumeration, seen through its numbers.
struct Subject {
  std::string name;
  std::vector<std::string> texts;
  // A number as its text, as a value in other texts, and written to a stream.
  std::function<std::vector<std::string>(unsigned int)> shown;
  std::function<unsigned int(unsigned int)> byNumber;
  std::function<unsigned int(std::string const&)> byName;
};

void PrintTo(Subject const& subject, std::ostream* stream) { *stream << subject.name; }

template <class E>
Subject subjectOf(char const* name, std::vector<std::string> texts, E (*byNumber)(unsigned int),
                  E (*byName)(Zol::String8)) {
  auto const shown = [](unsigned int number) -> std::vector<std::string> {
    E const value = static_cast<E>(number);
    std::ostringstream stream;
    stream << value;
    return {std::string(stringValue(value).view()), std::string(valueToStrep(value).view()),
            stream.str()};
  };
  return {name, std::move(texts), shown,
          [byNumber](unsigned int number) { return static_cast<unsigned int>(byNumber(number)); },
          [byName](std::string const& text) { return static_cast<unsigned int>(byName(text)); }};
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

TEST_P(AnEnumeration, HasAFixedTextForEachNumberAndComesFromBoth) {
  for (unsigned int number = 0; number < count; ++number) {
    std::string const& text = subject.texts[number];
    EXPECT_THAT(subject.shown(number), ElementsAre(text, "'" + text + "'", text));
    EXPECT_EQ(subject.byNumber(number), number);
    EXPECT_EQ(subject.byName(text), number);
  }
}

TEST_P(AnEnumeration, ShowsAnyOtherNumberInParenthesesAndRefusesItWithItsBareName) {
  for (unsigned int const number : {count, count + 1, 1000u, 0x7fffffffu}) {
    EXPECT_EQ(refusal([&] { subject.byNumber(number); }), subject.name) << number;
    std::string const text = subject.name + "(" + std::to_string(number) + ")";
    EXPECT_THAT(subject.shown(number), ElementsAre(text, "'" + text + "'", text));
  }
  EXPECT_EQ(refusal([&] { subject.byNumber(0xffffffff); }), subject.name);
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
                                           subject.shown(count)[0]};
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

}  // namespace
}  // namespace Hardware::Ucd9012
