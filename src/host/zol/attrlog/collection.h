// What all keyed attributes have in common on a log: whether a change of one key may leave, the
// walk of a collection that is owed, and the marks of a transaction.
#pragma once

#include "host/zol/attrlog/reference.h"

namespace Zol::NboAttrLog {

template <class Map>
struct MapTraits;
template <class EntryClass, class KeyClass, class ValueClass>
struct MapTraits<HashMap<EntryClass, KeyClass, ValueClass>> {
  using Entry = EntryClass;
  using Key = KeyClass;
  using Dirty = DirtyKeys<KeyClass, true>;
};
template <class EntryClass, class KeyClass, class ValueClass>
struct MapTraits<RbTreeMap<EntryClass, KeyClass, ValueClass>> {
  using Entry = EntryClass;
  using Key = KeyClass;
  using Dirty = DirtyKeys<KeyClass, false>;
};

// What is the same for the kinds of keyed attributes. `Kind` has the row, and
// `sendEntry( adapter, key, entry or null )`, which calls the reaction to one member and tells
// whether nothing more of that member is owed.
template <class A, class Kind>
struct Collection {
  using Map = std::remove_cvref_t<decltype(A::map(std::declval<typename A::Holder const&>()))>;
  using Key = typename MapTraits<Map>::Key;
  using Entry = typename MapTraits<Map>::Entry;
  using Dirty = typename MapTraits<Map>::Dirty;

  static auto& holder(EntityAdapter& adapter) {
    return static_cast<typename A::Holder&>(*adapter.entity());
  }
  static Entry* entryAt(EntityAdapter& adapter, Key const& key) {
    return A::map(holder(adapter))[key];
  }
  static Dirty& dirty(LevelFlowOut& flow) { return flow.dirty<Dirty>(A::kId); }

  static void react(EntityAdapter& adapter, void* key) {
    A::react(A::adapter(adapter), *static_cast<Key*>(key));
  }
  static bool serialize(EntityAdapter& adapter) { return A::serialize(A::adapter(adapter)); }
  static void freeState(FlowOut& flow) { flow.bookmarkFree(); }

  // The reaction to a change of the member under the key.
  static void keyChanged(EntityAdapter& adapter, Key const& key) {
    Kind::sendEntry(adapter, key, Ptr<Entry>(entryAt(adapter, key)).get());
  }

  // Whether a message about the key may leave now; when not, the key is owed.
  static bool keyMayLeave(EntityAdapter& adapter, Key const& key, Out const& out) {
    if (adapter.has(flagNoFlowOut)) {
      if (adapter.mayLeaveDirectly(A::kId, out)) return true;
    } else if (adapter.prepareImmediateTransmission(A::kId, false) && out.hasSufficientBuffer()) {
      dirty(*adapter.levelFlow()).dirtyDel(key);
      return true;
    }
    keyOwed(adapter, key);
    return false;
  }
  static void keyOwed(EntityAdapter& adapter, Key const& key) {
    LevelFlowOut* const flow = adapter.levelFlow();
    if (!flow) return;
    if (!dirty(*flow).dirtyIs(key)) return adapter.streamDemuxer()->coalescedInc();
    if (dirty(*flow).map().count() > kFewKeys + 2 * A::map(holder(adapter)).count()) {
      walkOwed(adapter, *flow);
    }
  }
  // The member refers to an entity without an id on this log.
  static void keyWaits(EntityAdapter& adapter, Key const& key) {
    LevelFlowOut* const flow = adapter.flowFor(A::kId);
    if (!flow) return;
    keyOwed(adapter, key);
    flow->blockedIs(true);
  }

  // Writes the message that removes the member under the key.
  static void writeRemoval(EntityAdapter& adapter, Key const& key) {
    Ptr<Out> const out = adapter.nboAttrLogOut();
    out->nextHeaderIs({adapter.entityId(), -A::kId, true, 0, 0, false});
    out << MessageToken::open;
    WireForm<Key>::write(out, key);
    out << MessageToken::close;
  }

  static void remove(EntityAdapter& adapter, Inbound& message) {
    Key key = WireForm<Key>::read(message.in);
    requireEnd(message);
    if (!message.applies) return react(adapter, &key);
    A::del(holder(adapter), key);
  }

  // Any message about a member begins with its key.
  static void answer(EntityAdapter& adapter, Inbound& message) {
    Key key = WireForm<Key>::read(message.in);
    react(adapter, &key);
  }

