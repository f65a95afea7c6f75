// Suggestions for mistyped names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/zol/export.h"

namespace Zol {

// Those of `names` that are closest to `name`, three at most, nearest first; none when all are far.
[[nodiscard]] ZOL_EXPORT std::vector<std::string> nearestNames(
    std::string_view name, std::vector<std::string> const& names);

// "a, b or c"
[[nodiscard]] ZOL_EXPORT std::string alternatives(std::vector<std::string> const& names);

// The nearest names, or all of them when none is near, as alternatives.
[[nodiscard]] ZOL_EXPORT std::string suggestion(std::string_view name,
                                                std::vector<std::string> const& names);

}  // namespace Zol
