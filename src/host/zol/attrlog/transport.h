// What carries the bytes of a connection.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "host/zol/export.h"

namespace Zol::NboAttrLog {

// A byte stream in both directions that never blocks.
class ZOL_EXPORT Transport {
 public:
  // What became of a read or write: bytes moved; none now; or the end, with a reason unless the
  // peer ended in good order.
  struct Result {
    enum class State : std::uint8_t { moved, wouldBlock, ended };
    State state = State::wouldBlock;
    std::size_t bytes = 0;
    std::string reason;
  };

  virtual ~Transport();
  virtual Result read(std::span<std::uint8_t> to) = 0;
  virtual Result write(std::span<std::uint8_t const> from) = 0;
  // The descriptor to poll, -1 for a transport inside the process.
  [[nodiscard]] virtual int fd() const = 0;
  virtual void close() = 0;
};

// Over a non-blocking stream socket or pipe, which the transport closes at its end. A peer that has
// gone is an end, never a signal.
[[nodiscard]] std::unique_ptr<Transport> fdTransport(int fd);

// Two ends inside one process; each direction holds at most `capacity` bytes.
[[nodiscard]] std::pair<std::unique_ptr<Transport>, std::unique_ptr<Transport>> memoryTransports(
    std::size_t capacity);

}  // namespace Zol::NboAttrLog
