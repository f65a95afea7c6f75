// SIGINT and SIGTERM as something to poll.
#pragma once

#include "railseq/attach/address.h"

namespace RailSeq {

// From its making on the two signals end nothing by themselves; neither does writing to a pipe that
// nobody reads.
class StopSignal {
 public:
  StopSignal();

  // Readable once a signal has come.
  [[nodiscard]] int fd() const { return fd_.get(); }

 private:
  Fd fd_;
};

}  // namespace RailSeq
