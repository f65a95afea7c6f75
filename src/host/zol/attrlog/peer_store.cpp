#include "host/zol/attrlog/peer_store.h"

#include <vector>

#include "host/zol/registry/zol_type.h"

namespace Zol::NboAttrLog {

namespace {

// Never freed: what is kept may outlast anything that its end would need.
std::map<Name, Ptr<PeerStore>>& stores() {
  static auto& theStores = *new std::map<Name, Ptr<PeerStore>>;
  return theStores;
}

bool isSame(Entity const& a, Entity const& b) {
  ZolType::SameFn const same = a.fwkType()->sameFn();
  return !same || same(a, b);
}

}  // namespace

Ptr<PeerStore> PeerStore::of(Name const& peer) {
  if (peer.empty()) return new PeerStore;
  Ptr<PeerStore>& store = stores()[peer];
  if (!store) store = new PeerStore;
  return store;
}

void PeerStore::forget(Name const& peer) {
  auto const found = stores().find(peer);
  if (found == stores().end()) return;
  Ptr<PeerStore> const store = found->second;
  store->settled();
  if (store->kept_.empty()) stores().erase(found);
}

Ptr<Entity> PeerStore::taken(Ptr<Entity> const& made, Connection* user) {
  std::pair<ZolType const*, Name> const key(made->fwkType(), made->name());
  auto const [first, last] = kept_.equal_range(key);
  for (auto it = first; it != last; ++it) {
    if (it->second.user || !isSame(*it->second.entity, *made)) continue;
    it->second.user = user;
    return it->second.entity;
  }
  kept_.emplace(key, Kept{made, user});
  return made;
}

void PeerStore::keptIs(Ptr<Entity> const& entity, Connection* user) {
  gone(*entity);
  kept_.emplace(std::pair(entity->fwkType(), entity->name()), Kept{entity, user});
}

Connection* PeerStore::userOf(ZolType const* type, Name const& name) const {
  auto const [first, last] = kept_.equal_range({type, name});
  for (auto it = first; it != last; ++it) {
    if (it->second.user) return it->second.user;
  }
  return nullptr;
}

void PeerStore::released(Connection const* user) {
  for (auto& [key, kept] : kept_) {
    if (kept.user == user) kept.user = nullptr;
  }
}

void PeerStore::gone(Entity const& entity) {
  auto const [first, last] = kept_.equal_range({entity.fwkType(), entity.name()});
  for (auto it = first; it != last; ++it) {
    if (it->second.entity.get() != &entity) continue;
    Ptr<Entity> const hold = it->second.entity;
    kept_.erase(it);
    return;
  }
}

void PeerStore::emptyDel(Name const& peer) {
  constexpr std::uint32_t kTableAndCaller = 2;
  auto const found = stores().find(peer);
  if (found == stores().end() || found->second->count() != 0) return;
  if (found->second->references() <= kTableAndCaller) stores().erase(found);
}

// An entity may tell listeners at its end, so nothing ends while the map is walked.
void PeerStore::settled() {
  std::vector<Ptr<Entity>> ending;
  std::erase_if(kept_, [&](auto const& entry) {
    if (entry.second.user) return false;
    ending.push_back(entry.second.entity);
    return true;
  });
}

}  // namespace Zol::NboAttrLog
