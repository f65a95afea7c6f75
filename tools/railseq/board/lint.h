// What a board can say without being wrong, but hardly means.
#pragma once

#include <string>
#include <vector>

#include "railseq/board/board.h"

namespace RailSeq {

// One line for each doubt, beginning with the path that it is about.
[[nodiscard]] std::vector<std::string> lintBoard(Board const& board);

}  // namespace RailSeq
