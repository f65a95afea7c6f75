// A process that hosts trees, as the test itself: it decides when what happens.
#pragma once

#include "hwrailseq.h"

#include <poll.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "railseq/attach/address.h"

namespace RailSeq {

// Does something only while the test waits in `until`.
class TestHost {
 public:
  explicit TestHost(std::string const& address) : listener_(parseAddress(address)) {}

  // For each peer that there is, and that comes.
  void mount(Zol::Ptr<Zol::Entity> const& root) {
    roots_.push_back(root);
    for (auto const& peer : peers_) mount(*peer, root);
  }
  [[nodiscard]] std::size_t peers() const { return peers_.size(); }
  // False when the condition does not come to hold.
  [[nodiscard]] bool until(std::function<bool()> const& condition) {
    for (auto const end = Clock::now() + std::chrono::seconds(20); Clock::now() < end;) {
      turn();
      if (condition()) return true;
      ::poll(nullptr, 0, 2);
    }
    return false;
  }
  // Takes in no more peers than these.
  std::size_t mostPeers = 100;

 private:
  using Connection = Zol::NboAttrLog::Connection;
  using MountOptions = Zol::NboAttrLog::MountOptions;

  static void mount(Connection& peer, Zol::Ptr<Zol::Entity> const& root) {
    peer.mountIs(root, {MountOptions::writableByPeer});
  }
  void turn() {
    while (peers_.size() < mostPeers) {
      std::optional<Listener::Peer> peer = listener_.accept();
      if (!peer) break;
      peers_.push_back(Connection::overFd(peer->socket.release(), {.ownName = "test"}));
      for (auto const& root : roots_) mount(*peers_.back(), root);
    }
    for (auto const& peer : peers_) {
      while (peer->pump()) {
      }
    }
  }

  Listener listener_;
  std::vector<Zol::Ptr<Zol::Entity>> roots_;
  std::vector<Zol::Ptr<Connection>> peers_;
};

}  // namespace RailSeq
