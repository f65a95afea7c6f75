// One end of an attribute log.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/zol/attrlog/demuxer.h"
#include "host/zol/attrlog/peer_store.h"
#include "host/zol/attrlog/transport.h"
#include "host/zol/entity.h"

namespace Zol::NboAttrLog {

// Sizes are in bytes. What a peer does beyond a limit closes the connection, unless said otherwise.
struct ConnectionOptions {
  // The name that this end gives of itself in its hello, at most `maxNameLength` bytes.
  Name ownName{};
  // What this end calls the other, over all its connections; empty: the name that the peer gives of
  // itself. What has been received from a peer is kept under its name (`forgetPeer`). A peer named
  // here that comes back before its old connection was found broken ends that one.
  Name peerName{};
  // After so long without a frame the connection counts as stale; 0: never.
  std::chrono::milliseconds staleAfter{0};
  // A sign of life goes out when nothing else has for so long; 0: none does.
  std::chrono::milliseconds aliveEvery{0};
  // The time, for the two above and `lastMessageTime()`.
  std::function<std::chrono::steady_clock::time_point()> clock = &std::chrono::steady_clock::now;
  // Soft limit of what waits to be sent; raised to at least 64 KiB.
  std::size_t outCapacity = std::size_t{256} << 10;
  // Ring of received bytes; raised to hold one frame.
  std::size_t inCapacity = std::size_t{512} << 10;
  // The largest frame taken in; raised to hold a full message.
  std::size_t maxFrame = std::size_t{256} << 10;
  // Names and keys, which go in one piece. A longer one of our own is dropped and counted.
  std::size_t maxUnchunkedText = 65535;
  // One text under way, which may come in pieces.
  std::size_t maxText = std::size_t{16} << 20;
  // All texts under way together.
  std::size_t maxPartialTexts = std::size_t{32} << 20;
  // The frame with which the peer says who it is.
  std::size_t maxBytesBeforeHello = 4096;
  // The name of an end or of a root.
  std::size_t maxNameLength = 255;
  // Sections of a message that announces an entity without a parent.
  std::size_t maxOrphanSections = 8;
  // Type names in such a message.
  std::size_t maxTypeNames = 16;
  // Entities bound by the peer, and those without a parent among them; beyond it a message is
  // refused.
  std::size_t maxEntities = 1000000;
  // Entities without a parent among those bound by the peer.
  std::size_t maxOrphans = 100000;
  // Roots that the peer announces.
  std::size_t maxMounts = 1024;
  // Members of one collection of values or texts; a message that would add one more is refused.
  std::size_t maxMembers = 1000000;
  // One turn takes in at most so many frames, and its flow-outs write at most so many bytes.
  std::size_t framesPerPump = 1024;
  // What the flow-outs of one turn write at most.
  std::size_t flowOutBudget = std::size_t{256} << 10;
};

// How a root is mounted.
struct MountOptions {
  // Whether the peer's replica may be written to.
  enum class Access : std::uint8_t { readOnlyForPeer = 0, writableByPeer = 1 };
  // What is written to the peer's replica does not reach this end.
  static constexpr Access readOnlyForPeer = Access::readOnlyForPeer;
  // What is written to the peer's replica is written here too.
  static constexpr Access writableByPeer = Access::writableByPeer;

