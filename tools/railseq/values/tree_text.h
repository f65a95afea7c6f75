// Trees as text.
#pragma once

#include "hwrailseq.h"

#include <string>
#include <string_view>
#include <vector>

namespace RailSeq {

// What stands at the path, a line for each entity and each value, each level further in.
[[nodiscard]] std::vector<std::string> treeLines(Zol::ByName const& tree, std::string_view path);

}  // namespace RailSeq
