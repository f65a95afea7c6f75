// What goes on with one peer.
#include "railseq/attach/served_peer.h"

#include <sys/socket.h>

#include <array>
#include <cerrno>

#include "railseq/base/wording.h"

namespace RailSeq {

using Zol::NboAttrLog::ConnectionState;

bool ServedPeer::isUnknown() const {
  return stage_ == Stage::greeting ||
         (stage_ == Stage::attached && connection_->state() == ConnectionState::connecting);
}

std::string ServedPeer::name() const {
  if (!connection_ || connection_->peerName().empty()) return name_;
  return name_ + " (" + printable(connection_->peerName().view()) + ")";
}

int ServedPeer::fd() const { return connection_ ? connection_->fd() : socket_.get(); }

bool ServedPeer::wantsWrite() const {
  return connection_ ? connection_->wantsWrite() : stage_ == Stage::reporting;
}

bool ServedPeer::hasGreeted() {
  std::array<char, kHealthRequest.size()> first{};
  ssize_t const count = ::recv(socket_.get(), first.data(), first.size(), MSG_PEEK);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return false;
  std::string_view const bytes(first.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
  if (bytes.empty()) {
    end("the peer has gone");
    return false;
  }
  wantsReport_ = bytes == kHealthRequest;
  isHalfGreeted_ = !wantsReport_ && kHealthRequest.starts_with(bytes);
  return !isHalfGreeted_;
}

void ServedPeer::attach(Zol::NboAttrLog::ConnectionOptions options) {
  connection_ = Connection::overFd(socket_.release(), std::move(options));
  stage_ = Stage::attached;
}

void ServedPeer::report(std::string document) {
  document_ = std::move(document);
  stage_ = Stage::reporting;
  std::array<char, kHealthRequest.size()> request{};
  (void)::recv(socket_.get(), request.data(), request.size(), 0);
}

bool ServedPeer::turn() {
  if (stage_ == Stage::reporting) return sendReport();
  if (stage_ != Stage::attached) return false;
  bool const worked = connection_->pump();
  if (!connection_->isOpen()) {
    reason_ = connection_->error();
    stage_ = Stage::ended;
  }
  return worked;
}

bool ServedPeer::sendReport() {
  ssize_t const sent =
      ::send(socket_.get(), document_.data(), document_.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
  if (sent < 0 && (errno == EAGAIN || errno == EINTR)) return false;
  document_.erase(0, sent < 0 ? document_.size() : static_cast<std::size_t>(sent));
  if (document_.empty()) end("");
  return true;
}

void ServedPeer::end(std::string reason) {
  if (connection_) connection_->close(reason);
  socket_ = Fd();
  reason_ = std::move(reason);
  stage_ = Stage::ended;
}

Json healthOf(ServedPeer const& peer) {
  auto const secondsSince = [](Clock::time_point then) {
    auto const passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - then);
    return static_cast<double>(passed.count()) / 1000.0;
  };
  ServedPeer::Connection const& connection = *peer.connection();
  Zol::NboAttrLog::ConnectionCounters const counters = connection.counters();
  Json json = {{"peer", peer.name()},
               {"state", toText(connection.state())},
               {"connectedSeconds", secondsSince(peer.since())},
               {"silentSeconds", secondsSince(connection.lastMessageTime())}};
  if (connection.isOpen()) {
    json["owed"] = Json(connection.owed());
    json["bytesWaiting"] = connection.out()->pending().size();
  } else {
    json["reason"] = peer.reason();
  }
  json["messagesOut"] = counters.messagesOut;
  json["messagesIn"] = counters.messagesIn;
  json["bytesOut"] = counters.bytesOut;
  json["bytesIn"] = counters.bytesIn;
  json["coalesced"] = counters.coalesced;
  json["refused"] = counters.refused;
  json["unknown"] = counters.unknown;
  json["unknownEnums"] = counters.unknownEnums;
  json["unreplicated"] = counters.unreplicated;
  json["dropped"] = counters.dropped;
  return json;
}

}  // namespace RailSeq
