// The command `replay`: states of a recorded tree, and what changed.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace RailSeq {

struct ReplayLine {
  // The recording.
  std::string file{};
  // Times as they were given; empty: not given.
  std::string at{};
  std::string from{};
  std::string to{};
  bool changes = false;
  bool json = false;
  // All roots when there are none.
  std::vector<std::string> paths{};
};

// Gives the exit code; what is to be known besides goes to `notes`. Throws `InputError` for a file
// or a time that cannot be, `RangeException` for a path.
[[nodiscard]] int runReplay(ReplayLine const& line, std::ostream& out, std::ostream& notes);

}  // namespace RailSeq
