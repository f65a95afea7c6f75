// Turns times to texts and back.
#include "railseq/recording/recording_time.h"

#include <chrono>
#include <cstdio>
#include <optional>

#include "railseq/base/input_error.h"

namespace RailSeq {

namespace {

constexpr std::uint64_t kSecond = 1000000000;
// More than two centuries.
constexpr std::uint64_t kMostSeconds = 9000000000;

// Takes a whole number of `least` to `most` digits off the front of the text.
[[nodiscard]] std::optional<std::uint64_t> takeNumber(std::string_view& text, std::size_t least,
                                                      std::size_t most) {
  std::uint64_t number = 0;
  std::size_t digits = 0;
  for (; digits < most && digits < text.size() && text[digits] >= '0' && text[digits] <= '9';
       ++digits) {
    number = number * 10 + static_cast<std::uint64_t>(text[digits] - '0');
  }
  if (digits < least) return std::nullopt;
  text.remove_prefix(digits);
  return number;
}

[[nodiscard]] bool takeMark(std::string_view& text, char mark) {
  if (!text.starts_with(mark)) return false;
  text.remove_prefix(1);
  return true;
}

// A fraction of a second in nanoseconds, if there is one; digits beyond those say nothing.
[[nodiscard]] std::optional<std::uint64_t> takeFraction(std::string_view& text) {
  if (!takeMark(text, '.')) return 0;
  std::uint64_t nanoseconds = 0;
  std::size_t digits = 0;
  for (; !text.empty() && text.front() >= '0' && text.front() <= '9'; text.remove_prefix(1)) {
    if (digits++ < 9)
      nanoseconds = nanoseconds * 10 + static_cast<std::uint64_t>(text.front() - '0');
  }
  if (digits == 0) return std::nullopt;
  for (; digits < 9; ++digits) nanoseconds *= 10;
  return nanoseconds;
}

[[nodiscard]] std::optional<std::uint64_t> parseSeconds(std::string_view text) {
  (void)takeMark(text, '+');
  auto const seconds = takeNumber(text, 1, 10);
  auto const fraction = takeFraction(text);
  if (!seconds || !fraction || !text.empty() || *seconds > kMostSeconds) return std::nullopt;
  return *seconds * kSecond + *fraction;
}

// Nanoseconds since the epoch.
[[nodiscard]] std::optional<std::uint64_t> parseClock(std::string_view text) {
  auto const field = [&text](std::size_t digits, char mark) {
    auto const number = takeNumber(text, digits, digits);
    return mark == '\0' || takeMark(text, mark) ? number : std::nullopt;
  };
  auto const year = field(4, '-');
  auto const month = field(2, '-');
  auto const day = field(2, 'T');
  auto const hour = field(2, ':');
  auto const minute = field(2, ':');
  auto const second = field(2, '\0');
  auto const fraction = takeFraction(text);
  if (!year || !month || !day || !hour || !minute || !second || !fraction || text != "Z") {
    return std::nullopt;
  }
  std::chrono::year_month_day const date{std::chrono::year(static_cast<int>(*year)),
                                         std::chrono::month(static_cast<unsigned int>(*month)),
                                         std::chrono::day(static_cast<unsigned int>(*day))};
  auto const days = std::chrono::sys_days(date).time_since_epoch().count();
  if (!date.ok() || days < 0 || *hour > 23 || *minute > 59 || *second > 60) return std::nullopt;
  std::uint64_t const seconds =
      static_cast<std::uint64_t>(days) * 86400 + *hour * 3600 + *minute * 60 + *second;
  if (seconds > kMostSeconds) return std::nullopt;
  return seconds * kSecond + *fraction;
}

}  // namespace

std::string offsetText(std::uint64_t nanoseconds) {
  char text[48];
  std::snprintf(text, sizeof text, "+%llu.%06llu s",
                static_cast<unsigned long long>(nanoseconds / kSecond),
                static_cast<unsigned long long>(nanoseconds % kSecond / 1000));
  return text;
}

std::string clockText(std::uint64_t nanoseconds) {
  std::uint64_t const seconds = nanoseconds / kSecond;
  std::chrono::year_month_day const date{
      std::chrono::sys_days(std::chrono::days(static_cast<int>(seconds / 86400)))};
  char text[80];
  std::snprintf(
      text, sizeof text, "%04d-%02u-%02uT%02u:%02u:%02u.%06lluZ", static_cast<int>(date.year()),
      static_cast<unsigned int>(date.month()), static_cast<unsigned int>(date.day()),
      static_cast<unsigned int>(seconds / 3600 % 24), static_cast<unsigned int>(seconds / 60 % 60),
      static_cast<unsigned int>(seconds % 60),
      static_cast<unsigned long long>(nanoseconds % kSecond / 1000));
  return text;
}

Json timeJson(std::uint64_t startedAt, std::uint64_t time) {
  return {{"time", clockText(startedAt + time)}, {"offset", static_cast<double>(time) / 1e9}};
}

std::uint64_t parseTime(std::string const& text, std::uint64_t startedAt) {
  if (auto const seconds = parseSeconds(text)) return *seconds;
  auto const clock = parseClock(text);
  if (!clock) {
    throw InputError("time", "found " + inQuotes(text) +
                                 ", expected seconds such as 12.5, or a time such as "
                                 "2026-11-22T10:00:00Z");
  }
  if (*clock < startedAt) {
    throw InputError("time", text + " is before the recording began at " + clockText(startedAt));
  }
  return *clock - startedAt;
}

}  // namespace RailSeq
