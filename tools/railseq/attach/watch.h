// The commands that stay attached to a process until something ends them.
#pragma once

#include "railseq/base/command_line.h"

namespace RailSeq {

struct WatchOptions {
  // Its timeout counts for `wait` alone; below 0 there is none.
  CommandLine line;
  // Tell what there is, too.
  bool tellsInitial = false;
  bool reconnects = true;
};

// Each gives the exit code, but for `wait` 0 also after SIGINT, SIGTERM, and when nobody reads the
// output any more. They throw `InputError` for the address, what `Zol::ByName` throws for a path,
// and `CommandError` for a lost peer when they do not reconnect.

// A line for each change below the paths; without a path, of all.
[[nodiscard]] int runWatch(WatchOptions const& options);
// The tree, and again behind changes.
[[nodiscard]] int runTreeFollow(WatchOptions const& options);
// Until the attribute of the one PATH=VALUE has the value.
[[nodiscard]] int runWait(WatchOptions const& options);

}  // namespace RailSeq
