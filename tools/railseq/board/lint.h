// What a board can say without being wrong, but hardly means.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "railseq/board/board.h"

namespace RailSeq {

struct Warning {
  // "FILE:LINE:COLUMN: warning: TEXT", the place as far as it is known.
  [[nodiscard]] std::string line(std::string const& file) const;

  // Where the file says what is doubted.
  std::optional<Position> at;
  // Begins with the path that it is about.
  std::string text;
};

[[nodiscard]] std::vector<Warning> lintBoard(Board const& board);

}  // namespace RailSeq
