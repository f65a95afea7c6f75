// The poll loop of a serving process.
#include "railseq/attach/serve.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <vector>

#include "railseq/attach/output.h"
#include "railseq/attach/served_peer.h"
#include "railseq/attach/stop_signal.h"
#include "railseq/base/command_error.h"
#include "railseq/base/wording.h"
#include "railseq/board/board.h"

namespace RailSeq {

namespace {

using Zol::NboAttrLog::ConnectionOptions;
using Zol::NboAttrLog::ConnectionState;
using Zol::NboAttrLog::MountOptions;

constexpr std::chrono::milliseconds kAliveEvery{2000};
constexpr std::chrono::milliseconds kStaleAfter{10000};
// So long a peer may take to say what it wants, and to read a report.
constexpr std::chrono::seconds kPatience{5};
// So long when others wait to be taken in.
constexpr std::chrono::seconds kShortPatience{1};
// The listener is left alone so long when all places are taken, and when the system fails.
constexpr std::chrono::milliseconds kFullPause{20};
constexpr std::chrono::seconds kFailurePause{1};
// No wait is longer: signs of life go out, and who says nothing is noticed.
constexpr int kLongestWait = 500;
// For what cannot be polled.
constexpr int kShortWait = 20;
// Attached peers, beyond which more are refused, and those that have not said hello.
constexpr std::size_t kMostAttached = 64;
constexpr std::size_t kMostUnknown = 32;
constexpr std::size_t kMostRemembered = 16;
// What a peer may bring of its own: referred to from a tree that it may write to.
constexpr std::size_t kMostOrphans = 1000;

class Server {
 public:
  explicit Server(ServeOptions const& options)
      : roots_(readBoard(options.board).roots()),
        isWritable_(options.isWritable),
        listener_(parseAddress(options.address)) {}

  int run();

 private:
  using Peers = std::vector<std::unique_ptr<ServedPeer>>;

  void acceptAll();
  void greet(ServedPeer& peer);
  void turn(ServedPeer& peer);
  void dropEnded();
  void tellGone(ServedPeer const& peer);
  [[nodiscard]] std::string healthReport() const;
  // False when it is to end.
  [[nodiscard]] bool wait(bool isBusy);

  void complain(std::string const& line) { errors_.line("railseq: " + line); }

