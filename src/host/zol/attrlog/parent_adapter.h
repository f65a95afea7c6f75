// What the adapters of entities with children add: announcing a child, adopting one that the peer
// announces, and walking a collection that is owed.
#pragma once

#include "host/zol/attrlog/entity_adapter.h"

namespace Zol::NboAttrLog {

class ParentAdapter;

// One keyed child attribute.
struct ChildRow {
  AttributeId id;
  // The registered attribute, to name it in a refusal.
  ZolAttr const* (*attr)(AttributeId);
  // The keys owed, in a flow of the class.
  DirtyNames& (*dirty)(FlowOut&);
  // Makes or finds the child's adapter and announces the child.
  Ptr<Entity::ZolNboAttrLogSa> (*announce)(ParentAdapter&, PtrInterface::NotifieeConst::Zol_BitSet,
                                           Entity& child);
};

class ZOL_EXPORT ParentAdapter : public EntityAdapter {
 public:
  ~ParentAdapter() override;

  // Reads what stands behind the constructor parameters of a keyed child, and applies the message:
  // `make` calls the mutator, `react` the reaction, `present` gives the member under the key or
  // null.
  template <class Present, class Make, class React>
  void childArrived(Inbound& message, Present&& present, Make&& make, React&& react);

 protected:
  using EntityAdapter::EntityAdapter;

  // The reaction to a change of the member under `key`; null: it has been removed.
  void childChanged(ChildRow const& row, Name const& key, Ptr<Entity> const& child);
  // Makes or finds the adapter of the child, and writes the announcement unless it needs none.
  // `write` writes the constructor parameters.
  Ptr<Entity::ZolNboAttrLogSa> announceChild(AttributeId id, Zol_BitSet flags, Entity& child,
                                             unsigned int n, OutPtr const& out,
                                             PtrInterface* msgChannelEntry,
                                             void (*write)(OutPtr const&, Entity const&));
  // Takes the child's adapter off its stream; gives it, or null.
  Ptr<Entity::ZolNboAttrLogSa> childAdapterDel(Entity* child);

  // Sends what is owed of a collection: all members inside a bracket, and then the dirty keys.
  // `send( key, member or null )` is the reaction. True when nothing of it is owed any more.
  template <class Map, class Send>
  bool collectionOwed(LogRow const& row, Map const& map, DirtyNames& (*dirtyOf)(FlowOut&),
                      Send&& send);

 private:
  void adopt(Ptr<Entity> const& child);
  [[nodiscard]] bool keyMayLeave(ChildRow const& row, Name const& key, Out const& out);
  void keyOwed(ChildRow const& row, Name const& key);
  // The id that the message announces; it stays in the stream.
  [[nodiscard]] EntityId peekEntityId(Inbound& message);
};

template <class Present, class Make, class React>
void ParentAdapter::childArrived(Inbound& message, Present&& present, Make&& make, React&& react) {
  Expect const scope(16);
  if (!message.applies) return react();
  EntityId const id = peekEntityId(message);
  if (has(flagApplying)) {
    streamDemuxer()->checkEphemeralEntityDeletion(present().get(), id, true);
  }
  {
    MsgChannel::DeserializingEidAnchor const anchor(id, entity());
    make();
  }
  // The mutator that changed nothing told nobody; the child is adopted all the same.
  if (has(flagApplying)) react();
  if (auto const child = present()) child->zolMarkedForDeletionIs(false);
  channelModeIs(MsgChannel::Mode::applied);
}

template <class Map, class Send>
bool ParentAdapter::collectionOwed(LogRow const& row, Map const& map,
                                   DirtyNames& (*dirtyOf)(FlowOut&), Send&& send) {
  using Walk = typename Map::IteratorConst;
  if (has(flagQuiet) || (!has(flagApplying) && handlingFlowInFor(row.id))) return false;
  if (isSilent() || has(flagApplying) || !nboAttrLogOut()) return true;
  requireWritable(row.id, row.attr);
  Ptr<FlowOut> const flow(flowOut());
  if (!flow) {
    for (Walk it(&map); it; ++it) send(it.key(), it.ptr());
    return true;
  }
  DirtyNames& dirty = dirtyOf(*flow);
  bool const onlyKeys = (flow->zolDataBits() & FlowOut::kOnlyDirtyKeys) != 0;
  if (!onlyKeys && !flow->bit(row.bit)) {
    bool const resumed = flow->hasBookmark();
    if (!resumed) sendTransactionMarker(row.id, AttrTransactionType::begin, 0);
    Walk it = resumed ? Walk::notBefore(&map, flow->bookmarkDeq()) : Walk(&map);
    while (it) {
      send(it.key(), it.ptr());
      bool const blocked = flow->blocked();
      if (!blocked) {
        dirty.dirtyDel(it.key());
        ++it;
        if (continueFlowOut()) continue;
      }
      if (it) {
        flow->bookmarkEnq(it.key());
        return false;
      }
      sendTransactionMarker(row.id, AttrTransactionType::end, 0);
      flow->bitIs(row.bit, true);
      return dirty.empty();
    }
  }
  if (flow->attrId() != row.id) return true;
  if (!flow->bit(row.bit)) {
    flow->bitIs(row.bit, true);
    sendTransactionMarker(row.id, AttrTransactionType::end, 0);
  }
  for (DirtyNames::Map::IteratorConst it(&dirty.map()); it;) {
    if (!continueFlowOut()) return false;
    Name const key = it.key();
    Ptr<typename std::remove_pointer_t<decltype(map[key])>> const member(map[key]);
    // The key's debt may have taken in a removal. Where both ends make members, a peer that has one
    // under its own id would take an announcement for that of the same member made at both.
    if (member && !has(flagInReadOnly) && !member->zolNboAttrLogSa(nboAttrLogOut())) {
      send(key, nullptr);
    }
    send(key, member);
    if (flow->blocked()) return false;
    ++it;
    dirty.dirtyDel(key);
  }
  return true;
}

}  // namespace Zol::NboAttrLog
