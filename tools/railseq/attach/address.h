// Addresses of processes that host trees, and the sockets at them: unix:PATH or tcp:HOST:PORT.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace RailSeq {

using Clock = std::chrono::steady_clock;

// A descriptor that is closed with its holder.
class Fd {
 public:
  Fd() = default;
  explicit Fd(int fd) : fd_(fd) {}
  Fd(Fd&& other) noexcept : fd_(other.release()) {}
  Fd& operator=(Fd&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  Fd(Fd const&) = delete;
  Fd& operator=(Fd const&) = delete;
  ~Fd();

  [[nodiscard]] int get() const { return fd_; }
  [[nodiscard]] int release() { return std::exchange(fd_, -1); }
  explicit operator bool() const { return fd_ >= 0; }

 private:
  int fd_ = -1;
};

struct Address {
  enum class Kind { unixSocket, tcp };

  // As it is written on a command line.
  [[nodiscard]] std::string text() const;

  Kind kind = Kind::unixSocket;
  // Of a Unix socket.
  std::string path;
  // Of TCP; an IPv6 host without its brackets. Port 0 is any free one, to listen at.
  std::string host;
  std::uint16_t port = 0;
};

// Whether a word of a command line is meant as an address.
[[nodiscard]] bool isAddress(std::string_view word);
// Throws `InputError` with what is wrong and what was expected.
[[nodiscard]] Address parseAddress(std::string const& text);

// A connected, non-blocking socket. Throws `CommandError`: `peerLost` when nobody is there,
// `timedOut` at the deadline. Empty when `stopFd`, unless -1, became readable.
[[nodiscard]] Fd connectTo(Address const& address, Clock::time_point deadline, int stopFd = -1);

// A socket that listens at an address. The file of a Unix socket goes with it.
class Listener {
 public:
  struct Peer {
    Fd socket;
    // "process 4711" or "tcp:127.0.0.1:40234"
    std::string name;
  };

  // Takes the place of a Unix socket that nobody listens at. Throws `CommandError`.
  explicit Listener(Address address);
  Listener(Listener const&) = delete;
  Listener& operator=(Listener const&) = delete;
  ~Listener();

  // With the port that was taken.
  [[nodiscard]] Address const& address() const { return address_; }
  [[nodiscard]] int fd() const { return socket_.get(); }
  // The next peer that has connected; none when there is none now. Throws `CommandError` when the
  // system has no descriptor for it.
  std::optional<Peer> accept();

 private:
  void listenUnix();
  void listenTcp();

  Address address_;
  Fd socket_;
  // The file that was made, so that no other is removed.
  dev_t device_ = 0;
  ino_t inode_ = 0;
};

}  // namespace RailSeq
