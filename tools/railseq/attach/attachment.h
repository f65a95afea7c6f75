// A client's connection to a process that hosts trees: connects, pumps, tells how it ended.
#pragma once

#include "hwrailseq.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "railseq/attach/address.h"

namespace RailSeq {

// It may be connected again and again: the replicas stay the same objects, and their listeners hear
// only of what differs.
class Attachment {
 public:
  using Connection = Zol::NboAttrLog::Connection;
  using Transport = Zol::NboAttrLog::Transport;

  struct Options {
    Address address;
    // What this end calls itself, such as "railseq watch".
    std::string ownName = "railseq";
    // What the replicas are kept under between connections; empty: the address. Two attachments to
    // one address at a time need two names.
    std::string keptAs = {};
    // Puts a transport in place of that of each new connection, such as one that also records.
    std::function<std::unique_ptr<Transport>(std::unique_ptr<Transport>)> wrap = nullptr;
    // Told of each new state of the connection.
    Connection::StateListener onState = nullptr;
    // Waits end when this descriptor is readable; -1: none.
    int stopFd = -1;
    // Waits end when nobody reads any more what is written to this descriptor; -1: none.
    int outputFd = -1;
    // So long without a sign of life, and the state becomes stale.
    std::chrono::milliseconds staleAfter{10000};
  };
  // A peer may mount its roots one after the other.
  static constexpr std::chrono::milliseconds kRootPatience{200};
  // How a wait has ended.
  enum class End { done, timedOut, lost, stopped };

  // Not connected yet.
  explicit Attachment(Options options) : options_(std::move(options)) {}
  ~Attachment();
  Attachment(Attachment const&) = delete;
  Attachment& operator=(Attachment const&) = delete;

  // Connects, in place of the connection that was. Throws `CommandError` as `connectTo`. False when
  // it was stopped.
  bool connect(Clock::time_point deadline);
  // Sends what can be sent at once, and says goodbye.
  void close();
  // Ends without sending what waits.
  void abandon() { connection_ = nullptr; }

  // Null before the first `connect`.
  [[nodiscard]] Connection* connection() const { return connection_.get(); }
  [[nodiscard]] Address const& address() const { return options_.address; }
  // True once all roots of the peer have arrived with all they hold.
  [[nodiscard]] bool isSynced() const;
  // Whether the peer has mounted a root yet.
  [[nodiscard]] bool hasRoots() const;
  // The roots that the peer has mounted so far, as far as they have arrived with all they hold.
  [[nodiscard]] std::vector<Zol::Ptr<Zol::Entity>> roots() const;
  // "ADDRESS: the peer has gone", of a connection that was lost.
  [[nodiscard]] std::string lossReason() const;

  // Pumps until the condition holds, which is asked behind each turn. `Clock::time_point::max()`
  // is no deadline. An end other than `done` says that the condition does not hold.
  End pumpUntil(std::function<bool()> const& condition, Clock::time_point deadline);
  // Pumps until all roots are synced. For the roots that the paths begin with, as far as the peer
  // has not mounted them by then, it waits for so long at most.
  End awaitRoots(std::vector<std::string> const& paths, Clock::duration patience,
                 Clock::time_point deadline);
  // The same. Throws `CommandError` when the peer is lost or the deadline comes. False when it was
  // stopped.
  bool sync(Clock::time_point deadline, std::vector<std::string> const& paths = {},
            Clock::duration patience = kRootPatience);
  // Waits without a connection. False when it was stopped.
  [[nodiscard]] bool pause(Clock::time_point until) const;

 private:
  [[nodiscard]] bool hasRootsOf(std::vector<std::string> const& paths) const;
  // One poll; false when all is to end.
  [[nodiscard]] bool waitFor(int fd, bool forWriting, Clock::time_point until) const;

  Options options_;
  Zol::Ptr<Connection> connection_;
};

}  // namespace RailSeq
