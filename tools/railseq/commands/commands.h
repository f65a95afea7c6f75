// The commands that answer once, most of them on the trees of a board or of a process at an
// address.
#pragma once

#include <iosfwd>

#include "railseq/base/command_line.h"

namespace RailSeq {

// Each gives the exit code. They throw `InputError` for the board or the address, `CommandError`
// for the process there, and what `Zol::ByName` throws for a path or a value, with nothing printed.

// The values at the paths, one a line.
[[nodiscard]] int runGet(CommandLine const& line, std::ostream& out);
// Applies each PATH=VALUE in order and tells what it has changed. A board file stays as it is; a
// process has taken all once this ends with 0.
[[nodiscard]] int runSet(CommandLine const& line, std::ostream& out);
// The same with entities: each PATH, with the NAME=VALUE behind it, is made.
[[nodiscard]] int runMake(CommandLine const& line, std::ostream& out);
// The same: takes out what stands at each path.
[[nodiscard]] int runErase(CommandLine const& line, std::ostream& out);
// The numbers of members of the attributes at the paths, one a line.
[[nodiscard]] int runCount(CommandLine const& line, std::ostream& out);
// What stands at the paths and below; without a path, all.
[[nodiscard]] int runTree(CommandLine const& line, std::ostream& out);
// The registered types, or those of the names; with trees those of what stands at the paths or,
// without a path, of all.
[[nodiscard]] int runTypes(CommandLine const& line, std::ostream& out);
// The completions of the path, one a line.
[[nodiscard]] int runComplete(CommandLine const& line, std::ostream& out);
// 1 when there is something to warn of.
[[nodiscard]] int runLint(CommandLine const& line, std::ostream& out);

}  // namespace RailSeq
