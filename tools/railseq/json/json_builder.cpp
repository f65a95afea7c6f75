// Builds the tree from the parser's events, taking each event's place from a scanner of the same
// text.
#include <nlohmann/json.hpp>
#include <unordered_map>

#include "railseq/json/json_scanner.h"
#include "railseq/json/json_tree.h"

namespace RailSeq {

namespace {

using Json = nlohmann::json;

class Builder : public Json::json_sax_t {
 public:
  Builder(std::string const& file, std::string_view text, JsonLimits const& limits)
      : file_(file), limits_(limits), scanner_(text) {}

  JsonNode root() && { return std::move(root_); }

  bool null() override {
    add(JsonNode::Kind::null);
    return true;
  }
  bool boolean(bool given) override {
    add(JsonNode::Kind::boolean).boolean = given;
    return true;
  }
  bool number_integer(number_integer_t) override { return number(); }
  bool number_unsigned(number_unsigned_t) override { return number(); }
  bool number_float(number_float_t, string_t const&) override { return number(); }
  bool string(string_t& given) override {
    add(JsonNode::Kind::text).text = std::move(given);
    return true;
  }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return open(JsonNode::Kind::object); }
  bool start_array(std::size_t) override { return open(JsonNode::Kind::array); }
  bool end_object() override { return close(); }
  bool end_array() override { return close(); }
  bool key(string_t& given) override;
  bool parse_error(std::size_t offset, std::string const& token,
                   nlohmann::detail::exception const& failure) override;

 private:
  struct Open {
    JsonNode* node;
    std::unordered_map<std::string, Position> keys;
  };

  void advance() { token_ = scanner_.nextValue().value(); }
  JsonNode& add(JsonNode::Kind kind);
  bool number();
  bool open(JsonNode::Kind kind);
  bool close();

  std::string const& file_;
  JsonLimits const& limits_;
  JsonScanner scanner_;
  JsonToken token_;
  JsonNode root_;
  // Pointers into the tree stay good: nothing is added to a node while one of its children is open.
  std::vector<Open> open_;
  std::size_t values_ = 0;
};

JsonNode& Builder::add(JsonNode::Kind kind) {
  advance();
  if (++values_ > limits_.values) {
    throw InputError(file_, token_.at, "one more value",
                     "at most " + std::to_string(limits_.values) + " values in one file");
  }
  JsonNode* node = &root_;
  if (!open_.empty()) {
    JsonNode& holder = *open_.back().node;
    node = holder.kind == JsonNode::Kind::array ? &holder.items.emplace_back()
                                                : &holder.members.back().value;
  }
  node->kind = kind;
  node->at = token_.at;
  return *node;
}

bool Builder::number() {
  JsonNode& node = add(JsonNode::Kind::number);
  node.text = token_.text;
  return true;
}

bool Builder::open(JsonNode::Kind kind) {
  JsonNode& node = add(kind);
  if (open_.size() == limits_.depth) {
    throw InputError(file_, token_.at, "one more level of nesting",
                     "at most " + std::to_string(limits_.depth) + " levels");
  }
  open_.push_back(Open{&node, {}});
  return true;
}

bool Builder::close() {
  advance();
  open_.pop_back();
  return true;
}

bool Builder::key(string_t& given) {
  advance();
  auto const [first, isNew] = open_.back().keys.emplace(given, token_.at);
  if (!isNew) {
    throw InputError(file_, token_.at,
                     "the key " + inQuotes(given) + " again after line " +
                         std::to_string(first->second.line) + ", column " +
                         std::to_string(first->second.column),
                     "each key once in an object");
  }
  JsonMember& member = open_.back().node->members.emplace_back();
  member.key = std::move(given);
  member.keyAt = token_.at;
  return true;
}

// What the parser would have taken instead, from the end of its own message.
[[nodiscard]] std::string expectedIn(std::string_view message) {
  if (message.ends_with("expected '}'")) return "',' or '}'";
  if (message.ends_with("expected ']'")) return "',' or ']'";
  if (message.ends_with("expected ':'")) return "':'";
  if (message.ends_with("expected string literal")) return "a key in double quotes";
  if (message.ends_with("expected end of input")) return "the end of the file";
  return "a value";
}

// The parser's complaint about a token that is none, such as "invalid number"; empty when the token
// is good but stands in the wrong place.
[[nodiscard]] std::string complaintIn(std::string_view message) {
  if (message.find("number overflow") != std::string_view::npos) return "number out of range";
  std::size_t const begin = message.find("invalid ");
  if (begin == std::string_view::npos) return {};
  return std::string(message.substr(begin, message.find("; last read") - begin));
}

// The parser may have read one character beyond the token that it complains about.
[[nodiscard]] JsonTokenKinds kindsFor(std::string_view complaint) {
  if (complaint.empty()) return JsonTokenKinds::all;
  return complaint.starts_with("invalid string") ? JsonTokenKinds::strings : JsonTokenKinds::words;
}

bool Builder::parse_error(std::size_t offset, std::string const&,
                          nlohmann::detail::exception const& failure) {
  std::string_view const message = failure.what();
  if (message.find("unexpected end of input") != std::string_view::npos) {
    throw InputError(file_, scanner_.end(), "the end of the file", expectedIn(message));
  }
  std::string const complaint = complaintIn(message);
  JsonToken const token = scanner_.lastBefore(offset, kindsFor(complaint));
  std::string found = inQuotes(token.text);
  if (!complaint.empty()) found += " (" + complaint + ")";
  throw InputError(file_, token.at, found, expectedIn(message));
}

}  // namespace

JsonNode parseJson(std::string const& file, std::string_view text, JsonLimits const& limits) {
  Builder builder(file, text, limits);
  Json::sax_parse(text.begin(), text.end(), &builder);
  return std::move(builder).root();
}

}  // namespace RailSeq
