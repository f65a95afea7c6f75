// Parses addresses, connects to them and listens at them.
#include "railseq/attach/address.h"

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <memory>
#include <system_error>

#include "railseq/base/command_error.h"
#include "railseq/base/input_error.h"

namespace RailSeq {

namespace {

constexpr std::string_view kUnix = "unix:";
constexpr std::string_view kTcp = "tcp:";
constexpr std::size_t kLongestPath = sizeof(sockaddr_un::sun_path) - 1;
constexpr int kBacklog = 64;
// A full queue of a listener is asked again so often.
constexpr std::chrono::milliseconds kQueuePause{20};

[[noreturn]] void refuse(std::string const& text, std::string const& expected) {
  throw InputError("address", "found " + inQuotes(text) + ", expected " + expected);
}

[[nodiscard]] std::string systemError(int error) { return std::generic_category().message(error); }

[[noreturn]] void cannotListen(Address const& address, std::string const& why) {
  throw CommandError(ExitCode::refused, address.text() + ": cannot listen: " + why);
}

[[nodiscard]] std::uint16_t parsePort(std::string const& text, std::string_view digits) {
  std::uint16_t port = 0;
  auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
  if (digits.empty() || error != std::errc() || end != digits.data() + digits.size()) {
    refuse(text, "a port from 0 to 65535 at its end");
  }
  return port;
}

[[nodiscard]] sockaddr_un unixName(std::string const& path) {
  sockaddr_un name{};
  name.sun_family = AF_UNIX;
  std::memcpy(name.sun_path, path.data(), std::min(path.size(), kLongestPath));
  return name;
}

using AddressList = std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)>;

// The socket addresses of a TCP address; `why` says why there is none.
[[nodiscard]] AddressList resolve(Address const& address, int flags, std::string& why) {
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = flags | AI_NUMERICSERV;
  addrinfo* found = nullptr;
  std::string const port = std::to_string(address.port);
  int const error = ::getaddrinfo(address.host.c_str(), port.c_str(), &hints, &found);
  if (error != 0) why = error == EAI_SYSTEM ? systemError(errno) : ::gai_strerror(error);
  return {error == 0 ? found : nullptr, &::freeaddrinfo};
}

[[nodiscard]] Fd makeSocket(int family) {
  return Fd(::socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

template <class T>
void optionIs(int fd, int level, int option, T value) {
  ::setsockopt(fd, level, option, &value, sizeof value);
}

// Small messages leave at once, and a host that has gone without a word is found out.
void tuneTcp(int fd) {
  optionIs(fd, IPPROTO_TCP, TCP_NODELAY, 1);
  optionIs(fd, SOL_SOCKET, SO_KEEPALIVE, 1);
  optionIs(fd, IPPROTO_TCP, TCP_KEEPIDLE, 10);
  optionIs(fd, IPPROTO_TCP, TCP_KEEPINTVL, 5);
  optionIs(fd, IPPROTO_TCP, TCP_KEEPCNT, 4);
}

enum class Waited { ready, stopped, late };

// Until the socket is writable. Without a socket it only pauses.
[[nodiscard]] Waited waitWritable(int fd, Clock::time_point deadline, int stopFd) {
  for (;;) {
    auto const left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    std::array<pollfd, 2> waited{pollfd{fd, POLLOUT, 0}, pollfd{stopFd, POLLIN, 0}};
    auto const wait = static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, 1000));
    int const count = ::poll(waited.data(), waited.size(), wait);
    if (count > 0) return waited[1].revents != 0 ? Waited::stopped : Waited::ready;
    if (Clock::now() >= deadline) return Waited::late;
  }
}

// What became of an attempt: a socket, or a system error; neither when it was stopped.
struct Attempt {
  Fd socket;
  int error = 0;
};

[[nodiscard]] Attempt connectOne(sockaddr const* name, socklen_t size, int family,
                                 Clock::time_point deadline, int stopFd) {
  for (;;) {
    Fd socket = makeSocket(family);
    if (!socket) return {Fd(), errno};
    if (::connect(socket.get(), name, size) == 0) return {std::move(socket), 0};
    if (errno == EAGAIN) {
      Clock::time_point const again = std::min(deadline, Clock::now() + kQueuePause);
      if (waitWritable(-1, again, stopFd) == Waited::stopped) return {};
      if (Clock::now() >= deadline) return {Fd(), ETIMEDOUT};
      continue;
    }
    if (errno != EINPROGRESS && errno != EINTR) return {Fd(), errno};
    Waited const waited = waitWritable(socket.get(), deadline, stopFd);
    if (waited == Waited::stopped) return {};
    if (waited == Waited::late) return {Fd(), ETIMEDOUT};
    int error = 0;
    socklen_t length = sizeof error;
    ::getsockopt(socket.get(), SOL_SOCKET, SO_ERROR, &error, &length);
    if (error != 0) return {Fd(), error};
    return {std::move(socket), 0};
  }
}

// "HOST:PORT" of a socket address, as numbers.
[[nodiscard]] Address numericAddress(sockaddr_storage const& name, socklen_t size) {
  std::array<char, NI_MAXHOST> host{};
  std::array<char, NI_MAXSERV> port{};
  ::getnameinfo(reinterpret_cast<sockaddr const*>(&name), size, host.data(), host.size(),
                port.data(), port.size(), NI_NUMERICHOST | NI_NUMERICSERV);
  Address address{.kind = Address::Kind::tcp, .path = {}, .host = host.data(), .port = 0};
  std::from_chars(port.data(), port.data() + std::strlen(port.data()), address.port);
  return address;
}

}  // namespace

