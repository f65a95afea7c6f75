// The scalars and texts of a controller's configuration as a table, for whoever sets or shows them
// by name.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "railseq/board.h"

namespace Hardware::Ucd9012 {
class ControllerConfig;
}

namespace RailSeq {

enum class ValueKind { boolean, number, enumeration, text };

struct ControllerAttribute {
  std::string_view name;
  ValueKind kind;
  // The names that the value can have; empty for other kinds than an enumeration.
  std::vector<std::string> (*enumerators)();
  AttributeValue (*read)(Hardware::Ucd9012::ControllerConfig const& controller);
  // The value must be of the attribute's kind, an enumerator one of the names above.
  void (*write)(Hardware::Ucd9012::ControllerConfig& controller, AttributeValue const& value);
};

// In the order of the attribute ids.
[[nodiscard]] std::span<ControllerAttribute const> controllerAttributes();

// The attribute of that name, or null.
[[nodiscard]] ControllerAttribute const* findControllerAttribute(std::string_view name);

// The attributes that hold more than a scalar or text.
[[nodiscard]] std::span<std::string_view const> controllerStructures();

// The value as a board file writes it.
[[nodiscard]] std::string valueText(ControllerAttribute const& attribute,
                                    AttributeValue const& value);

}  // namespace RailSeq
