// One peer of a serving process, from its first bytes on.
#pragma once

#include "hwrailseq.h"

#include <string>

#include "railseq/attach/address.h"
#include "railseq/board/tree_json.h"

namespace RailSeq {

// What a peer sends in place of a hello, which begins with a zero byte, to get a health report: one
// JSON document, and the end of the stream.
inline constexpr std::string_view kHealthRequest = "health\n";

class ServedPeer {
 public:
  using Connection = Zol::NboAttrLog::Connection;

  // The first bytes are awaited; then what they ask for goes on, until it has ended.
  enum class Stage { greeting, attached, reporting, ended };

  explicit ServedPeer(Listener::Peer peer) : name_(std::move(peer.name)) {
    socket_ = std::move(peer.socket);
  }

  [[nodiscard]] Stage stage() const { return stage_; }
  // Has not said what it wants yet, or has not said hello.
  [[nodiscard]] bool isUnknown() const;
  [[nodiscard]] Clock::time_point since() const { return since_; }
  [[nodiscard]] Connection* connection() const { return connection_.get(); }
  // "process 4711", and once it has said hello "process 4711 (railseq watch)".
  [[nodiscard]] std::string name() const;
  // Why it has ended.
  [[nodiscard]] std::string const& reason() const { return reason_; }
  [[nodiscard]] int fd() const;
  [[nodiscard]] bool wantsWrite() const;
  // A part of the first bytes is there, and stays there to be looked at: to poll for it would not
  // wait.
  [[nodiscard]] bool isHalfGreeted() const { return stage_ == Stage::greeting && isHalfGreeted_; }

  // Looks at the first bytes, without taking what is not meant for it; true when they have told
  // what the peer wants: `wantsReport()`, or to attach.
  [[nodiscard]] bool hasGreeted();
  [[nodiscard]] bool wantsReport() const { return wantsReport_; }
  void attach(Zol::NboAttrLog::ConnectionOptions options);
  void report(std::string document);
  // One bounded turn of what goes on; false when there was nothing to do.
  bool turn();
  // Ends it for this reason, which an attached peer is told.
  void end(std::string reason);

  // Whether it was told "attached" of.
  bool isAnnounced = false;

 private:
  bool sendReport();

  std::string name_;
  Fd socket_;
  Clock::time_point since_ = Clock::now();
  Stage stage_ = Stage::greeting;
  bool wantsReport_ = false;
  bool isHalfGreeted_ = false;
  Zol::Ptr<Connection> connection_;
  std::string document_;
  std::string reason_;
};

// What a report says of a peer: who it is, what it is at, what it is owed, its counts.
[[nodiscard]] Json healthOf(ServedPeer const& peer);

}  // namespace RailSeq
