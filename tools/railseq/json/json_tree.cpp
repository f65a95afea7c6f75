// Reads files and describes values; the building of the tree stands in json_builder.cpp.
#include "railseq/json/json_tree.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace RailSeq {

JsonNode const* JsonNode::find(std::string_view key) const {
  auto const found = std::ranges::find(members, key, &JsonMember::key);
  return found == members.end() ? nullptr : &found->value;
}

std::string readFile(std::string const& file, std::size_t limit) {
  errno = 0;
  std::ifstream stream(file, std::ios::binary);
  std::string text;
  std::string block(64 * 1024, '\0');
  while (stream && text.size() <= limit) {
    stream.read(block.data(), static_cast<std::streamsize>(block.size()));
    text.append(block, 0, static_cast<std::size_t>(stream.gcount()));
  }
  if (!stream.is_open() || stream.bad()) {
    throw InputError(file, "cannot be read: " + std::generic_category().message(errno));
  }
  if (text.size() > limit) {
    throw InputError(file, "is longer than the " + std::to_string(limit) + " bytes allowed");
  }
  return text;
}

std::string describe(JsonNode const& node) {
  switch (node.kind) {
    case JsonNode::Kind::null:
      return "null";
    case JsonNode::Kind::boolean:
      return node.boolean ? "true" : "false";
    case JsonNode::Kind::number:
      return "the number " + node.text.substr(0, 40);
    case JsonNode::Kind::text:
      return "the text " + inQuotes(node.text);
    case JsonNode::Kind::array:
      return "an array";
    case JsonNode::Kind::object:
      return "an object";
  }
  return "nothing";
}

}  // namespace RailSeq
