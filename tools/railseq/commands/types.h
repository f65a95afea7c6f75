// Shows the schema as the type registry has it.
#pragma once

#include "hwrailseq.h"

#include <string>
#include <vector>

#include "railseq/board/tree_json.h"

namespace RailSeq {

using TypeList = std::vector<Zol::ZolType const*>;

// The registered types of the model in the order of their registration.
[[nodiscard]] TypeList modelTypes();
// The types of all that stands in some trees, in the same order.
[[nodiscard]] TypeList typesIn(std::vector<Zol::Ptr<Zol::Entity>> const& roots);

// A table with a line for each, or an array.
[[nodiscard]] std::string typesText(TypeList const& types);
[[nodiscard]] Json typesJson(TypeList const& types);

// One type with all its attributes.
[[nodiscard]] std::string typeText(Zol::ZolType const& type);
[[nodiscard]] Json typeJson(Zol::ZolType const& type);

// The type of a bare or full name. Throws `RangeException` with the nearest names.
[[nodiscard]] Zol::ZolType const& findType(std::string const& name);

}  // namespace RailSeq
