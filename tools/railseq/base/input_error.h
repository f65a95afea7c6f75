// Refusals of an input file: what was found where, and what was expected there.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace RailSeq {

// A place in an input file. Lines and columns count from 1; a column is one character, a tab too.
struct Position {
  std::size_t line = 1;
  std::size_t column = 1;

  friend bool operator==(Position const&, Position const&) = default;
};

// "FILE:LINE:COLUMN: found FOUND, expected EXPECTED"
class InputError : public std::runtime_error {
 public:
  InputError(std::string const& file, Position at, std::string const& found,
             std::string const& expected);
  // "WHERE: PROBLEM", where the place is a whole file or as of `placeText`.
  InputError(std::string const& where, std::string const& problem);
};

// "FILE:LINE:COLUMN", as editors and compilers write a place.
[[nodiscard]] std::string placeText(std::string const& file, Position at);

// The text in double quotes for a message of one line: control characters are escaped and a long
// text is cut.
[[nodiscard]] std::string inQuotes(std::string_view text);

}  // namespace RailSeq
