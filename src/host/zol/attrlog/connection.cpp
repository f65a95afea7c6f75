#include "host/zol/attrlog/connection.h"

#include <algorithm>

#include "host/zol/attrlog/stream_adapter.h"
#include "host/zol/expect.h"
#include "host/zol/registry/zol_type.h"

namespace Zol::NboAttrLog {

namespace {

constexpr std::size_t kMemoryPipe = 64 * 1024;

ConnectionOptions sane(ConnectionOptions options) {
  if (options.ownName.size() > options.maxNameLength) {
    throwRangeException(format("ownName longer than %zu bytes", options.maxNameLength));
  }
  options.maxFrame = std::max(options.maxFrame, kMaxMessageSize);
  options.inCapacity = std::max(options.inCapacity, options.maxFrame + kLengthSize);
  return options;
}

}  // namespace

Ptr<Connection> Connection::overFd(int fd, ConnectionOptions options) {
  return over(fdTransport(fd), std::move(options));
}

Ptr<Connection> Connection::over(std::unique_ptr<Transport> transport, ConnectionOptions options) {
  return new Connection(std::move(transport), std::move(options));
}

std::pair<Ptr<Connection>, Ptr<Connection>> connectionPair(ConnectionOptions a,
                                                           ConnectionOptions b) {
  auto [first, second] = memoryTransports(kMemoryPipe);
  return {Connection::over(std::move(first), std::move(a)),
          Connection::over(std::move(second), std::move(b))};
}

Connection::Connection(std::unique_ptr<Transport> transport, ConnectionOptions options)
    : transport_(std::move(transport)),
      options_(sane(std::move(options))),
      out_(new Out(options_.outCapacity, options_.maxUnchunkedText)),
      in_(new In(options_.inCapacity)),
      demuxer_(new Demuxer(out_, in_, options_.maxEntities, options_.maxPartialTexts,
                           options_.flowOutBudget)),
      lastMessage_(options_.clock()),
      lastSent_(lastMessage_),
      peerNamed_(!options_.peerName.empty()) {
  in_->textLimitsAre(options_.maxUnchunkedText, options_.maxText);
  demuxer_->maxMembersIs(options_.maxMembers);
  out_->peerNameIs(options_.peerName);
  sendHello();
}

Connection::~Connection() { tearDown(); }

void Connection::sendHello() {
  out_->frameIs(FrameKind::hello, [&] {
    out_->u32Is(kMagic);
    out_->u16Is(kVersion);
    out_->u16Is(kOldestVersion);
    out_->u32Is(0);
    out_->u32Is(static_cast<std::uint32_t>(options_.maxFrame));
    out_->u32Is(static_cast<std::uint32_t>(options_.maxText));
    out_->u64Is(0);
    out_->textIs(options_.ownName.view());
  });
}

void Connection::mountIs(Ptr<Entity> const& root, MountOptions options) {
  if (!root) throwRangeException("null root parameter to mountIs not allowed");
  if (!root->zolHasAttrLogInterface()) {
    throwRangeException(root->fwkType()->fullName() + " is not replicated");
  }
  if (root->name().size() > options_.maxNameLength) {
    throwRangeException(format("name of root longer than %zu bytes", options_.maxNameLength));
  }
  if (!isOpen()) return;
  for (OwnMount const& mount : ownMounts_) {
    if (mount.root == root) return;
    if (mount.root->name() == root->name()) {
      throwNameInUseException(String8("a root with the name ") + root->name() +
                              " is mounted already");
    }
  }
  if (Ptr<Entity::ZolNboAttrLogSa> const present = root->zolNboAttrLogSa(out_)) {
    throwRangeException(root->name() +
                        String8(present->isReplica()
                                    ? " was received over this connection"
                                    : " is replicated over this connection already"));
  }
  bool const writable = options.access == MountOptions::Access::writableByPeer &&
                        !Entity::ZolNboAttrLogSa::isReadOnlyReplica(*root);
  ownMounts_.push_back({root, new MountContext(true, writable), {}});
  if (phase_ == Phase::live) announce(ownMounts_.back());
}

void Connection::announce(OwnMount& mount) {
  unsigned int const access = mount.context->writable() ? 0U : unsigned{flagInReadOnly};
  Ptr<Entity::ZolNboAttrLogSa> const adapter =
      mount.root->zolNboAttrLogSaIs({flagWeak | access}, 1, out_, mount.context.get());
  adapter->zolOnInit();
  mount.id = adapter->entityId();
  if (mount.context->writable()) out_->numbersMessagesIs(true);
  out_->frameIs(FrameKind::mount, [&] {
    out_->u64Is(mount.id.value);
    out_->u8Is(mount.context->writable() ? 1 : 0);
    out_->textIs(mount.root->name().view());
  });
  adapter->doSerializeOrphan();
}

Ptr<Entity> Connection::mounted(Name const& name) const {
  for (PeerMount const& mount : peerMounts_) {
    if (mount.name == name) return mount.root;
  }
  return nullptr;
}

std::vector<Name> Connection::mountedNames() const {
  std::vector<Name> names;
  for (PeerMount const& mount : peerMounts_) {
    if (mount.root) names.push_back(mount.name);
  }
  return names;
}

bool Connection::synced(Name const& name) const {
  for (PeerMount const& mount : peerMounts_) {
    if (mount.name == name) return mount.context->synced();
  }
  return false;
}

// Inside a listener nothing is applied and nothing is paid: what it was told of is still under way.
bool Connection::pump() {
  if (!isOpen() || pumping_ || Expect::depth() != 0) return false;
  Ptr<Connection> const hold(this);
  struct TurnScope {
    explicit TurnScope(bool& running) : running_(running) { running_ = true; }
    ~TurnScope() { running_ = false; }
    bool& running_;
  };
  bool worked = true;
  try {
    TurnScope const scope(pumping_);
    worked = turn();
  } catch (Exception const& failure) {
    fail(failure.what());
  }
  if (closeRequested_) close(std::move(closeReason_));
  stateIs();
  return worked;
}

bool Connection::turn() {
  bool worked = false;
  if (phase_ == Phase::live) {
    worked = demuxer_->turn();
    worked = sendSynced() || worked;
    worked = sendAlive() || worked;
  }
  worked = sendBytes() || worked;
  worked = receiveBytes() || worked;
  worked = dispatchFrames() || worked;
  if (ended_ && drained_ && !wholeFrameWaits()) {
    std::string const where = in_->available() != 0 ? " inside a frame" : "";
    fail("the peer has gone" + where + (ended_->empty() ? "" : ": " + *ended_));
  }
  return worked;
}

bool Connection::sendSynced() {
  if (!demuxer_->idle()) return false;
  bool sent = false;
  for (OwnMount const& mount : ownMounts_) {
    if (mount.context->synced() || mount.id.value == 0) continue;
    mount.context->syncedIs(true);
    out_->frameIs(FrameKind::synced, [&] { out_->u64Is(mount.id.value); });
    sent = true;
  }
  return sent;
}

bool Connection::sendAlive() {
  if (options_.aliveEvery.count() == 0 || !out_->pending().empty()) return false;
  if (options_.clock() - lastSent_ < options_.aliveEvery) return false;
  out_->frameIs(FrameKind::alive, [] {});
  return true;
}

bool Connection::sendBytes() {
  bool sent = false;
  while (!ended_ && !out_->pending().empty()) {
    Transport::Result result = transport_->write(out_->pending());
    if (result.state == Transport::Result::State::ended) ended_ = std::move(result.reason);
    if (result.state != Transport::Result::State::moved) break;
    out_->sent(result.bytes);
    counters_.bytesOut += result.bytes;
    sent = true;
  }
  if (sent) lastSent_ = options_.clock();
  return sent;
}

bool Connection::receiveBytes() {
  bool received = false;
  drained_ = false;
  while (!in_->room().empty()) {
    Transport::Result result = transport_->read(in_->room());
    if (result.state == Transport::Result::State::ended && !ended_) {
      ended_ = std::move(result.reason);
    }
    drained_ = result.state != Transport::Result::State::moved;
    if (drained_) break;
    in_->received(result.bytes);
    counters_.bytesIn += result.bytes;
    received = true;
  }
  return received;
}

bool Connection::wholeFrameWaits() const {
  return in_->available() >= kLengthSize && in_->available() - kLengthSize >= in_->peekU32();
}

bool Connection::dispatchFrames() {
  std::size_t frames = 0;
  while (isOpen() && !closeRequested_ && frames < options_.framesPerPump &&
         in_->available() >= kLengthSize) {
    std::size_t const length = in_->peekU32();
    std::size_t const limit =
        phase_ == Phase::hello ? options_.maxBytesBeforeHello : options_.maxFrame;
    if (length == 0 || length > limit) {
      in_->malformed("frame of " + std::to_string(length) + " bytes, 1 to " +
                     std::to_string(limit) + " allowed");
    }
    if (!wholeFrameWaits()) break;
    In::Position const end = in_->position() + kLengthSize + length;
    in_->positionIs(in_->position() + kLengthSize);
    in_->boundIs(end);
    frameArrived();
    in_->frameTaken();
    in_->positionIs(end);
    ++frames;
  }
  if (frames != 0) lastMessage_ = options_.clock();
  return frames != 0;
}

void Connection::close(std::string reason) {
  if (!isOpen()) return;
  if (pumping_) {
    closeRequested_ = true;
    closeReason_ = std::move(reason);
    return;
  }
  reason.resize(std::min(reason.size(), options_.maxUnchunkedText));
  out_->frameIs(FrameKind::bye, [&] { out_->textIs(reason); });
  sendBytes();
  tearDown();
  stateIs();
}

void Connection::fail(std::string reason) {
  if (!isOpen()) return;
  error_ = std::move(reason);
  tearDown();
}

void Connection::tearDown() {
  if (phase_ == Phase::closed) return;
  phase_ = Phase::closed;
  // What was taken out of its holder lives on where it is referred to, and the peer announces it
  // anew as an entity without a holder.
  std::vector<Ptr<Entity>> const unheld = demuxer_->receivedWithoutHolder();
  demuxer_->shutDown();
  if (store_) {
    keepSwept();
    for (Ptr<Entity> const& entity : unheld) store_->keptIs(entity, this);
    store_->released(this);
    PeerStore::emptyDel(options_.peerName);
  }
  transport_->close();
}

ConnectionState Connection::presentState() const {
  if (!isOpen()) return ConnectionState::closed;
  if (phase_ == Phase::hello) return ConnectionState::connecting;
  if (options_.staleAfter.count() != 0 && options_.clock() - lastMessage_ > options_.staleAfter) {
    return ConnectionState::stale;
  }
  auto const complete = [](auto const& mount) { return mount.context->synced(); };
  bool const any = !ownMounts_.empty() || !peerMounts_.empty();
  return any && std::ranges::all_of(ownMounts_, complete) &&
                 std::ranges::all_of(peerMounts_, complete)
             ? ConnectionState::live
             : ConnectionState::catchingUp;
}

void Connection::stateIs() {
  ConnectionState const present = presentState();
  if (present == state_) return;
  state_ = present;
  if (!stateListener_) return;
  Ptr<Connection> const hold(this);
  StateListener const listener = stateListener_;  // which may be replaced by its own call
  listener(*this, present);
}

char const* toText(ConnectionState state) noexcept {
  switch (state) {
    case ConnectionState::connecting:
      return "connecting";
    case ConnectionState::catchingUp:
      return "catching up";
    case ConnectionState::live:
      return "live";
    case ConnectionState::stale:
      return "stale";
    case ConnectionState::closed:
      return "closed";
  }
  return "unknown";
}

void forgetPeer(Name const& name) { PeerStore::forget(name); }

ConnectionCounters Connection::counters() const {
  ConnectionCounters all = counters_;
  all.messagesOut = out_->messagesCommitted();
  all.dropped = out_->dropped();
  all.unknown += demuxer_->unknownAttributes();
  all.unknownEnums = demuxer_->unknownEnums();
  all.coalesced = demuxer_->coalesced();
  all.unreplicated = demuxer_->unreplicated();
  all.listenerFailures += demuxer_->listenerFailures();
  return all;
}

}  // namespace Zol::NboAttrLog
