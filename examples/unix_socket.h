// What owner.cpp and replica.cpp have in common: Unix sockets, and signals as something to poll.
#pragma once

#include <hwrailseq.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <stdexcept>
#include <string>
#include <system_error>

inline int checked(int result, std::string const& what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

// Readable once SIGINT or SIGTERM has come; neither ends the process by itself any more.
inline int stopSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  checked(sigprocmask(SIG_BLOCK, &signals, nullptr), "sigprocmask");
  return checked(signalfd(-1, &signals, SFD_CLOEXEC), "signalfd");
}

class UnixSocket {
 public:
  // Throws where the path does not fit.
  explicit UnixSocket(std::string path) : path_(std::move(path)) {
    if (path_.size() >= sizeof name_.sun_path) throw std::invalid_argument(path_ + ": too long");
    name_.sun_family = AF_UNIX;
    std::memcpy(name_.sun_path, path_.data(), path_.size());
  }

  // A descriptor to accept from. A socket that nobody listens at any more is replaced; nothing else
  // at the path is.
  [[nodiscard]] int listen() const {
    struct stat present {};
    if (lstat(path_.c_str(), &present) == 0 && S_ISSOCK(present.st_mode)) {
      int const probe = connect();
      if (probe < 0 && errno == ECONNREFUSED) unlink(path_.c_str());
      if (probe >= 0) close(probe);
    }
    int const fd = make();
    checked(bind(fd, address(), sizeof name_), path_);
    checked(::listen(fd, SOMAXCONN), path_);
    return fd;
  }
  // A descriptor, or -1; `errno` says why.
  [[nodiscard]] int connect() const {
    int const fd = make();
    if (::connect(fd, address(), sizeof name_) == 0) return fd;
    int const error = errno;
    close(fd);
    errno = error;
    return -1;
  }
  [[nodiscard]] std::string const& path() const { return path_; }

 private:
  [[nodiscard]] static int make() {
    return checked(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0), "socket");
  }
  [[nodiscard]] sockaddr const* address() const {
    return reinterpret_cast<sockaddr const*>(&name_);
  }

  std::string path_;
  sockaddr_un name_{};
};

// What to poll of a connection.
inline pollfd polled(Zol::NboAttrLog::Connection const& connection) {
  int const events =
      (connection.wantsRead() ? POLLIN : 0) | (connection.wantsWrite() ? POLLOUT : 0);
  return {connection.fd(), static_cast<short>(events), 0};
}
