// Builds the one-line messages of refused input.
#include "railseq/base/input_error.h"

#include <array>

namespace RailSeq {

namespace {

constexpr std::size_t kTextLimit = 80;

[[nodiscard]] bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
}

}  // namespace

InputError::InputError(std::string const& file, Position at, std::string const& found,
                       std::string const& expected)
    : std::runtime_error(placeText(file, at) + ": found " + found + ", expected " + expected) {}

InputError::InputError(std::string const& where, std::string const& problem)
    : std::runtime_error(where + ": " + problem) {}

std::string placeText(std::string const& file, Position at) {
  return file + ":" + std::to_string(at.line) + ":" + std::to_string(at.column);
}

std::string inQuotes(std::string_view text) {
  static constexpr std::array<char, 17> kDigits{"0123456789abcdef"};
  std::string result = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (i >= kTextLimit && !continuesCharacter(text[i])) return result + "...\"";
    auto const byte = static_cast<unsigned char>(text[i]);
    if (byte == '"' || byte == '\\') {
      result += {'\\', text[i]};
    } else if (byte < 0x20U || byte == 0x7fU) {
      result += {'\\', 'x', kDigits[byte >> 4U], kDigits[byte & 0xfU]};
    } else {
      result += text[i];
    }
  }
  return result + '"';
}

}  // namespace RailSeq
