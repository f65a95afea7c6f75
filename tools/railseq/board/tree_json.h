// Trees as JSON, in the form in which attributes stand by name: what is written here can be read as
// a board.
#pragma once

#include "hwrailseq.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "railseq/board/board.h"

namespace RailSeq {

using Json = nlohmann::ordered_json;

// A value; a record as an object of its attributes; an entity of a tree by its path, one of the
// models beside as {"name": ...}.
[[nodiscard]] Json valueJson(Zol::Ptr<Zol::GenericIf> const& value);
// What stands at the path: an entity as an object of all its attributes, of an attribute with keys
// all members. Throws as `Zol::ByName::at`.
[[nodiscard]] Json jsonAt(Zol::ByName const& tree, std::string_view path);
// {"config": {...}, "status": {...}}
[[nodiscard]] Json boardJson(Board const& board);

// The document as indented text with a line break at its end. Bytes that are no UTF-8 become
// replacement characters, and a line on standard error says of how many texts.
[[nodiscard]] std::string jsonText(Json const& json);
// The same as one line.
[[nodiscard]] std::string jsonLine(Json const& json);

}  // namespace RailSeq
