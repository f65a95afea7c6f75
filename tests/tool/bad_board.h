// Board texts with the refusal that they must get, for tables of bad cases.
#pragma once

#include <ostream>
#include <string>

#include "railseq/board.h"

namespace RailSeq {

struct BadBoard {
  std::string text;
  char const* refusal;

  friend std::ostream& operator<<(std::ostream& stream, BadBoard const& board) {
    return stream << board.text;
  }
};

// The message with which the text is refused as the file "b.json".
inline std::string refusalOf(std::string const& text) {
  try {
    static_cast<void>(parseBoard("b.json", text));
  } catch (InputError const& error) {
    return error.what();
  }
  return "accepted";
}

}  // namespace RailSeq