  // Sends what is owed of the collection: all members inside a bracket, and then the dirty keys.
  // True when nothing of it is owed any more.
  static bool owed(EntityAdapter& adapter) {
    Hearing const hearing = adapter.hearing(Kind::kRow);
    if (hearing != Hearing::sends) return hearing != Hearing::ignores;
    Ptr<LevelFlowOut> const flow(adapter.levelFlow());
    Map const& map = A::map(holder(adapter));
    if (!flow) {
      for (Walk it(&map); it; ++it) Kind::sendEntry(adapter, it.key(), it.entry());
      return true;
    }
    if (!Kind::runEnds(adapter, *flow)) return false;
    bool const onlyKeys = (flow->zolDataBits() & FlowOut::kOnlyDirtyKeys) != 0;
    if (!onlyKeys && !flow->bit(A::kBit)) {
      bool const goesOn = flow->hasBookmarkOf(A::kId);
      if (!goesOn) adapter.sendTransactionMarker(A::kId, LogRow::TransactionType::begin, 0);
      Walk it = goesOn ? Walk::notBefore(&map, flow->bookmarkDeq<Key>()) : Walk(&map);
      while (it) {
        bool const done = Kind::sendEntry(adapter, it.key(), it.entry());
        bool const blocked = flow->blocked();
        if (!blocked) {
          settle(*flow, it.key(), done);
          ++it;
          if (adapter.continueFlowOut()) continue;
        }
        if (it) {
          flow->bookmarkEnq(A::kId, it.key());
          return false;
        }
        adapter.sendTransactionMarker(A::kId, LogRow::TransactionType::end, 0);
        flow->bitIs(A::kBit, true);
        return dirty(*flow).empty();
      }
    }
    if (flow->attrId() != A::kId) return true;
    if (!flow->bit(A::kBit)) {
      flow->bitIs(A::kBit, true);
      adapter.sendTransactionMarker(A::kId, LogRow::TransactionType::end, 0);
    }
    return dirtyKeysLeave(adapter, *flow);
  }

  // Marks every entry of a collection of values at the begin of a bracket, and takes out at its end
  // what is still marked.
  static bool transact(EntityAdapter& adapter, LogRow::TransactionType type, FlowIn*) {
    if (type == LogRow::TransactionType::begin) {
      repeated(adapter, [](Walk const& it) { it.entry()->zolMarkedForDeletionIs(true); });
    } else if (type == LogRow::TransactionType::end) {
      repeated(adapter, [&](Walk const& it) {
        if (!it.entry()->zolMarkedForDeletion()) return;
        Key const key = it.key();
        adapter.sweep([&] { A::del(holder(adapter), key); });
      });
    }
    return true;
  }

  // Confirms the entry under a key on every way out: what the source sent is never swept, whatever
  // a listener throws.
  class Confirmed {
   public:
    Confirmed(EntityAdapter& adapter, Key const& key) : adapter_(adapter), key_(key) {}
    ~Confirmed() {
      if (!adapter_.entity()) return;
      if (Entry* const entry = entryAt(adapter_, key_)) entry->zolMarkedForDeletionIs(false);
    }
    Confirmed(Confirmed const&) = delete;
    Confirmed& operator=(Confirmed const&) = delete;

   private:
    EntityAdapter& adapter_;
    Key const key_;
  };

 protected:
  using Walk = typename Map::IteratorConst;

  // Visits every entry; all over again when the collection has changed meanwhile.
  template <class Visit>
  static void repeated(EntityAdapter& adapter, Visit const& visit) {
    Map const& map = A::map(holder(adapter));
    std::uint32_t version = 0;
    do {
      version = map.version();
      for (Walk it(&map); it; ++it) visit(it);
    } while (version != map.version());
  }

  static bool runEnds(EntityAdapter&, LevelFlowOut&) { return true; }

 private:
  // So many keys may be owed of any collection, without regard to how many members it has.
  static constexpr std::size_t kFewKeys = 1024;

  // Most of what is owed are removals: a walk of what is there says the same, and keeps no keys.
  // The brackets of a replica take nothing out, so its keys are kept.
  static void walkOwed(EntityAdapter& adapter, LevelFlowOut& flow) {
    if (adapter.isReplica() || adapter.has(flagScheduledFlowOut)) return;
    flow.keysDel(A::kId);
    flow.bitIs(A::kBit, false);
    if (flow.attrId() == A::kId) flow.bookmarkFree();
  }

  static void settle(LevelFlowOut& flow, Key const& key, bool done) {
    if (done) {
      dirty(flow).dirtyDel(key);
    } else {
      dirty(flow).dirtyIs(key);
    }
  }

  static bool dirtyKeysLeave(EntityAdapter& adapter, LevelFlowOut& flow) {
    for (typename Dirty::Map::IteratorConst it(&dirty(flow).map()); it;) {
      if (!adapter.continueFlowOut()) return false;
      Key const key = it.key();
      Ptr<Entry> const entry(entryAt(adapter, key));
      if (!Kind::sendDirty(adapter, key, entry.get()) || flow.blocked()) {
        dirty(flow).dirtyIs(key);
        return false;
      }
      ++it;
      dirty(flow).dirtyDel(key);
    }
    return true;
  }
};

}  // namespace Zol::NboAttrLog