  // What the peer may do.
  Access access = Access::readOnlyForPeer;
};

// What a connection is at.
enum class ConnectionState : std::uint8_t {
  connecting,  // the peer's hello is awaited
  catchingUp,  // a mounted root is not complete yet on one of the ends, or none is mounted
  live,        // all mounted roots are complete, and changes flow
  stale,       // nothing has been heard of the peer for `ConnectionOptions::staleAfter`
  closed,      // ended; `Connection::error()` has the reason
};

// "catching up", for tools.
[[nodiscard]] ZOL_EXPORT char const* toText(ConnectionState state) noexcept;

// What went over a connection. Messages are data messages about attributes.
struct ConnectionCounters {
  // Data messages sent.
  std::uint64_t messagesOut = 0;
  // Data messages received.
  std::uint64_t messagesIn = 0;
  // All bytes sent, frames without data included.
  std::uint64_t bytesOut = 0;
  // All bytes received.
  std::uint64_t bytesIn = 0;
  // Messages of the peer that changed nothing: not allowed, or not applicable.
  std::uint64_t refused = 0;
  // Messages about entities or attributes that this end does not know, and frames of unknown kind.
  std::uint64_t unknown = 0;
  // Changes that left no message of their own, because one message carried several.
  std::uint64_t coalesced = 0;
  // References of ours that went out as null, because entities of their class are not replicated.
  std::uint64_t unreplicated = 0;
  // Enumerators that this end does not know; their numbers were applied.
  std::uint64_t unknownEnums = 0;
  // Messages of ours that were dropped: a name or key too long, or more than the peer takes in.
  std::uint64_t dropped = 0;
  // Exceptions out of a listener's exception handler while a message was applied; the change
  // stands.
  std::uint64_t listenerFailures = 0;
};

// One end of a log between two processes, or inside one. It has no thread: its owner calls `pump()`
// whenever the descriptor is readable or writable, or something has changed.
//
//   auto connection = Connection::overFd( fd, options );
//   connection->mountIs( config, {} );          // the peer gets a replica, kept up to date
//   while( connection->isOpen() ) { poll( ... ); while( connection->pump() ) {} }
//
// The trap: inside any listener `pump()` does nothing; `close()` in one that is told of a received
// change takes effect when the turn ends.
class ZOL_EXPORT Connection final : public PtrInterface {
 public:
  // Over a stream socket or pipe, which is made non-blocking and closed with the connection. Both
  // throw `RangeException` for an `ownName` that is too long.
  static Ptr<Connection> overFd(int fd, ConnectionOptions options);
  // Over another carrier of bytes.
  static Ptr<Connection> over(std::unique_ptr<Transport> transport, ConnectionOptions options);
  ~Connection() override;

  // The outgoing half, by which an entity's stream adapter is found.
  [[nodiscard]] Ptr<Out> const& out() const noexcept { return out_; }
  // The incoming half.
  [[nodiscard]] Ptr<In> const& in() const noexcept { return in_; }
  // What hands the messages to the adapters.
  [[nodiscard]] Ptr<Demuxer> const& demuxer() const noexcept { return demuxer_; }
  // The name under which this end knows the other; without one in the options it is empty until the
  // peer's hello.
  [[nodiscard]] Name const& peerName() const noexcept { return options_.peerName; }

  // Announces the root to the peer, catches it up and keeps it up to date. Before the peer's hello
  // the request is kept. Again for the same root: nothing. Throws `RangeException` for a null root,
  // for an entity of a class that is not replicated, for a name longer than `maxNameLength` bytes,
  // and for an entity that this connection received or replicates already; `NameInUseException`
  // when another root of that name is mounted. Nothing happens on a closed end. A root that is
  // itself a read-only replica is never writable by the peer.
  void mountIs(Ptr<Entity> const& root, MountOptions options = {});
  // The root that the peer announced under the name, or null.
  [[nodiscard]] Ptr<Entity> mounted(Name const& name) const;
  // The names of the roots that the peer announced.
  [[nodiscard]] std::vector<Name> mountedNames() const;
  // True once the peer has said that its first catch-up of that root is complete.
  [[nodiscard]] bool synced(Name const& name) const;

  // One turn: owed flow-outs while there is room, bytes out, messages in. False when there was
  // nothing to do. Call it until it is false, then wait for the descriptor.
  bool pump();
  // Says goodbye with a reason that the peer's `error()` will have, cut to `maxUnchunkedText`
  // bytes, sends what can be sent at once, and ends the connection.
  void close(std::string reason = {});
  // False once the connection has ended, for whatever reason.
  [[nodiscard]] bool isOpen() const noexcept { return phase_ != Phase::closed; }
  // What the connection is at, as of the last turn.
  [[nodiscard]] ConnectionState state() const noexcept { return state_; }
  // Called with each new state, at the end of a turn or of `close()`, when the connection may be
  // used freely.
  using StateListener = std::function<void(Connection&, ConnectionState)>;
  // Replaces the listener that was there; null: none. A connection that is destroyed tells nothing.
  void stateListenerIs(StateListener listener) { stateListener_ = std::move(listener); }
  // When the last frame of the peer arrived; when the connection was made, before the first one.
  [[nodiscard]] std::chrono::steady_clock::time_point lastMessageTime() const noexcept {
    return lastMessage_;
  }
  // The reason why the connection ended; empty while it is open, and after `close()`.
  [[nodiscard]] std::string const& error() const noexcept { return error_; }

  // For the owner's poll loop. -1 for a connection inside the process.
  [[nodiscard]] int fd() const { return transport_->fd(); }
  // Poll for readable.
  [[nodiscard]] bool wantsRead() const noexcept { return isOpen(); }
  // Poll for writable: bytes wait.
  [[nodiscard]] bool wantsWrite() const noexcept { return isOpen() && !out_->pending().empty(); }

