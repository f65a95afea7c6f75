// Board texts with the refusal that they must get, for tables of bad cases.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "railseq/board/board.h"

namespace RailSeq {

struct BadBoard {
  std::string text;
  std::string refusal;  // without "b.json:" in front
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

inline void expectRefused(std::initializer_list<BadBoard> boards) {
  for (BadBoard const& board : boards) {
    EXPECT_EQ(refusalOf(board.text), "b.json:" + board.refusal) << board.text;
  }
}

}  // namespace RailSeq
