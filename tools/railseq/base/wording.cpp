// The order of names that may hold numbers, and texts of others.
#include "railseq/base/wording.h"

namespace RailSeq {

namespace {

[[nodiscard]] bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Takes the number off the front of the text, without zeros in front of it.
[[nodiscard]] std::string_view takeNumber(std::string_view& text) {
  std::size_t end = 0;
  while (end < text.size() && isDigit(text[end])) ++end;
  std::string_view number = text.substr(0, end);
  text.remove_prefix(end);
  while (number.size() > 1 && number.front() == '0') number.remove_prefix(1);
  return number;
}

}  // namespace

std::string printable(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (static_cast<unsigned char>(c) < 0x20U || c == 0x7f) c = '?';
  }
  return result;
}

bool comesBefore(std::string_view a, std::string_view b) {
  // Different texts never count as equal, also when they hold the same numbers.
  bool const tie = a < b;
  while (!a.empty() && !b.empty()) {
    if (isDigit(a.front()) && isDigit(b.front())) {
      std::string_view const left = takeNumber(a);
      std::string_view const right = takeNumber(b);
      if (left.size() != right.size()) return left.size() < right.size();
      if (left != right) return left < right;
    } else if (a.front() != b.front()) {
      return a.front() < b.front();
    } else {
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  return a.empty() && b.empty() ? tie : a.empty();
}

}  // namespace RailSeq
