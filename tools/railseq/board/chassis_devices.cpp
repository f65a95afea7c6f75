// Reads what the public form says of one power sequencer's bus and rails.
#include <algorithm>
#include <charconv>
#include <map>
#include <set>

#include "railseq/board/board_forms.h"

namespace RailSeq {

namespace {

constexpr std::uint32_t kLargestNumber = 0xffffffffU;
constexpr std::uint32_t kLargestPage = 255;
constexpr std::uint32_t kLargestBus = 255;
constexpr std::uint8_t kLargestAddress = 0x7f;

// The address of a text such as "0x11".
[[nodiscard]] std::optional<std::uint8_t> parseAddress(JsonNode const& node) {
  constexpr std::string_view kPrefix = "0x";
  if (node.kind != JsonNode::Kind::text || !node.text.starts_with(kPrefix)) return std::nullopt;
  char const* const begin = node.text.data() + kPrefix.size();
  char const* const end = node.text.data() + node.text.size();
  std::uint8_t value = 0;
  auto const [parsed, error] = std::from_chars(begin, end, value, 16);
  if (error != std::errc{} || parsed != end || value > kLargestAddress) return std::nullopt;
  return value;
}

[[nodiscard]] ChassisRail readRail(NodeReader const& reader, JsonNode const& node) {
  reader.allowKeys(node, "a rail",
                   {"name", "page", "is_power_supply_rail", "check_status_vout",
                    "compare_voltage_to_limit", "presence", "gpio"});
  ChassisRail rail{.at = node.at, .name = {}, .page = {}};
  rail.name = reader.name(reader.member(node, "name", "a rail"), "the name of a rail");
  if (JsonNode const* const page = node.find("page")) {
    rail.page = static_cast<std::uint8_t>(reader.number(*page, "page", kLargestPage));
  }
  for (std::string_view const flag :
       {"is_power_supply_rail", "check_status_vout", "compare_voltage_to_limit"}) {
    if (JsonNode const* const given = node.find(flag)) {
      static_cast<void>(reader.boolean(*given, flag));
    }
  }
  if (JsonNode const* const presence = node.find("presence")) {
    static_cast<void>(reader.text(*presence, "presence"));
  }
  if (JsonNode const* const gpio = node.find("gpio")) {
    reader.allowKeys(*gpio, "gpio", {"line", "active_low"});
    static_cast<void>(reader.number(reader.member(*gpio, "line", "gpio"), "line", kLargestNumber));
    if (JsonNode const* const low = gpio->find("active_low")) {
      static_cast<void>(reader.boolean(*low, "active_low"));
    }
  }
  return rail;
}

}  // namespace

ChassisBus readBus(NodeReader const& reader, JsonNode const& node) {
  reader.allowKeys(node, "i2c_interface", {"bus", "address"});
  ChassisBus bus;
  bus.at = node.at;
  bus.bus = static_cast<std::uint8_t>(
      reader.number(reader.member(node, "bus", "i2c_interface"), "bus", kLargestBus));
  JsonNode const& address = reader.member(node, "address", "i2c_interface");
  std::optional<std::uint8_t> const value = parseAddress(address);
  if (!value) {
    reader.refuse(address.at, describe(address), "a text from \"0x00\" to \"0x7f\" for address");
  }
  bus.address = *value;
  return bus;
}

std::vector<ChassisRail> readRails(NodeReader const& reader, JsonNode const& rails) {
  reader.requireArray(rails, "rails");
  std::vector<ChassisRail> result;
  std::map<std::uint8_t, std::string> pages;
  std::set<std::string> names;
  for (JsonNode const& node : rails.items) {
    ChassisRail rail = readRail(reader, node);
    if (!names.insert(rail.name).second) {
      reader.refuse(node.find("name")->at, "the rail name " + inQuotes(rail.name) + " again",
                    "each rail name once in a power sequencer");
    }
    if (rail.page) {
      auto const [first, isNew] = pages.emplace(*rail.page, rail.name);
      if (!isNew) {
        reader.refuse(node.find("page")->at,
                      "page " + std::to_string(*rail.page) + " again, the page of rail " +
                          inQuotes(first->second),
                      "each page once in a power sequencer");
      }
    }
    result.push_back(std::move(rail));
  }
  return result;
}

}  // namespace RailSeq
