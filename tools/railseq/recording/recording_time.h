// Times of a recording: as people write them, and as they are shown.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "railseq/board/tree_json.h"

namespace RailSeq {

// "+12.000345 s" for nanoseconds since the recording began.
[[nodiscard]] std::string offsetText(std::uint64_t nanoseconds);

// "2026-11-22T10:00:00.000123Z" for nanoseconds since the epoch.
[[nodiscard]] std::string clockText(std::uint64_t nanoseconds);

// {"time": "2026-11-22T10:00:00.000123Z", "offset": 12.000345}, `time` since `startedAt`.
[[nodiscard]] Json timeJson(std::uint64_t startedAt, std::uint64_t time);

// Nanoseconds since the beginning of a recording that began at `startedAt`, of a text such as
// "12.5", "+12.5" or "2026-11-22T10:00:00Z", the latter with or without a fraction. Throws
// `InputError` for another text, and for a time before the beginning.
[[nodiscard]] std::uint64_t parseTime(std::string const& text, std::uint64_t startedAt);

}  // namespace RailSeq