  // The counts since the connection was made.
  [[nodiscard]] ConnectionCounters counters() const;
  // What the peer has not been sent yet: the names of attributes, each with the number of entities
  // that owe something of it; of an attribute with keys that may be one member or all. Entities
  // that the peer does not know yet are owed under the attribute of their holder. An attribute that
  // was not registered stands under its id. Bytes that only wait for the transport are in
  // `out()->pending()`.
  [[nodiscard]] std::map<std::string, std::size_t> owed() const { return demuxer_->owed(); }

 private:
  // What is awaited: the peer's hello, then messages, then nothing.
  enum class Phase : std::uint8_t { hello, live, closed };
  struct OwnMount {
    Ptr<Entity> root;
    Ptr<MountContext> context;
    EntityId id;
  };
  struct PeerMount {
    EntityId id;
    Name name;
    Ptr<MountContext> context;
    Ptr<Entity> root;  // null until the root itself has been announced
  };

  Connection(std::unique_ptr<Transport> transport, ConnectionOptions options);

  bool turn();
  void announce(OwnMount& mount);
  void sendHello();
  bool sendSynced();
  bool receiveBytes();
  [[nodiscard]] bool wholeFrameWaits() const;
  bool dispatchFrames();
  bool sendBytes();
  bool sendAlive();
  void fail(std::string reason);
  void tearDown();
  // Finds out what the connection is at, and says so when that is new.
  void stateIs();
  [[nodiscard]] ConnectionState presentState() const;

  void frameArrived();
  void helloArrived();
  void mountArrived();
  void dataArrived();
  void orphanArrived();
  void markArrived();
  void syncedArrived();
  void forgetArrived();
  void lacksArrived();
  void byeArrived();
  [[nodiscard]] Name nameArrived(char const* what);
  void requireFrameEnd(char const* what);
  [[nodiscard]] PeerMount* peerMount(EntityId id);
  // What this connection has swept out of its holders may come without a holder.
  void keepSwept();
  // Runs a call of an adapter that applies a message, and judges what comes out of it; false when
  // it was refused or has thrown.
  // Whether both ends may write the adapter's entity, and this end owns it.
  [[nodiscard]] static bool ownsForBoth(Entity::ZolNboAttrLogSa const& adapter);
  // Brings the peer to this end's state where the two may have come apart over its message, whose
  // payload begins at `payload`.
  void settle(Entity::ZolNboAttrLogSa& adapter, AttributeId id, bool applied, In::Position payload);
  template <class Call>
  bool apply(Entity::ZolNboAttrLogSa& adapter, AttributeId id, Call&& call);

  std::unique_ptr<Transport> transport_;
  ConnectionOptions options_;
  Ptr<Out> out_;
  Ptr<In> in_;
  Ptr<Demuxer> demuxer_;
  Phase phase_ = Phase::hello;
  ConnectionState state_ = ConnectionState::connecting;
  StateListener stateListener_;
  std::chrono::steady_clock::time_point lastMessage_;
  std::chrono::steady_clock::time_point lastSent_;
  bool pumping_ = false;
  bool closeRequested_ = false;
  std::string closeReason_;
  // The last read took all there was.
  bool drained_ = false;
  // The transport has ended, with this reason; what it brought is taken in first.
  std::optional<std::string> ended_;
  std::string error_;
  std::vector<OwnMount> ownMounts_;
  std::vector<PeerMount> peerMounts_;
  std::map<std::uint64_t, Ptr<Entity>> orphans_;
  // What is kept of the peer; null until its hello.
  Ptr<PeerStore> store_;
  // The owner of this end has named the peer, so that a second connection under the name is the
  // same peer come back.
  bool const peerNamed_;
  ConnectionCounters counters_;
};

// Lets go of the roots and other entities received from the peer with this name, as far as no open
// connection uses them. Until then they are kept for when the peer comes back: mounting again, it
// finds the same objects, and listeners hear only what has changed meanwhile.
ZOL_EXPORT void forgetPeer(Name const& name);

// Two connected ends inside this process, for tests and benchmarks.
[[nodiscard]] ZOL_EXPORT std::pair<Ptr<Connection>, Ptr<Connection>> connectionPair(
    ConnectionOptions a = {}, ConnectionOptions b = {});

}  // namespace Zol::NboAttrLog
