// The time of day as tools print it.
#pragma once

#include <string>

namespace RailSeq {

// "2026-11-23T12:00:00.123Z"
[[nodiscard]] std::string timeText();

}  // namespace RailSeq
