// Shows the schema as the type registry has it.
#pragma once

#include <iosfwd>
#include <string>

namespace RailSeq {

// One line per registered type of the model. Gives the exit code.
[[nodiscard]] int listTypes(std::ostream& out);
// One line per attribute of the type, whose name may be bare or full. An unknown name is told on
// `error`, with the nearest ones, and gives exit code 1.
[[nodiscard]] int showType(std::string const& name, std::ostream& out, std::ostream& error);

}  // namespace RailSeq
