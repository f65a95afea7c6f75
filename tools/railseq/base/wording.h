// Pieces of messages and lists: suggestions for mistyped names, numbers of things, their order.
#pragma once

#include <string>
#include <string_view>

#include "host/zol/suggestion.h"

namespace RailSeq {

using Zol::alternatives;
using Zol::nearestNames;
using Zol::suggestion;

// "1 rail", "2 rails"
[[nodiscard]] inline std::string counted(std::size_t count, std::string const& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

// The text of another process without the control characters that a terminal would obey.
[[nodiscard]] std::string printable(std::string_view text);

// Whether `a` comes before `b` in a list for people, where "2" comes before "10".
[[nodiscard]] bool comesBefore(std::string_view a, std::string_view b);

}  // namespace RailSeq
