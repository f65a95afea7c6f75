// Reads the form in which attributes stand by name.
#include <algorithm>
#include <array>

#include "railseq/board_forms.h"
#include "railseq/controller_attributes.h"
#include "railseq/wording.h"

namespace RailSeq {

namespace {

struct ChipKey {
  std::string_view key;
  Chip chip;
};
constexpr std::array kChipKeys{ChipKey{"realUcd9012Controller", Chip::ucd9012},
                               ChipKey{"realUcd9032Controller", Chip::ucd9032},
                               ChipKey{"realPsocController", Chip::psoc}};
constexpr std::uint32_t kLargestPage = 255;
constexpr std::uint32_t kLargestNumber = 0xffffffffU;

class AttributeFormReader {
 public:
  explicit AttributeFormReader(std::string const& file) : reader_(file) {}

  BoardDescription read(JsonNode const& root);

 private:
  void readConfig(JsonNode const& config);
  void readControllers(Chip chip, JsonMember const& collection);
  ControllerDescription readController(Chip chip, JsonMember const& given);
  std::string const& readCustomerName(JsonNode const& node) const;
  AttributeSetting readSetting(JsonMember const& given) const;
  AttributeValue readValue(ControllerAttribute const& attribute, JsonNode const& node) const;
  void readRails(JsonMember const& given, ControllerDescription& controller);
  [[noreturn]] void refuseAttribute(JsonMember const& given) const;
  void note(Position at, std::string const& text);

  NodeReader reader_;
  BoardDescription board_;
};

BoardDescription AttributeFormReader::read(JsonNode const& root) {
  for (JsonMember const& member : root.members) {
    if (member.key == "config") {
      readConfig(member.value);
    } else if (member.key == "status") {
      reader_.requireObject(member.value, "status");
      note(member.keyAt, "\"status\" is read but not put into the tree");
    } else {
      reader_.refuse(member.keyAt, "the unknown key " + inQuotes(member.key),
                     "\"config\" or \"status\"");
    }
  }
  return std::move(board_);
}

void AttributeFormReader::readConfig(JsonNode const& config) {
  reader_.requireObject(config, "config");
  for (JsonMember const& member : config.members) {
    auto const chip = std::ranges::find(kChipKeys, member.key, &ChipKey::key);
    if (chip != kChipKeys.end()) {
      readControllers(chip->chip, member);
    } else if (member.key == "name") {
      board_.configName = reader_.name(member.value, "the name of the configuration");
    } else if (member.key == "dexoDesc") {
      reader_.requireObject(member.value, "dexoDesc");
      note(member.keyAt, "\"dexoDesc\" with " + counted(member.value.members.size(), "descriptor") +
                             " is read but not put into the tree");
    } else {
      std::vector<std::string> keys{"name", "dexoDesc"};
      for (ChipKey const& known : kChipKeys) keys.emplace_back(known.key);
      reader_.refuse(member.keyAt, "the unknown key " + inQuotes(member.key) + " in config",
                     suggestion(member.key, keys));
    }
  }
}

void AttributeFormReader::readControllers(Chip chip, JsonMember const& collection) {
  reader_.requireObject(collection.value, collection.key);
  for (JsonMember const& member : collection.value.members) {
    board_.controllers.push_back(readController(chip, member));
  }
}

ControllerDescription AttributeFormReader::readController(Chip chip, JsonMember const& given) {
  reader_.requireName(given.key, given.keyAt, "the name of a controller");
  reader_.requireObject(given.value, "controller " + inQuotes(given.key));
  ControllerDescription controller;
  controller.chip = chip;
  controller.name = given.key;
  for (JsonMember const& member : given.value.members) {
    if (member.key == "customerName") {
      controller.customerName = readCustomerName(member.value);
    } else if (member.key == "voltageRail") {
      readRails(member, controller);
    } else if (member.key == "dexoDesc") {
      note(member.keyAt, "\"dexoDesc\" of controller " + inQuotes(controller.name) +
                             " is read but not put into the tree");
    } else {
      controller.settings.push_back(readSetting(member));
    }
  }
  return controller;
}

// May be empty; otherwise a name as any other.
std::string const& AttributeFormReader::readCustomerName(JsonNode const& node) const {
  std::string const& text = reader_.text(node, "customerName");
  return text.empty() ? text : reader_.name(node, "customerName");
}

AttributeSetting AttributeFormReader::readSetting(JsonMember const& given) const {
  ControllerAttribute const* const attribute = findControllerAttribute(given.key);
  if (!attribute) refuseAttribute(given);
  return {given.key, readValue(*attribute, given.value)};
}

AttributeValue AttributeFormReader::readValue(ControllerAttribute const& attribute,
                                              JsonNode const& node) const {
  switch (attribute.kind) {
    case ValueKind::boolean:
      return reader_.boolean(node, attribute.name);
    case ValueKind::number:
      return reader_.number(node, attribute.name, kLargestNumber);
    case ValueKind::text:
      return reader_.text(node, attribute.name);
    case ValueKind::enumeration:
      break;
  }
  std::vector<std::string> const names = attribute.enumerators();
  if (node.kind != JsonNode::Kind::text || std::ranges::find(names, node.text) == names.end()) {
    reader_.refuse(node.at, describe(node),
                   alternatives(names) + " for " + std::string(attribute.name));
  }
  return node.text;
}

// The rails' own attributes are not looked at: only the pages are kept.
void AttributeFormReader::readRails(JsonMember const& given, ControllerDescription& controller) {
  reader_.requireObject(given.value, "voltageRail");
  for (JsonMember const& rail : given.value.members) {
    std::optional<std::uint32_t> const page = parseNumber(rail.key, kLargestPage);
    if (!page) {
      reader_.refuse(rail.keyAt, "the key " + inQuotes(rail.key),
                     "a whole number from 0 to 255 as the id of a voltage rail");
    }
    reader_.requireObject(rail.value, "voltage rail " + rail.key);
    controller.rails.push_back({"", static_cast<std::uint8_t>(*page)});
  }
  note(given.keyAt, counted(controller.rails.size(), "voltage rail") + " of controller " +
                        inQuotes(controller.name) + " are read but not put into the tree");
}

void AttributeFormReader::refuseAttribute(JsonMember const& given) const {
  if (std::ranges::find(controllerStructures(), given.key) != controllerStructures().end()) {
    reader_.refuse(given.keyAt, "the attribute " + inQuotes(given.key),
                   "an attribute that is a scalar or a text");
  }
  std::vector<std::string> names{"customerName", "voltageRail"};
  for (ControllerAttribute const& known : controllerAttributes()) names.emplace_back(known.name);
  reader_.refuse(given.keyAt, "the unknown attribute " + inQuotes(given.key),
                 suggestion(given.key, names));
}

void AttributeFormReader::note(Position at, std::string const& text) {
  board_.notes.push_back(noteText(reader_.file(), at, text));
}

}  // namespace

BoardDescription readAttributeForm(JsonNode const& root, std::string const& file) {
  return AttributeFormReader(file).read(root);
}

}  // namespace RailSeq
