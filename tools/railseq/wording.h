// Pieces of messages: suggestions for mistyped names, lists, numbers of things.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace RailSeq {

// Those of `names` that are closest to `name`, three at most, nearest first; none when all are far.
[[nodiscard]] std::vector<std::string> nearestNames(std::string_view name,
                                                    std::vector<std::string> const& names);

// "a, b or c"
[[nodiscard]] std::string alternatives(std::vector<std::string> const& names);

// The nearest names, or all of them when none is near, as alternatives.
[[nodiscard]] std::string suggestion(std::string_view name, std::vector<std::string> const& names);

// "1 rail", "2 rails"
[[nodiscard]] std::string counted(std::size_t count, std::string const& thing);

}  // namespace RailSeq
