// Puts templates and their variables in the place of the chassis that use them.
#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "railseq/base/wording.h"
#include "railseq/board/board_forms.h"

namespace RailSeq {

namespace {

[[nodiscard]] std::vector<std::string> keysOf(auto const& map) {
  std::vector<std::string> keys;
  for (auto const& [key, value] : map) keys.push_back(key);
  return keys;
}

// The variables of one use of a template.
class Variables {
 public:
  Variables(JsonNode const* values, NodeReader const& reader);

  // Puts the variables into all texts of the node and below.
  void putInto(JsonNode& node);
  [[nodiscard]] std::vector<std::string> unused() const;

 private:
  void putIntoText(JsonNode& node);
  std::string const& value(std::string const& name, Position at);

  NodeReader const& reader_;
  std::map<std::string, std::string> values_;
  std::set<std::string> used_;
};

Variables::Variables(JsonNode const* values, NodeReader const& reader) : reader_(reader) {
  if (!values) return;
  reader_.requireObject(*values, "template_variable_values");
  for (JsonMember const& member : values->members) {
    if (member.value.kind != JsonNode::Kind::number) {
      static_cast<void>(reader_.text(member.value, "variable " + inQuotes(member.key)));
    }
    values_.emplace(member.key, member.value.text);
  }
}

void Variables::putInto(JsonNode& node) {
  if (node.kind == JsonNode::Kind::text) putIntoText(node);
  for (JsonNode& item : node.items) putInto(item);
  for (JsonMember& member : node.members) {
    if (member.key != "comments") putInto(member.value);
  }
}

void Variables::putIntoText(JsonNode& node) {
  std::string result;
  std::size_t begin = 0;
  for (std::size_t mark = node.text.find("${"); mark != std::string::npos;
       mark = node.text.find("${", begin)) {
    std::size_t const end = node.text.find('}', mark);
    if (end == std::string::npos) {
      reader_.refuse(node.at, describe(node), "'}' behind the variable's name");
    }
    result += node.text.substr(begin, mark - begin);
    result += value(node.text.substr(mark + 2, end - mark - 2), node.at);
    node.fromVariable = true;
    begin = end + 1;
  }
  node.text = result + node.text.substr(begin);
}

std::string const& Variables::value(std::string const& name, Position at) {
  auto const found = values_.find(name);
  if (found == values_.end()) {
    reader_.refuse(at, "the unknown variable " + inQuotes(name),
                   values_.empty() ? "a variable with a value, and none is given"
                                   : suggestion(name, keysOf(values_)));
  }
  used_.insert(name);
  return found->second;
}

std::vector<std::string> Variables::unused() const {
  std::vector<std::string> names = keysOf(values_);
  std::erase_if(names, [this](std::string const& name) { return used_.contains(name); });
  return names;
}

using Templates = std::map<std::string, JsonNode const*>;

[[nodiscard]] Templates readTemplates(JsonNode const& root, NodeReader const& reader) {
  Templates templates;
  JsonNode const* const given = root.find("chassis_templates");
  if (!given) return templates;
  reader.requireArray(*given, "chassis_templates");
  for (JsonNode const& node : given->items) {
    JsonNode const& id = reader.member(node, "id", "a chassis template");
    if (!templates.emplace(reader.name(id, "the id of a template"), &node).second) {
      reader.refuse(id.at, "the template id " + inQuotes(id.text) + " again",
                    "each template id once");
    }
  }
  return templates;
}

}  // namespace

std::vector<ChassisSource> expandChassis(JsonNode const& root, NodeReader const& reader,
                                         std::vector<std::string>& notes) {
  Templates const templates = readTemplates(root, reader);
  JsonNode const& chassis = reader.member(root, "chassis", "the board");
  reader.requireArray(chassis, "chassis");
  std::vector<ChassisSource> sources;
  for (JsonNode const& entry : chassis.items) {
    JsonNode const* const id = entry.find("template_id");
    if (!id) {
      sources.push_back({entry, ""});
      continue;
    }
    reader.allowKeys(entry, "a chassis made from a template",
                     {"template_id", "template_variable_values"});
    auto const found = templates.find(reader.text(*id, "template_id"));
    if (found == templates.end()) {
      reader.refuse(id->at, "the unknown template " + inQuotes(id->text),
                    templates.empty() ? "a template of the file, which has none"
                                      : suggestion(id->text, keysOf(templates)));
    }
    ChassisSource source{*found->second, ", in template " + inQuotes(id->text) +
                                             " as used at line " + std::to_string(entry.at.line)};
    std::erase_if(source.node.members, [](JsonMember const& m) { return m.key == "id"; });
    NodeReader inTemplate(reader.file());
    inTemplate.contextIs(source.context);
    Variables variables(entry.find("template_variable_values"), inTemplate);
    variables.putInto(source.node);
    for (std::string const& name : variables.unused()) {
      notes.push_back(noteText(reader.file(), entry.at,
                               "the variable " + inQuotes(name) + " is not used by the template"));
    }
    sources.push_back(std::move(source));
  }
  return sources;
}

}  // namespace RailSeq