  StopSignal stop_;
  ServiceLog log_{STDOUT_FILENO};
  ServiceLog errors_{STDERR_FILENO};
  std::vector<Zol::Ptr<Zol::Entity>> roots_;
  bool isWritable_;
  Listener listener_;
  Clock::time_point since_ = Clock::now();
  // The listener is left alone until then.
  Clock::time_point acceptsFrom_{};
  Peers peers_;
  // Who has gone, the last of them in front.
  std::deque<Json> gone_;
};

int Server::run() {
  std::string names;
  for (Zol::Ptr<Zol::Entity> const& root : roots_) {
    if (!names.empty()) names += ", ";
    names += root->name().view();
  }
  log_.line("serving " + names + " at " + listener_.address().text());
  bool isBusy = false;
  while (wait(isBusy)) {
    log_.flush();
    errors_.flush();
    acceptAll();
    isBusy = false;
    for (auto const& peer : peers_) {
      if (peer->stage() == ServedPeer::Stage::greeting) greet(*peer);
      isBusy = peer->turn() || isBusy;
      turn(*peer);
    }
    dropEnded();
  }
  for (auto const& peer : peers_) peer->end("the serving process ends");
  return 0;
}

bool Server::wait(bool isBusy) {
  bool const accepts = Clock::now() >= acceptsFrom_;
  int longest = isBusy ? 0 : accepts ? kLongestWait : kShortWait;
  std::vector<pollfd> waited{{stop_.fd(), POLLIN, 0},
                             {accepts ? listener_.fd() : -1, POLLIN, 0},
                             {log_.waitingFd(), POLLOUT, 0},
                             {errors_.waitingFd(), POLLOUT, 0}};
  for (auto const& peer : peers_) {
    if (peer->isHalfGreeted()) {
      longest = std::min(longest, kShortWait);
      continue;
    }
    auto const events = static_cast<short>(peer->wantsWrite() ? POLLIN | POLLOUT : POLLIN);
    waited.push_back({peer->fd(), events, 0});
  }
  ::poll(waited.data(), waited.size(), longest);
  return waited.front().revents == 0;
}

// Who says nothing makes room for others, though not at once: who has just come may have said
// hello.
void Server::acceptAll() {
  auto const isUnknown = [](auto const& each) { return each->isUnknown(); };
  try {
    while (Clock::now() >= acceptsFrom_) {
      if (static_cast<std::size_t>(std::ranges::count_if(peers_, isUnknown)) >= kMostUnknown) {
        ServedPeer& oldest = **std::ranges::find_if(peers_, isUnknown);
        if (Clock::now() - oldest.since() < kShortPatience) {
          acceptsFrom_ = Clock::now() + kFullPause;
          return;
        }
        oldest.end("no hello, and others wait");
        dropEnded();
      }
      std::optional<Listener::Peer> peer = listener_.accept();
      if (!peer) return;
      peers_.push_back(std::make_unique<ServedPeer>(std::move(*peer)));
    }
  } catch (CommandError const& error) {
    complain(error.what());
    acceptsFrom_ = Clock::now() + kFailurePause;
  }
}

void Server::greet(ServedPeer& peer) {
  if (!peer.hasGreeted()) return;
  if (peer.wantsReport()) return peer.report(healthReport());
  peer.attach({.ownName = Zol::Name("railseq serve"),
               .staleAfter = kStaleAfter,
               .aliveEvery = kAliveEvery,
               .maxOrphans = kMostOrphans,
               .maxMounts = 0});
  auto const isAttached = [](auto const& each) {
    return each->stage() == ServedPeer::Stage::attached;
  };
  if (static_cast<std::size_t>(std::ranges::count_if(peers_, isAttached)) > kMostAttached) {
    return peer.end("too many peers, at most " + std::to_string(kMostAttached));
  }
  for (Zol::Ptr<Zol::Entity> const& root : roots_) {
    peer.connection()->mountIs(
        root, {isWritable_ ? MountOptions::writableByPeer : MountOptions::readOnlyForPeer});
  }
}

// What a turn has brought about.
void Server::turn(ServedPeer& peer) {
  using Stage = ServedPeer::Stage;
  bool const isLate = Clock::now() - peer.since() > kPatience;
  if (isLate && (peer.isUnknown() || peer.stage() == Stage::reporting)) {
    peer.end(peer.stage() == Stage::reporting
                 ? "the report was not read"
                 : "no hello within " + std::to_string(kPatience.count()) + " seconds");
  }
  if (peer.stage() == Stage::attached && !peer.isUnknown() && !peer.isAnnounced) {
    peer.isAnnounced = true;
    log_.line(peer.name() + " attached");
  }
}

void Server::tellGone(ServedPeer const& peer) {
  std::string const reason = printable(peer.reason());
  bool const inOrder = reason.starts_with("the peer has gone") || reason == "closed by the peer";
  if (peer.isAnnounced && inOrder) {
    log_.line(peer.name() + " gone: " + reason);
  } else if (peer.isAnnounced || !inOrder) {
    complain(peer.name() + " dropped: " + reason);
  }
}

void Server::dropEnded() {
  for (auto const& peer : peers_) {
    if (peer->stage() != ServedPeer::Stage::ended) continue;
    if (!peer->reason().empty()) tellGone(*peer);
    if (!peer->connection()) continue;
    gone_.push_front(healthOf(*peer));
    if (gone_.size() > kMostRemembered) gone_.pop_back();
    // Nothing that a peer brought along is kept for its coming back.
    Zol::NboAttrLog::forgetPeer(peer->connection()->peerName());
  }
  std::erase_if(peers_, [](auto const& peer) { return peer->stage() == ServedPeer::Stage::ended; });
}

std::string Server::healthReport() const {
  Json json = {{"address", listener_.address().text()},
               {"process", ::getpid()},
               {"writable", isWritable_},
               {"servingSeconds",
                std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - since_).count()},
               {"roots", Json::array()},
               {"connections", Json::array()},
               {"gone", gone_}};
  for (Zol::Ptr<Zol::Entity> const& root : roots_) json["roots"].push_back(root->name().view());
  for (auto const& peer : peers_) {
    if (peer->stage() == ServedPeer::Stage::attached)
      json["connections"].push_back(healthOf(*peer));
  }
  return jsonText(json);
}

}  // namespace

int runServe(ServeOptions const& options) { return Server(options).run(); }

}  // namespace RailSeq
