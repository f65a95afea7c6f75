// The two forms of a board file, each read from the tree of its document.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "railseq/board/board.h"
#include "railseq/json/node_reader.h"

namespace RailSeq {

// The form in which attributes stand by name: {"config": {"realUcd9012Controller": {"main":
// {...}}}}.
[[nodiscard]] Board readAttributeForm(JsonNode const& root, std::string const& file);

// The form of public power-sequencer descriptions: {"chassis": [{"power_sequencers": [...]}]}. With
// more than one chassis a controller's name is its id behind "chassis<number>-".
[[nodiscard]] Board readChassisForm(JsonNode const& root, std::string const& file);

// A chassis as it is to be read: itself, or its template with its variables put in.
struct ChassisSource {
  JsonNode node;
  // Where a template was used, for messages; empty for a chassis written out.
  std::string context;
};

// All chassis of the document. Variables that no text of the template asks for are told in `notes`.
[[nodiscard]] std::vector<ChassisSource> expandChassis(JsonNode const& root,
                                                       NodeReader const& reader,
                                                       std::vector<std::string>& notes);

// A voltage rail of a power sequencer. Without a page it is only watched by its GPIO line.
struct ChassisRail {
  Position at;
  std::string name;
  std::optional<std::uint8_t> page;
};

struct ChassisBus {
  Position at;
  std::uint8_t bus = 0;
  // 7 bits.
  std::uint8_t address = 0;
};

// The `i2c_interface` and the `rails` of one power sequencer, checked.
[[nodiscard]] ChassisBus readBus(NodeReader const& reader, JsonNode const& node);
[[nodiscard]] std::vector<ChassisRail> readRails(NodeReader const& reader, JsonNode const& rails);

[[nodiscard]] std::string noteText(std::string const& file, Position at, std::string const& text);

}  // namespace RailSeq
