// Attributes of the kind child collection: entities made and owned by the holder, by key.
#pragma once

#include "host/zol/attrlog/collection.h"
#include "host/zol/attrlog/parameters.h"

namespace Zol::NboAttrLog {

template <class A>
struct Children : Collection<A, Children<A>> {
  using Common = Collection<A, Children<A>>;
  using typename Common::Entry;
  using typename Common::Key;
  using Member = Entry;

  // The reaction to a change of the member under the key; null: it has been removed.
  static void changed(EntityAdapter& adapter, Key const& key, Ptr<Member> const& child) {
    Hearing const hearing = adapter.hearing(kRow);
    if (hearing == Hearing::ignores) return;
    EntityAdapter::ApplyingEnd const end(adapter);
    if (hearing == Hearing::silent) return;
    if (hearing == Hearing::adopts) return adapter.adopt(child);
    if (!Common::keyMayLeave(adapter, key, *adapter.nboAttrLogOut())) {
      LevelFlowOut* const flow = adapter.levelFlow();
      if (!child && flow && !adapter.has(flagInReadOnly)) Common::dirty(*flow).removalIs(key);
      return;
    }
    if (!child) return Common::writeRemoval(adapter, key);
    writeReference([&] { adapter.childLeaves(kRow, *child); },
                   [&] { Common::keyWaits(adapter, key); });
  }

  // For `<attr>NboAttrLogAdapterIs`.
  static LogRow::AdapterPtr announceIs(EntityAdapter& adapter, Entity::Zol_BitSet flags,
                                       Ptr<Member> const& child, unsigned int n, OutPtr const& out,
                                       PtrInterface* msgChannelEntry) {
    return adapter.announceChild(A::kId, flags, *child, n, out, msgChannelEntry,
                                 &Parameters<Member>::write);
  }

  static bool sendEntry(EntityAdapter& adapter, Key const& key, Entry* entry) {
    A::send(A::adapter(adapter), key, Ptr<Member>(entry));
    return true;
  }
  // Where both ends make members, a peer that has one under its own id would take an announcement
  // for that of the same member made at both: the removal that came before is told too.
  static bool sendDirty(EntityAdapter& adapter, Key const& key, Entry* entry) {
    bool const removed = Common::dirty(*adapter.levelFlow()).removalDel(key);
    if (removed && entry && !entry->zolNboAttrLogSa(adapter.nboAttrLogOut())) {
      sendEntry(adapter, key, nullptr);
    }
    return sendEntry(adapter, key, entry);
  }

  static void apply(EntityAdapter& adapter, Inbound& message) {
    auto const parameters = Parameters<Member>::read(
        message.in, [&] { adapter.channelModeIs(MsgChannel::Mode::applied); });
    EntityAdapter::skipToChildId(message);
    Expect const scope(16);
    Key key = std::get<0>(parameters);
    if (!message.applies) return Common::react(adapter, &key);
    EntityId const id = EntityAdapter::peekEntityId(message);
    Ptr<Demuxer> const demuxer = adapter.streamDemuxer();
    if (adapter.has(flagApplying)) {
      // What is refused must be so before the present member gives way.
      demuxer->requireAnnounceable(id, adapter.entity());
      demuxer->checkEphemeralEntityDeletion(Common::entryAt(adapter, key), id, true);
    }
    try {
      MsgChannel::DeserializingEidAnchor const anchor(id, adapter.entity());
      std::apply([&](auto const&... parameter) { A::make(Common::holder(adapter), parameter...); },
                 parameters);
    } catch (NameInUseException const&) {
      // Another entity under the name has an id of its own.
      demuxer->requireNotAnother(id, nullptr);
      throw;
    }
    // The mutator that changed nothing told nobody; the child is adopted all the same.
    if (adapter.has(flagApplying)) Common::react(adapter, &key);
    if (Entry* const child = Common::entryAt(adapter, key)) child->zolMarkedForDeletionIs(false);
    adapter.channelModeIs(MsgChannel::Mode::applied);
  }

  static void remove(EntityAdapter& adapter, Inbound& message) {
    In::Position const start = message.in.position();
    Key const key = WireForm<Key>::read(message.in);
    if (message.applies && !message.prefixOnly &&
        adapter.isRemovalOfTwin(Common::entryAt(adapter, key))) {
      return requireEnd(message);
    }
    message.in.positionIs(start);
    Common::remove(adapter, message);
  }

  static bool transact(EntityAdapter& adapter, LogRow::TransactionType type, FlowIn*) {
    if (type == LogRow::TransactionType::begin) {
      Common::repeated(adapter, [&](auto const& it) { adapter.childStale(it.entry()); });
    } else if (type == LogRow::TransactionType::end) {
      Common::repeated(adapter, [&](auto const& it) {
        Key const key = it.key();
        if (!adapter.isUnconfirmed(*it.entry()) || isStillToBeTold(adapter, key)) return;
        Ptr<Entity> const child(it.entry());
        adapter.sweep([&] { A::del(Common::holder(adapter), key); });
        adapter.streamDemuxer()->sweptIs(child);
      });
      adapter.streamDemuxer()->sweepEnds();
    }
    return true;
  }

  // A replica has made the member and had no room to say so: it is not the source's to take out.
  static bool isStillToBeTold(EntityAdapter& adapter, Key const& key) {
    LevelFlowOut* const flow = adapter.isReplica() ? adapter.levelFlow() : nullptr;
    return flow && Common::dirty(*flow).map()[key];
  }

  static LogRow::AdapterPtr announce(EntityAdapter& adapter, Entity::Zol_BitSet flags,
                                     Entity& child) {
    return A::announce(A::adapter(adapter), flags, Ptr<Member>(dynamic_cast<Member*>(&child)), 1,
                       adapter.nboAttrLogOut(), adapter.msgChannelEntry());
  }
  static void dropAdapters(EntityAdapter& adapter) {
    using Walk = typename Common::Map::IteratorConst;
    for (Walk it(&A::map(Common::holder(adapter))); it; ++it) {
      A::drop(A::adapter(adapter), it.ptr());
    }
  }

  static constexpr LogRow kRow{.id = A::kId,
                               .kind = LogRow::Kind::collection,
                               .bit = A::kBit,
                               .attr = A::kCached,
                               .react = &Common::react,
                               .apply = &apply,
                               .answer = &Common::answer,
                               .remove = &remove,
                               .serialize = &Common::serialize,
                               .transact = &transact,
                               .freeState = &Common::freeState,
                               .announce = &announce,
                               .dropAdapters = &dropAdapters};
};

}  // namespace Zol::NboAttrLog
