// The poll loop of a client.
#include "railseq/attach/attachment.h"

#include <poll.h>

#include <algorithm>
#include <array>

#include "railseq/base/command_error.h"
#include "railseq/base/paths.h"
#include "railseq/base/wording.h"

namespace RailSeq {

namespace {

constexpr std::chrono::seconds kAliveEvery{2};
// No wait is longer, so that signs of life go out and a stale peer is noticed.
constexpr std::chrono::milliseconds kLongestWait{1000};

}  // namespace

Attachment::~Attachment() { close(); }

bool Attachment::connect(Clock::time_point deadline) {
  close();
  Fd socket = connectTo(options_.address, deadline, options_.stopFd);
  if (!socket) return false;
  std::unique_ptr<Transport> transport = Zol::NboAttrLog::fdTransport(socket.release());
  if (options_.wrap) transport = options_.wrap(std::move(transport));
  connection_ = Connection::over(
      std::move(transport),
      {.ownName = Zol::Name(options_.ownName),
       .peerName = Zol::Name(options_.keptAs.empty() ? options_.address.text() : options_.keptAs),
       .staleAfter = options_.staleAfter,
       .aliveEvery = kAliveEvery});
  connection_->stateListenerIs(options_.onState);
  return true;
}

void Attachment::close() {
  if (!connection_) return;
  connection_->stateListenerIs(nullptr);
  connection_->close();
}

bool Attachment::isSynced() const {
  if (!connection_) return false;
  std::vector<Zol::Name> const names = connection_->mountedNames();
  return !names.empty() && std::ranges::all_of(names, [this](Zol::Name const& name) {
    return connection_->synced(name);
  });
}

std::vector<Zol::Ptr<Zol::Entity>> Attachment::roots() const {
  std::vector<Zol::Ptr<Zol::Entity>> roots;
  if (!connection_) return roots;
  for (Zol::Name const& name : connection_->mountedNames()) {
    if (connection_->synced(name)) roots.push_back(connection_->mounted(name));
  }
  return roots;
}

bool Attachment::hasRoots() const { return connection_ && !connection_->mountedNames().empty(); }

bool Attachment::hasRootsOf(std::vector<std::string> const& paths) const {
  std::vector<Zol::Name> const names = connection_->mountedNames();
  return std::ranges::all_of(paths, [&names](std::string const& path) {
    std::string const root = rootName(path);
    return root.empty() || std::ranges::find(names, Zol::Name(root)) != names.end();
  });
}

std::string Attachment::lossReason() const {
  return options_.address.text() + ": " +
         (connection_ ? printable(connection_->error()) : "not connected");
}

Attachment::End Attachment::pumpUntil(std::function<bool()> const& condition,
                                      Clock::time_point deadline) {
  for (;;) {
    bool const worked = connection_->pump();
    if (condition()) return End::done;
    if (!connection_->isOpen()) return End::lost;
    Clock::time_point const now = Clock::now();
    if (now >= deadline) return End::timedOut;
    Clock::time_point const until = worked ? now : deadline;
    if (!waitFor(connection_->fd(), connection_->wantsWrite(), until)) return End::stopped;
  }
}

Attachment::End Attachment::awaitRoots(std::vector<std::string> const& paths,
                                       Clock::duration patience, Clock::time_point deadline) {
  auto const isThere = [this] { return isSynced(); };
  End end = pumpUntil(isThere, deadline);
  if (end != End::done || hasRootsOf(paths)) return end;
  end = pumpUntil([&] { return hasRootsOf(paths); }, std::min(deadline, Clock::now() + patience));
  return end == End::done || end == End::timedOut ? pumpUntil(isThere, deadline) : end;
}

bool Attachment::sync(Clock::time_point deadline, std::vector<std::string> const& paths,
                      Clock::duration patience) {
  switch (awaitRoots(paths, patience, deadline)) {
    case End::done:
      return true;
    case End::stopped:
      return false;
    case End::lost:
      throw CommandError(ExitCode::peerLost, lossReason());
    case End::timedOut:
      break;
  }
  bool const isConnecting = connection_->state() == Zol::NboAttrLog::ConnectionState::connecting;
  throw CommandError(ExitCode::timedOut,
                     options_.address.text() + ": timed out" +
                         (isConnecting ? " while connecting: the peer says no hello"
                          : hasRoots() ? " while catching up"
                                       : ": the process has mounted no root"));
}

bool Attachment::pause(Clock::time_point until) const {
  while (Clock::now() < until) {
    if (!waitFor(-1, false, until)) return false;
  }
  return true;
}

bool Attachment::waitFor(int fd, bool forWriting, Clock::time_point until) const {
  Clock::duration const left = until - Clock::now();
  auto const wait =
      std::chrono::ceil<std::chrono::milliseconds>(std::min<Clock::duration>(left, kLongestWait));
  auto const events = static_cast<short>(forWriting ? POLLIN | POLLOUT : POLLIN);
  std::array<pollfd, 3> waited{pollfd{fd, events, 0}, pollfd{options_.stopFd, POLLIN, 0},
                               pollfd{options_.outputFd, 0, 0}};
  ::poll(waited.data(), waited.size(), std::max(0, static_cast<int>(wait.count())));
  return waited[1].revents == 0 && (waited[2].revents & (POLLERR | POLLHUP)) == 0;
}

}  // namespace RailSeq