Fd::~Fd() {
  if (fd_ >= 0) ::close(fd_);
}

std::string Address::text() const {
  if (kind == Kind::unixSocket) return std::string(kUnix) + path;
  bool const isV6 = host.find(':') != std::string::npos;
  return std::string(kTcp) + (isV6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

bool isAddress(std::string_view word) { return word.starts_with(kUnix) || word.starts_with(kTcp); }

Address parseAddress(std::string const& text) {
  Address address;
  if (text.starts_with(kUnix)) {
    address.path = text.substr(kUnix.size());
    if (address.path.empty() || address.path.size() > kLongestPath) {
      refuse(text, "a path of 1 to " + std::to_string(kLongestPath) + " bytes behind unix:");
    }
    return address;
  }
  if (!text.starts_with(kTcp)) refuse(text, "unix:PATH or tcp:HOST:PORT");
  address.kind = Address::Kind::tcp;
  std::string_view rest = std::string_view(text).substr(kTcp.size());
  std::size_t const colon = rest.rfind(':');
  if (colon == std::string_view::npos) refuse(text, "tcp:HOST:PORT");
  std::string_view host = rest.substr(0, colon);
  if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
    host = host.substr(1, host.size() - 2);
  } else if (host.find_first_of(":[]") != std::string_view::npos) {
    refuse(text, "an IPv6 host in brackets, such as tcp:[::1]:7000");
  }
  if (host.empty()) refuse(text, "a host between tcp: and the port");
  address.host = host;
  address.port = parsePort(text, rest.substr(colon + 1));
  return address;
}

Fd connectTo(Address const& address, Clock::time_point deadline, int stopFd) {
  Attempt attempt;
  std::string why;
  if (address.kind == Address::Kind::unixSocket) {
    sockaddr_un const name = unixName(address.path);
    attempt = connectOne(reinterpret_cast<sockaddr const*>(&name), sizeof name, AF_UNIX, deadline,
                         stopFd);
  } else if (address.port == 0) {
    refuse(address.text(), "a port from 1 to 65535 to connect to");
  } else {
    AddressList const found = resolve(address, 0, why);
    for (addrinfo const* at = found.get(); at; at = at->ai_next) {
      attempt = connectOne(at->ai_addr, at->ai_addrlen, at->ai_family, deadline, stopFd);
      if (attempt.error == 0) break;
    }
    if (attempt.socket) tuneTcp(attempt.socket.get());
  }
  if (attempt.error != 0) why = systemError(attempt.error);
  if (why.empty()) return std::move(attempt.socket);
  throw CommandError(attempt.error == ETIMEDOUT ? ExitCode::timedOut : ExitCode::peerLost,
                     address.text() + ": cannot be reached: " + why);
}

Listener::Listener(Address address) : address_(std::move(address)) {
  address_.kind == Address::Kind::unixSocket ? listenUnix() : listenTcp();
}

Listener::~Listener() {
  struct stat present {};
  bool const isOurs = inode_ != 0 && ::lstat(address_.path.c_str(), &present) == 0 &&
                      present.st_dev == device_ && present.st_ino == inode_;
  if (isOurs) ::unlink(address_.path.c_str());
}

void Listener::listenUnix() {
  char const* const path = address_.path.c_str();
  sockaddr_un const unixAddress = unixName(address_.path);
  auto const* const name = reinterpret_cast<sockaddr const*>(&unixAddress);
  struct stat present {};
  if (::lstat(path, &present) == 0) {
    if (!S_ISSOCK(present.st_mode)) cannotListen(address_, "there is a file that is no socket");
    Fd const probe = makeSocket(AF_UNIX);
    if (::connect(probe.get(), name, sizeof unixAddress) == 0 || errno == EAGAIN) {
      cannotListen(address_, "another process listens there");
    }
    if (errno != ECONNREFUSED) cannotListen(address_, systemError(errno));
    ::unlink(path);
  }
  socket_ = makeSocket(AF_UNIX);
  if (!socket_ || ::bind(socket_.get(), name, sizeof unixAddress) != 0) {
    cannotListen(address_, systemError(errno));
  }
  if (::lstat(path, &present) == 0) {
    device_ = present.st_dev;
    inode_ = present.st_ino;
  }
  if (::listen(socket_.get(), kBacklog) != 0) cannotListen(address_, systemError(errno));
}

void Listener::listenTcp() {
  std::string why;
  AddressList const found = resolve(address_, AI_PASSIVE, why);
  for (addrinfo const* at = found.get(); at; at = at->ai_next) {
    Fd socket = makeSocket(at->ai_family);
    if (socket) optionIs(socket.get(), SOL_SOCKET, SO_REUSEADDR, 1);
    if (!socket || ::bind(socket.get(), at->ai_addr, at->ai_addrlen) != 0 ||
        ::listen(socket.get(), kBacklog) != 0) {
      why = errno == EADDRINUSE ? "another process listens there" : systemError(errno);
      continue;
    }
    sockaddr_storage name{};
    socklen_t size = sizeof name;
    ::getsockname(socket.get(), reinterpret_cast<sockaddr*>(&name), &size);
    address_.port = numericAddress(name, size).port;
    socket_ = std::move(socket);
    return;
  }
  cannotListen(address_, why);
}

std::optional<Listener::Peer> Listener::accept() {
  for (;;) {
    sockaddr_storage name{};
    socklen_t size = sizeof name;
    Fd socket(::accept4(socket_.get(), reinterpret_cast<sockaddr*>(&name), &size,
                        SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!socket) {
      if (errno == EINTR || errno == ECONNABORTED) continue;
      if (errno == EAGAIN || errno == EWOULDBLOCK) return std::nullopt;
      throw CommandError(ExitCode::refused, "accept: " + systemError(errno));
    }
    if (address_.kind == Address::Kind::tcp) {
      tuneTcp(socket.get());
      return Peer{std::move(socket), numericAddress(name, size).text()};
    }
    ucred credentials{};
    socklen_t length = sizeof credentials;
    ::getsockopt(socket.get(), SOL_SOCKET, SO_PEERCRED, &credentials, &length);
    return Peer{std::move(socket), "process " + std::to_string(credentials.pid)};
  }
}

}  // namespace RailSeq
