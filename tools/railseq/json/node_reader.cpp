// The checks of type and range behind all reading of board files.
#include "railseq/json/node_reader.h"

#include <algorithm>
#include <charconv>

#include "railseq/base/wording.h"

namespace RailSeq {

// What an attribute log takes as the name of a root.
constexpr std::size_t kLongestName = 255;

void NodeReader::refuse(Position at, std::string const& found, std::string const& expected) const {
  throw InputError(file_, at, found, expected + context_);
}

void NodeReader::fail(Position at, std::string const& message) const {
  throw InputError(placeText(file_, at), message + context_);
}

void NodeReader::requireObject(JsonNode const& node, std::string_view what) const {
  if (node.kind != JsonNode::Kind::object) {
    refuse(node.at, describe(node), "an object for " + std::string(what));
  }
}

void NodeReader::requireArray(JsonNode const& node, std::string_view what) const {
  if (node.kind != JsonNode::Kind::array) {
    refuse(node.at, describe(node), "an array for " + std::string(what));
  }
}

void NodeReader::allowKeys(JsonNode const& object, std::string_view what,
                           std::initializer_list<std::string_view> keys) const {
  requireObject(object, what);
  for (JsonMember const& given : object.members) {
    if (given.key == "comments") {
      requireArray(given.value, "comments");
      for (JsonNode const& line : given.value.items) static_cast<void>(text(line, "a comment"));
    } else if (std::ranges::find(keys, given.key) == keys.end()) {
      std::vector<std::string> const names(keys.begin(), keys.end());
      refuse(given.keyAt, "the unknown key " + inQuotes(given.key) + " in " + std::string(what),
             suggestion(given.key, names));
    }
  }
}

JsonNode const& NodeReader::member(JsonNode const& object, std::string_view key,
                                   std::string_view what) const {
  requireObject(object, what);
  JsonNode const* const found = object.find(key);
  if (!found) {
    refuse(object.at, std::string(what) + " without " + inQuotes(key), "the key " + inQuotes(key));
  }
  return *found;
}

bool NodeReader::boolean(JsonNode const& node, std::string_view what) const {
  if (node.kind != JsonNode::Kind::boolean) {
    refuse(node.at, describe(node), "true or false for " + std::string(what));
  }
  return node.boolean;
}

std::uint32_t NodeReader::number(JsonNode const& node, std::string_view what,
                                 std::uint32_t largest) const {
  bool const mayBeNumber = node.kind == JsonNode::Kind::number ||
                           (node.kind == JsonNode::Kind::text && node.fromVariable);
  std::optional<std::uint32_t> const value =
      mayBeNumber ? parseNumber(node.text, largest) : std::nullopt;
  if (!value) {
    refuse(node.at, describe(node),
           "a whole number from 0 to " + std::to_string(largest) + " for " + std::string(what));
  }
  return *value;
}

std::string const& NodeReader::text(JsonNode const& node, std::string_view what) const {
  if (node.kind != JsonNode::Kind::text) {
    refuse(node.at, describe(node), "a text for " + std::string(what));
  }
  return node.text;
}

std::string const& NodeReader::name(JsonNode const& node, std::string_view what) const {
  requireName(text(node, what), node.at, what);
  return node.text;
}

void NodeReader::requireName(std::string const& name, Position at, std::string_view what) const {
  bool const hasControl =
      std::ranges::any_of(name, [](char c) { return static_cast<unsigned char>(c) < 0x20U; });
  if (name.empty() || name.size() > kLongestName || hasControl) {
    refuse(at, "the text " + inQuotes(name),
           "1 to 255 bytes, none of them a control character, for " + std::string(what));
  }
}

std::optional<std::uint32_t> parseNumber(std::string_view text, std::uint32_t largest) {
  if (text.size() > 1 && text.front() == '0') return std::nullopt;
  std::uint32_t value = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size() || value > largest) {
    return std::nullopt;
  }
  return value;
}

}  // namespace RailSeq
