// What is kept of a peer beyond a connection: the roots and the other entities without a parent
// that it has announced.
#pragma once

#include <map>

#include "host/zol/entity.h"

namespace Zol::NboAttrLog {

// The entities received from one peer, so that a peer that comes back finds its replicas as it left
// them: references resolve to the same objects, and listeners hear only what has changed meanwhile.
// An entity is in use by at most one connection.
class ZOL_EXPORT PeerStore final : public PtrInterface {
 public:
  // What the process keeps of the peer with this name, made if there is nothing. What is kept of a
  // peer without a name ends with its connection.
  static Ptr<PeerStore> of(Name const& peer);
  // Lets go of all that is kept of the peer and in use by no connection.
  static void forget(Name const& peer);

  // Gives the kept entity that `made`, just received, is the same as, or else `made`, which is kept
  // from now on. `user` uses it until it is released.
  Ptr<Entity> taken(Ptr<Entity> const& made, Connection* user);
  // Keeps an entity that `user` has received as a child and uses without its holder now.
  void keptIs(Ptr<Entity> const& entity, Connection* user);
  // The connection that uses an entity of this type and name, or null.
  [[nodiscard]] Connection* userOf(ZolType const* type, Name const& name) const;
  // The connection has ended; all that it used stays.
  void released(Connection const* user);
  // Drops the store of this name when nothing is kept in it and nobody but the caller holds it.
  static void emptyDel(Name const& peer);
  [[nodiscard]] std::size_t count() const noexcept { return kept_.size(); }
  // The peer says that the entity has gone.
  void gone(Entity const& entity);
  // The peer has announced all that it has: lets go of what no connection uses.
  void settled();

 private:
  struct Kept {
    Ptr<Entity> entity;
    Connection* user;
  };

  std::multimap<std::pair<ZolType const*, Name>, Kept> kept_;
};

}  // namespace Zol::NboAttrLog
