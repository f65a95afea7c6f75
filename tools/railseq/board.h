// A board description as plain data: what a board file says, checked, before anything is made of
// it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "railseq/input_error.h"

namespace RailSeq {

// A bool, a number, or a text; of an enumeration the enumerator's name.
using AttributeValue = std::variant<bool, std::uint32_t, std::string>;

struct AttributeSetting {
  std::string attribute;
  AttributeValue value;
};

// A voltage rail. Without a page it is only watched by its GPIO line.
struct RailDescription {
  std::string name;
  std::optional<std::uint8_t> page;
};

struct BusDescription {
  std::uint32_t bus = 0;
  // 7 bits.
  std::uint8_t address = 0;
};

// The collection of the configuration root that a controller belongs to.
enum class Chip { ucd9012, ucd9032, psoc };

struct ControllerDescription {
  Chip chip = Chip::ucd9012;
  std::string name;
  std::string customerName;
  std::vector<AttributeSetting> settings;
  std::vector<RailDescription> rails;
  std::optional<BusDescription> bus;
};

struct BoardDescription {
  std::string configName = "config";
  std::vector<ControllerDescription> controllers;
  // One line each, with its place in the file: what was read but is not put into the tree.
  std::vector<std::string> notes;
};

// Reads a board file of either form, told apart by its keys. Throws `InputError`; a description is
// given whole or not at all.
[[nodiscard]] BoardDescription readBoard(std::string const& file);
// The same for a text that is already in memory; `file` is only used in messages.
[[nodiscard]] BoardDescription parseBoard(std::string const& file, std::string_view text);

}  // namespace RailSeq
