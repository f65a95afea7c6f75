// What carries the bytes of a connection.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "host/zol/export.h"

// The attribute log, which keeps a replica of a tree up to date: a `Connection` at each end, over a
// `Transport`.
namespace Zol::NboAttrLog {

// A byte stream in both directions that never blocks.
class ZOL_EXPORT Transport {
 public:
  // What became of a read or write: bytes moved; none now; or the end, with a reason unless the
  // peer ended in good order.
  struct Result {
    // See above.
    enum class State : std::uint8_t { moved, wouldBlock, ended };
    // What became of it.
    State state = State::wouldBlock;
    // How many bytes have moved; 0 unless some have.
    std::size_t bytes = 0;
    // Why the stream has ended; empty for an end in good order.
    std::string reason;
  };

  virtual ~Transport();
  // Takes in what is there, at most as much as fits `to`.
  virtual Result read(std::span<std::uint8_t> to) = 0;
  // Sends as much of `from` as can go at once.
  virtual Result write(std::span<std::uint8_t const> from) = 0;
  // The descriptor to poll, -1 for a transport inside the process.
  [[nodiscard]] virtual int fd() const = 0;
  // Ends both directions; again: nothing.
  virtual void close() = 0;
};

// Over a non-blocking stream socket or pipe, which the transport closes at its end. A peer that has
// gone is an end, never a signal.
[[nodiscard]] ZOL_EXPORT std::unique_ptr<Transport> fdTransport(int fd);

// Two ends inside one process; each direction holds at most `capacity` bytes.
[[nodiscard]] ZOL_EXPORT std::pair<std::unique_ptr<Transport>, std::unique_ptr<Transport>>
memoryTransports(std::size_t capacity);

}  // namespace Zol::NboAttrLog
