// Formats the present time.
#include "railseq/base/wall_clock.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace RailSeq {

std::string timeText() {
  using std::chrono::system_clock;
  system_clock::time_point const now = system_clock::now();
  std::time_t const seconds = system_clock::to_time_t(now);
  auto const passed = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch());
  std::tm parts{};
  ::gmtime_r(&seconds, &parts);
  std::array<char, 32> day{};
  std::strftime(day.data(), day.size(), "%Y-%m-%dT%H:%M:%S", &parts);
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%s.%03dZ", day.data(),
                static_cast<int>(passed.count() % 1000));
  return text.data();
}

}  // namespace RailSeq
