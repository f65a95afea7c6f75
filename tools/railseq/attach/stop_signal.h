// SIGINT and SIGTERM as something to poll.
#pragma once

#include <csignal>

#include "railseq/attach/address.h"

namespace RailSeq {

// As long as it is there the two signals end nothing by themselves; from its making on neither does
// writing to a pipe that nobody reads.
class StopSignal {
 public:
  StopSignal();
  StopSignal(StopSignal const&) = delete;
  StopSignal& operator=(StopSignal const&) = delete;
  ~StopSignal();

  // Readable once a signal has come.
  [[nodiscard]] int fd() const { return fd_.get(); }

 private:
  sigset_t former_{};
  Fd fd_;
};

}  // namespace RailSeq
