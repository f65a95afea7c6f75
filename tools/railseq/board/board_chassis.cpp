// Reads the form of public power-sequencer descriptions.
#include <algorithm>
#include <cctype>
#include <map>

#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/board/board_forms.h"
#include "railseq/board/tree_filler.h"

namespace RailSeq {

namespace {

constexpr std::uint32_t kLargestNumber = 0xffffffffU;
constexpr std::string_view kGpioOnlyType = "gpios_only_device";

// The attribute of the root that holds controllers of a device type; null for an unknown one. A
// known type is a family's letters with at least one more letter or digit behind them.
[[nodiscard]] char const* collectionOfType(std::string type) {
  std::ranges::transform(type, type.begin(), [](char c) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  });
  if (type.starts_with("PSOC")) return "realPsocController";
  if (type.starts_with("UCD901") && type.size() > 6) return "realUcd9012Controller";
  if (type.starts_with("UCD903") && type.size() > 6) return "realUcd9032Controller";
  return nullptr;
}

class ChassisFormReader {
 public:
  explicit ChassisFormReader(std::string const& file)
      : reader_(file),
        board_{.config = new Config("config"), .status = nullptr, .notes = {}, .places = {}},
        root_(rootPath(board_.config->name().view())),
        filler_(board_.tree(), reader_) {}

  Board read(JsonNode const& root);

 private:
  void readChassis(JsonNode const& chassis, bool isOnlyOne);
  void readSequencer(JsonNode const& sequencer, std::string const& prefix,
                     std::string const& location);
  bool skipsGpioOnly(JsonNode const& sequencer, std::string const& type);
  [[nodiscard]] std::string readGpioNames(JsonNode const& sequencer) const;
  [[nodiscard]] std::string makeBus(std::string const& controller, ChassisBus const& bus);
  void makeRail(std::string const& controller, ChassisRail const& rail);
  void note(Position at, std::string const& text) {
    board_.notes.push_back(noteText(reader_.file(), at, text));
  }

  NodeReader reader_;
  Board board_;
  std::string root_;
  TreeFiller filler_;
  std::map<std::uint32_t, Position> chassisNumbers_;
  std::map<std::string, Position> names_;
};

Board ChassisFormReader::read(JsonNode const& root) {
  reader_.allowKeys(root, "the board", {"chassis", "chassis_templates"});
  std::vector<ChassisSource> const sources = expandChassis(root, reader_, board_.notes);
  for (ChassisSource const& source : sources) {
    reader_.contextIs(source.context);
    readChassis(source.node, sources.size() == 1);
  }
  board_.places = filler_.places();
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
  char const* const collection = collectionOfType(type);
  if (!collection) {
    reader_.refuse(typeNode.at, "a power sequencer of type " + inQuotes(type),
                   "a type UCD901xx, UCD903xx or PSoC");
  }
  JsonNode const& id = reader_.member(sequencer, "id", "a power sequencer");
  std::string const name = prefix + reader_.name(id, "the id of a power sequencer");
  auto const [first, isNew] = names_.emplace(name, id.at);
  if (!isNew) {
    reader_.refuse(id.at,
                   "the controller name " + inQuotes(name) + " again after line " +
                       std::to_string(first->second.line),
                   "each controller name once");
  }
  ChassisBus const bus =
      readBus(reader_, reader_.member(sequencer, "i2c_interface", "a power sequencer"));
  std::string const path = memberPath(attributePath(root_, collection), name);
  filler_.make(sequencer.at, path, {{"customerName", type}, {"dexoDesc", makeBus(name, bus)}});
  for (auto const& [attribute, value] : {std::pair<char const*, std::string>{"location", location},
                                         {"modelName", type},
                                         {"description", readGpioNames(sequencer)}}) {
    filler_.write(sequencer.at, attributePath(path, attribute), value);
  }
  if (JsonNode const* const rails = sequencer.find("rails")) {
    for (ChassisRail const& rail : readRails(reader_, *rails)) makeRail(path, rail);
  }
}

// Gives the path of the descriptor.
std::string ChassisFormReader::makeBus(std::string const& controller, ChassisBus const& bus) {
  std::string path = memberPath(attributePath(root_, "dexoDesc"), controller + "-bus");
  filler_.make(bus.at, path,
               {{"busId", std::to_string(bus.bus)}, {"deviceId", std::to_string(bus.address)}});
  return path;
}

void ChassisFormReader::makeRail(std::string const& controller, ChassisRail const& rail) {
  if (!rail.page) {
    return note(rail.at,
                "the rail " + inQuotes(rail.name) + " has no page and is not put into the tree");
  }
  std::string const path =
      memberPath(attributePath(controller, "voltageRail"), std::to_string(*rail.page));
  // Rails of the same name in two sequencers are two rails.
  Zol::Ptr<Zol::Entity> const named = new Environment::Power::VoltageRailConfig(rail.name);
  filler_.make(rail.at, path, {{"voltageRailEnvConfig", named}});
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

}  // namespace

Board readChassisForm(JsonNode const& root, std::string const& file) {
  return ChassisFormReader(file).read(root);
}

}  // namespace RailSeq
