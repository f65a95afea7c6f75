// The token walk. It knows quotes, blanks and separators, and no more of the language.
#include "railseq/json/json_scanner.h"

namespace RailSeq {

namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
constexpr std::string_view kSeparators = "{}[],:\" \t\r\n";

[[nodiscard]] bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

[[nodiscard]] bool isOf(JsonTokenKinds kinds, char first) {
  if (kinds == JsonTokenKinds::all) return true;
  if (kinds == JsonTokenKinds::strings) return first == '"';
  return kSeparators.find(first) == std::string_view::npos;
}

}  // namespace

JsonScanner::JsonScanner(std::string_view text) : text_(text) {
  if (text.starts_with(kByteOrderMark)) offset_ = kByteOrderMark.size();
}

std::optional<JsonToken> JsonScanner::next() {
  skipBlanks();
  if (offset_ == text_.size()) return std::nullopt;
  std::size_t const begin = offset_;
  Position const at = at_;
  char const first = text_[offset_];
  skip();
  if (first == '"') {
    while (offset_ < text_.size() && text_[offset_] != '"') {
      if (text_[offset_] == '\\') skip();
      skip();
    }
    skip();
  } else if (kSeparators.find(first) == std::string_view::npos) {
    while (offset_ < text_.size() && kSeparators.find(text_[offset_]) == std::string_view::npos) {
      skip();
    }
  }
  latest_ = JsonToken{at, begin, text_.substr(begin, offset_ - begin)};
  return latest_;
}

std::optional<JsonToken> JsonScanner::nextValue() {
  std::optional<JsonToken> token = next();
  while (token && (token->text == "," || token->text == ":")) token = next();
  return token;
}

JsonToken JsonScanner::lastBefore(std::size_t offset, JsonTokenKinds kinds) {
  JsonToken result = latest_;
  while (std::optional<JsonToken> const token = next()) {
    if (token->offset >= offset) break;
    if (isOf(kinds, token->text.front())) result = *token;
  }
  return result;
}

Position JsonScanner::end() {
  while (offset_ < text_.size()) skip();
  return at_;
}

void JsonScanner::skip() {
  if (offset_ == text_.size()) return;
  char const passed = text_[offset_++];
  if (passed == '\n') {
    at_ = Position{at_.line + 1, 1};
  } else if ((static_cast<unsigned char>(passed) & 0xc0U) != 0x80U) {
    ++at_.column;
  }
}

void JsonScanner::skipBlanks() {
  while (offset_ < text_.size() && isBlank(text_[offset_])) skip();
}

}  // namespace RailSeq
