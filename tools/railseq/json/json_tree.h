// A JSON document as a tree in which every value and every key knows its place in the file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "railseq/base/input_error.h"

namespace RailSeq {

struct JsonMember;

struct JsonNode {
  enum class Kind { null, boolean, number, text, array, object };

  // The member under the key, or null when there is none or this is no object.
  [[nodiscard]] JsonNode const* find(std::string_view key) const;

  Kind kind = Kind::null;
  Position at;
  bool boolean = false;
  // Set when a variable was put in for part of the text; such a text may stand for a number.
  bool fromVariable = false;
  // Of a text its decoded bytes, of a number its digits as they stand in the file.
  std::string text;
  std::vector<JsonNode> items;
  std::vector<JsonMember> members;
};

// In the order of the file; no key occurs twice in one object.
struct JsonMember {
  std::string key;
  Position keyAt;
  JsonNode value;
};

struct JsonLimits {
  std::size_t bytes = std::size_t{16} * 1024 * 1024;
  std::size_t depth = 64;
  std::size_t values = 1'000'000;
};

// Reads a document. `file` is only used in messages. Throws `InputError` for text that is not JSON,
// a key that stands twice in one object, and whatever is beyond the limits.
[[nodiscard]] JsonNode parseJson(std::string const& file, std::string_view text,
                                 JsonLimits const& limits = {});

// The bytes of a file. Throws `InputError` when it cannot be read or is longer than the limit.
[[nodiscard]] std::string readFile(std::string const& file, std::size_t limit = JsonLimits{}.bytes);

// The value in a message: "the number 7", "the text \"x\"", "an object".
[[nodiscard]] std::string describe(JsonNode const& node);

}  // namespace RailSeq
