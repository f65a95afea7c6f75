// A source process and a replica process in one: their trees stay while the connection between them
// breaks and comes back.
#pragma once

#include <hwrailseq.h>

#include <memory>
#include <optional>
#include <vector>

#include "faults/faults.h"

namespace test {

using Zol::Faults::Link;
using Zol::Faults::Plan;
using Zol::NboAttrLog::Connection;
using Zol::NboAttrLog::ConnectionOptions;
using Zol::NboAttrLog::ConnectionState;
using Zol::NboAttrLog::MountOptions;

class LinkUp {
 public:
  using Roots = std::vector<Zol::Ptr<Zol::Entity>>;

  explicit LinkUp(Roots mounts = {}) : roots(std::move(mounts)) {}
  ~LinkUp() {
    link.reset();
    Zol::NboAttrLog::forgetPeer(sourceName);
    Zol::NboAttrLog::forgetPeer("replica");
  }
  LinkUp(LinkUp const&) = delete;
  LinkUp& operator=(LinkUp const&) = delete;

  // A new connection in the place of the present one; mounts the roots.
  void connect(Plan there = {}, Plan back = {}, MountOptions mount = {}) {
    ConnectionOptions left = options;
    ConnectionOptions right = options;
    left.ownName = sourceName;
    left.peerName = "replica";
    right.ownName = "replica";
    right.peerName = sourceName;
    link.emplace(left, right, there, back);
    for (auto const& root : roots) link->left->mountIs(root, mount);
  }
  // The same, and catches up.
  void reconnect() {
    connect();
    link->settle();
  }
  [[nodiscard]] Zol::Ptr<Zol::Entity> mirror(Zol::Entity& root) const {
    return link->right->mounted(root.name());
  }

  Zol::Name sourceName = "source";
  ConnectionOptions options;
  Roots roots;
  std::optional<Link> link;
};

}  // namespace test
