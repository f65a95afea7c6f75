// Pieces of messages: suggestions for mistyped names, lists, numbers of things.
#pragma once

#include <string>

#include "host/zol/suggestion.h"

namespace RailSeq {

using Zol::alternatives;
using Zol::nearestNames;
using Zol::suggestion;

// "1 rail", "2 rails"
[[nodiscard]] inline std::string counted(std::size_t count, std::string const& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

}  // namespace RailSeq
