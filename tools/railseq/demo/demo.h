// The demonstration: a source process and a mirror process, joined by a socket.
#pragma once

#include <chrono>
#include <string>

namespace RailSeq {

// Loads the trees of the board, forks a mirror of them, makes changes, and shows what the mirror
// heard and holds. Waits `pause` behind each change. Gives the exit code: 0 when the mirror heard
// every change and its digests equal the source's, 1 otherwise, also when the mirror process dies.
// Throws `InputError` for the board. In the mirror process, too, it returns the exit code.
[[nodiscard]] int runDemo(std::string const& boardFile, std::chrono::milliseconds pause);

}  // namespace RailSeq
