// The transport over a file descriptor.
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>

#include "host/zol/attrlog/transport.h"

namespace Zol::NboAttrLog {

namespace {

using Result = Transport::Result;

Result failure(char const* what) {
  int const error = errno;
  if (error == EAGAIN || error == EWOULDBLOCK || error == EINTR) return {};
  std::string reason;
  if (error != EPIPE && error != ECONNRESET)
    reason = std::string(what) + ": " + std::strerror(error);
  return {Result::State::ended, 0, std::move(reason)};
}

// Writes to what is no socket, where a peer that has gone would send SIGPIPE to the process.
ssize_t writeWithoutSignal(int fd, void const* bytes, std::size_t count) {
  sigset_t pipeSignal;
  sigset_t former;
  sigset_t waiting;
  sigemptyset(&pipeSignal);
  sigaddset(&pipeSignal, SIGPIPE);
  sigpending(&waiting);
  pthread_sigmask(SIG_BLOCK, &pipeSignal, &former);
  ssize_t const written = ::write(fd, bytes, count);
  int const error = errno;
  if (written < 0 && error == EPIPE && sigismember(&waiting, SIGPIPE) == 0) {
    timespec const noTime{0, 0};
    sigtimedwait(&pipeSignal, nullptr, &noTime);
  }
  pthread_sigmask(SIG_SETMASK, &former, nullptr);
  errno = error;
  return written;
}

class FdTransport final : public Transport {
 public:
  explicit FdTransport(int fd) : fd_(fd) {
    int const flags = ::fcntl(fd_, F_GETFL);
    if (flags >= 0) ::fcntl(fd_, F_SETFL, flags | O_NONBLOCK);
  }
  FdTransport(FdTransport const&) = delete;
  FdTransport& operator=(FdTransport const&) = delete;
  ~FdTransport() override { close(); }

  Result read(std::span<std::uint8_t> to) override {
    if (fd_ < 0) return {Result::State::ended, 0, {}};
    ssize_t const got = ::read(fd_, to.data(), to.size());
    if (got < 0) return failure("read");
    if (got == 0) return {Result::State::ended, 0, {}};
    return {Result::State::moved, static_cast<std::size_t>(got), {}};
  }

  Result write(std::span<std::uint8_t const> from) override {
    if (fd_ < 0) return {Result::State::ended, 0, {}};
    ssize_t written = -1;
    if (isSocket_) {
      written = ::send(fd_, from.data(), from.size(), MSG_NOSIGNAL);
      if (written < 0 && errno == ENOTSOCK) isSocket_ = false;
    }
    if (!isSocket_) written = writeWithoutSignal(fd_, from.data(), from.size());
    if (written < 0) return failure("write");
    return {Result::State::moved, static_cast<std::size_t>(written), {}};
  }

  [[nodiscard]] int fd() const override { return fd_; }

  void close() override {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }

 private:
  int fd_;
  bool isSocket_ = true;
};

}  // namespace

Transport::~Transport() = default;

std::unique_ptr<Transport> fdTransport(int fd) { return std::make_unique<FdTransport>(fd); }

}  // namespace Zol::NboAttrLog
