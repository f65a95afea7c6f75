// The commands that stay attached to a process until something ends them.
#pragma once

#include <chrono>
#include <iosfwd>

#include "railseq/base/command_line.h"

namespace RailSeq {

struct WatchOptions {
  // Its timeout counts for `wait` alone, and only where one was given.
  CommandLine line;
  // Tell what there is, too.
  bool tellsInitial = false;
  bool reconnects = true;
  // So long without a sign of life are told of.
  std::chrono::milliseconds staleAfter{10000};
};

// Each gives the exit code, but for `wait` 0 also after SIGINT, SIGTERM, and when nobody reads the
// output any more. They throw `InputError` for the address, what `Zol::ByName` throws for a path,
// and `CommandError` for a lost peer when they do not reconnect, and for an output that cannot be
// written. The first two write to the standard output by themselves: they wait for its reader, and
// take in no changes meanwhile, but end by a signal.

// A line for each change below the paths; without a path, of all.
[[nodiscard]] int runWatch(WatchOptions const& options);
// The tree, and again behind changes.
[[nodiscard]] int runTreeFollow(WatchOptions const& options);
// Until the attribute of the one PATH=VALUE has the value, which is printed as JSON where that is
// asked for. What it can never have, and an attribute that its holder does not have, is refused at
// once.
[[nodiscard]] int runWait(WatchOptions const& options, std::ostream& out);

}  // namespace RailSeq
