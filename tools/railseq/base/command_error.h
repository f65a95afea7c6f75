// The exit codes of the tool, and the error that ends a command with one of them.
#pragma once

#include <stdexcept>
#include <string>

namespace RailSeq {

enum class ExitCode {
  good = 0,
  // A path, a value, or a thing asked for that cannot be.
  refused = 1,
  // A bad file, address or command line.
  badInput = 2,
  // The process at an address cannot be reached, or has gone.
  peerLost = 3,
  timedOut = 4,
};

class CommandError : public std::runtime_error {
 public:
  CommandError(ExitCode code, std::string const& message)
      : std::runtime_error(message), code_(code) {}

  [[nodiscard]] ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

}  // namespace RailSeq
