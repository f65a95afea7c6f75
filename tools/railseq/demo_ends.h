// The two ends of the demonstration.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>

#include "railseq/board.h"

namespace RailSeq {

// How the mirror process is reached.
struct MirrorProcess {
  pid_t pid = 0;
  int logFd = -1;
  int reportFd = -1;
};

// Both take over the descriptors, run until the log has ended, and give the exit code of their
// process.
[[nodiscard]] int runSource(Board const& board, MirrorProcess const& mirror,
                            std::chrono::milliseconds pause);
[[nodiscard]] int runMirror(std::string const& rootName, int logFd, int reportFd);

// A digest as the demonstration prints it.
[[nodiscard]] std::string digestText(std::uint64_t digest);

}  // namespace RailSeq
