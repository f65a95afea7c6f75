// Finds the places of the tokens of a JSON text, which the parser does not tell.
#pragma once

#include <optional>
#include <string_view>

#include "railseq/base/input_error.h"

namespace RailSeq {

// Where a token begins, and its bytes. What stands between separators and quotes is one token, also
// when it is no JSON: judging is the parser's business.
struct JsonToken {
  Position at;
  std::size_t offset = 0;
  std::string_view text;
};

enum class JsonTokenKinds { all, words, strings };

// Walks the tokens of a text in step with a parser of the same text. The text must outlive it.
class JsonScanner {
 public:
  explicit JsonScanner(std::string_view text);

  // The next token; none at the end of the text.
  std::optional<JsonToken> next();
  // The next token that is neither a comma nor a colon: the one the parser's next event is about.
  std::optional<JsonToken> nextValue();
  // The last token of the kinds that begins before `offset`, counted from the latest one given.
  JsonToken lastBefore(std::size_t offset, JsonTokenKinds kinds = JsonTokenKinds::all);
  // The place behind the last character of the text.
  Position end();

 private:
  void skip();
  void skipBlanks();

  std::string_view text_;
  std::size_t offset_ = 0;
  Position at_;
  JsonToken latest_;
};

}  // namespace RailSeq
