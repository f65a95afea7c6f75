// Takes values of the wanted type out of a JSON tree, or refuses them with their place.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "railseq/json/json_tree.h"

namespace RailSeq {

// All operations throw `InputError` for a value that is missing or not of the wanted type; `what`
// names the thing in the message.
class NodeReader {
 public:
  explicit NodeReader(std::string file) : file_(std::move(file)) {}

  [[nodiscard]] std::string const& file() const { return file_; }
  // Said behind each refusal from now on, until the next call: where a thing that is used
  // elsewhere, such as a template, was used.
  void contextIs(std::string context) { context_ = std::move(context); }

  [[noreturn]] void refuse(Position at, std::string const& found,
                           std::string const& expected) const;
  // Refuses with a message that says all by itself.
  [[noreturn]] void fail(Position at, std::string const& message) const;

  void requireObject(JsonNode const& node, std::string_view what) const;
  void requireArray(JsonNode const& node, std::string_view what) const;
  // Refuses members of other names; a member "comments" must be an array of texts and is always
  // allowed.
  void allowKeys(JsonNode const& object, std::string_view what,
                 std::initializer_list<std::string_view> keys) const;
  [[nodiscard]] JsonNode const& member(JsonNode const& object, std::string_view key,
                                       std::string_view what) const;

  [[nodiscard]] bool boolean(JsonNode const& node, std::string_view what) const;
  // A whole number of at most `largest`. A text made from a variable may stand for it.
  [[nodiscard]] std::uint32_t number(JsonNode const& node, std::string_view what,
                                     std::uint32_t largest) const;
  [[nodiscard]] std::string const& text(JsonNode const& node, std::string_view what) const;
  // A text of 1 to 255 bytes, none of them a control character.
  [[nodiscard]] std::string const& name(JsonNode const& node, std::string_view what) const;
  void requireName(std::string const& name, Position at, std::string_view what) const;

 private:
  std::string file_;
  std::string context_;
};

// The decimal number that the text is, if it is one without sign, blanks or leading zeros and not
// greater than `largest`.
[[nodiscard]] std::optional<std::uint32_t> parseNumber(std::string_view text,
                                                       std::uint32_t largest);

}  // namespace RailSeq
