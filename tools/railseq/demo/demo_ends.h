// The two ends of the demonstration.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

#include "railseq/board/board.h"

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
// The first of the roots is the configuration.
[[nodiscard]] int runMirror(std::vector<Zol::Name> const& roots, int logFd, int reportFd);

// The digests of the roots as the demonstration prints them.
[[nodiscard]] std::string digestText(std::vector<Zol::Ptr<Zol::Entity>> const& roots);

}  // namespace RailSeq
