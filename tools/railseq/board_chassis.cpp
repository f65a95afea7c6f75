// Reads the form of public power-sequencer descriptions.
#include <algorithm>
#include <cctype>
#include <map>

#include "railseq/board_forms.h"
#include "railseq/wording.h"

namespace RailSeq {

namespace {

constexpr std::uint32_t kLargestNumber = 0xffffffffU;
constexpr std::string_view kGpioOnlyType = "gpios_only_device";

// The chip of a device type: a family's letters with at least one more letter or digit behind them.
[[nodiscard]] std::optional<Chip> chipOfType(std::string type) {
  std::ranges::transform(type, type.begin(), [](char c) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  });
  if (type.starts_with("PSOC")) return Chip::psoc;
  if (type.starts_with("UCD901") && type.size() > 6) return Chip::ucd9012;
  if (type.starts_with("UCD903") && type.size() > 6) return Chip::ucd9032;
  return std::nullopt;
}

class ChassisFormReader {
 public:
  explicit ChassisFormReader(std::string const& file) : reader_(file) {}

  BoardDescription read(JsonNode const& root);

 private:
  void readChassis(JsonNode const& chassis, bool isOnlyOne);
  void readSequencer(JsonNode const& sequencer, std::string const& prefix,
                     std::string const& location);
  bool skipsGpioOnly(JsonNode const& sequencer, std::string const& type);
  [[nodiscard]] std::string readGpioNames(JsonNode const& sequencer) const;
  void noteKept(Position at, ControllerDescription const& controller);
  void note(Position at, std::string const& text) {
    board_.notes.push_back(noteText(reader_.file(), at, text));
  }

  NodeReader reader_;
  BoardDescription board_;
  std::map<std::uint32_t, Position> chassisNumbers_;
  std::map<std::string, Position> names_;
};

BoardDescription ChassisFormReader::read(JsonNode const& root) {
  reader_.allowKeys(root, "the board", {"chassis", "chassis_templates"});
  std::vector<ChassisSource> const sources = expandChassis(root, reader_, board_.notes);
  for (ChassisSource const& source : sources) {
    reader_.contextIs(source.context);
    readChassis(source.node, sources.size() == 1);
  }
  return std::move(board_);
}

void ChassisFormReader::readChassis(JsonNode const& chassis, bool isOnlyOne) {
  reader_.allowKeys(chassis, "a chassis",
                    {"number", "inventory_path", "power_sequencers", "status_monitoring"});
  JsonNode const& number = reader_.member(chassis, "number", "a chassis");
  std::uint32_t const value = reader_.number(number, "the number of a chassis", kLargestNumber);
  auto const [first, isNew] = chassisNumbers_.emplace(value, number.at);
  if (!isNew) {
    reader_.refuse(number.at,
                   "the chassis number " + std::to_string(value) + " again after line " +
                       std::to_string(first->second.line),
                   "each chassis number once");
  }
  std::string location;
  if (JsonNode const* const path = chassis.find("inventory_path")) {
    location = reader_.text(*path, "inventory_path");
  }
  if (JsonNode const* const monitoring = chassis.find("status_monitoring")) {
    reader_.requireObject(*monitoring, "status_monitoring");
    note(monitoring->at, "\"status_monitoring\" is read but not put into the tree");
  }
  JsonNode const& sequencers = reader_.member(chassis, "power_sequencers", "a chassis");
  reader_.requireArray(sequencers, "power_sequencers");
  std::string const prefix = isOnlyOne ? "" : "chassis" + std::to_string(value) + "-";
  for (JsonNode const& sequencer : sequencers.items) readSequencer(sequencer, prefix, location);
}

void ChassisFormReader::readSequencer(JsonNode const& sequencer, std::string const& prefix,
                                      std::string const& location) {
  reader_.allowKeys(
      sequencer, "a power sequencer",
      {"id", "type", "i2c_interface", "power_control_gpio_name", "power_good_gpio_name", "rails"});
  JsonNode const& typeNode = reader_.member(sequencer, "type", "a power sequencer");
  std::string const& type = reader_.name(typeNode, "the type of a power sequencer");
  if (skipsGpioOnly(sequencer, type)) return;
  std::optional<Chip> const chip = chipOfType(type);
  if (!chip) {
    reader_.refuse(typeNode.at, "a power sequencer of type " + inQuotes(type),
                   "a type UCD901xx, UCD903xx or PSoC");
  }
  JsonNode const& id = reader_.member(sequencer, "id", "a power sequencer");
  ControllerDescription controller;
  controller.chip = *chip;
  controller.name = prefix + reader_.name(id, "the id of a power sequencer");
  controller.customerName = type;
  auto const [first, isNew] = names_.emplace(controller.name, id.at);
  if (!isNew) {
    reader_.refuse(id.at,
                   "the controller name " + inQuotes(controller.name) + " again after line " +
                       std::to_string(first->second.line),
                   "each controller name once");
  }
  controller.bus =
      readBus(reader_, reader_.member(sequencer, "i2c_interface", "a power sequencer"));
  if (JsonNode const* const rails = sequencer.find("rails"))
    controller.rails = readRails(reader_, *rails);
  controller.settings = {
      {"location", location}, {"modelName", type}, {"description", readGpioNames(sequencer)}};
  noteKept(sequencer.at, controller);
  board_.controllers.push_back(std::move(controller));
}

bool ChassisFormReader::skipsGpioOnly(JsonNode const& sequencer, std::string const& type) {
  if (type != kGpioOnlyType) return false;
  JsonNode const* const rails = sequencer.find("rails");
  if (rails) {
    reader_.requireArray(*rails, "rails");
    if (!rails->items.empty()) {
      reader_.refuse(rails->at, "rails of a device of type " + inQuotes(type), "no rails");
    }
  }
  static_cast<void>(readGpioNames(sequencer));
  JsonNode const* const id = sequencer.find("id");
  note(sequencer.at, "the device" + (id ? " " + inQuotes(reader_.text(*id, "id")) : "") +
                         " has GPIOs only and is skipped");
  return true;
}

std::string ChassisFormReader::readGpioNames(JsonNode const& sequencer) const {
  std::string result;
  for (std::string_view const key : {"power_control_gpio_name", "power_good_gpio_name"}) {
    JsonNode const* const given = sequencer.find(key);
    if (!given) continue;
    if (!result.empty()) result += ", ";
    result += std::string(key) + " " + reader_.text(*given, key);
  }
  return result;
}

void ChassisFormReader::noteKept(Position at, ControllerDescription const& controller) {
  note(at, counted(controller.rails.size(), "voltage rail") +
               " and 1 bus descriptor of controller " + inQuotes(controller.name) +
               " are read but not put into the tree");
}

}  // namespace

BoardDescription readChassisForm(JsonNode const& root, std::string const& file) {
  return ChassisFormReader(file).read(root);
}

}  // namespace RailSeq
