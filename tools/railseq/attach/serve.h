// Hosts the trees of a board for any number of peers.
#pragma once

#include <string>

namespace RailSeq {

struct ServeOptions {
  std::string board;
  // Where to listen.
  std::string address;
  // Whether peers may write.
  bool isWritable = false;
};

// Runs until SIGINT or SIGTERM and gives the exit code. Throws `InputError` for the board or the
// address, `CommandError` when it cannot listen there.
[[nodiscard]] int runServe(ServeOptions const& options);

}  // namespace RailSeq
