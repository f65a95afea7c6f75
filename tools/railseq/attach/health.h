// Asks a serving process how its connections are.
#pragma once

#include <iosfwd>

#include "railseq/base/command_line.h"

namespace RailSeq {

// Prints what the process at the address says of itself and each of its connections. Throws
// `CommandError` for one that cannot be reached, or that gives no report.
[[nodiscard]] int runHealth(CommandLine const& line, std::ostream& out);

}  // namespace RailSeq
