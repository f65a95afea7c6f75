// Shows the schema as the type registry has it.
#pragma once

#include "hwrailseq.h"

#include <string>

#include "railseq/board/tree_json.h"

namespace RailSeq {

// The registered types of the model in the order of their registration: a table with a line for
// each, or an array.
[[nodiscard]] std::string typesText();
[[nodiscard]] Json typesJson();

// One type with all its attributes.
[[nodiscard]] std::string typeText(Zol::ZolType const& type);
[[nodiscard]] Json typeJson(Zol::ZolType const& type);

// The type of a bare or full name. Throws `RangeException` with the nearest names.
[[nodiscard]] Zol::ZolType const& findType(std::string const& name);

}  // namespace RailSeq
