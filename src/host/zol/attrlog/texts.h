// Attributes of the kind keyed text: texts under numbers. A long text goes as a run of messages,
// and one run of an entity is under way at a time.
#pragma once

#include "host/zol/attrlog/collection.h"
#include "host/zol/attrlog/text.h"

namespace Zol::NboAttrLog {

template <class A>
struct Texts : Collection<A, Texts<A>> {
  using Common = Collection<A, Texts<A>>;
  using typename Common::Entry;
  using typename Common::Key;

  // The reaction to a change of the text under the key, and its part of a flow-out; `del`: it has
  // been removed. True when all of it has left, or nothing was to send.
  static bool changed(EntityAdapter& adapter, Key const& key, String8 const& value, bool del) {
    Hearing const hearing = adapter.hearing(kRow);
    if (hearing == Hearing::ignores) return false;
    EntityAdapter::ApplyingEnd const end(adapter);
    if (hearing != Hearing::sends) return true;
    // What a message with the whole text takes besides the text, and the room to be left behind it.
    std::size_t const need = del ? kRemovalSize : value.size() + kRemovalSize + sizeof(Key);
    Out const& out = *adapter.nboAttrLogOut();
    bool const shortOfRoom = out.freeSpace() < need + kDirectTextRoom;
    LevelFlowOut* const flow = adapter.has(flagNoFlowOut) ? nullptr : adapter.levelFlow();
    bool const scheduled = adapter.has(flagScheduledFlowOut);
    if (flow && !scheduled) {
      if (flow->attrId() == A::kId && flow->valueKeyIs(key)) {
        restart(adapter, *flow, key, value, del);
        return false;
      }
      bool const leaves = adapter.prepareImmediateTransmission(A::kId, false);
      if (!leaves || shortOfRoom || need > kMaxMessageSize) {
        Common::keyOwed(adapter, key);
        return false;
      }
    }
    if (!del) return run(adapter, flow, key, value, need);
    if (shortOfRoom && !scheduled && !flow) {
      if (adapter.flowFor(A::kId)) Common::keyOwed(adapter, key);
      return false;
    }
    Common::writeRemoval(adapter, key);
    return true;
  }

  static bool sendEntry(EntityAdapter& adapter, Key const& key, Entry* entry) {
    return A::send(A::adapter(adapter), key, entry ? *entry->zolValue() : String8(), !entry);
  }
  static constexpr auto sendDirty = &sendEntry;

  // The run that is under way comes before anything else of the collection; its text is the one
  // that it began with. What the peer has put in its place meanwhile is owed behind it.
  static bool runEnds(EntityAdapter& adapter, LevelFlowOut& flow) {
    if (flow.attrId() != A::kId || !flow.hasValueKey()) return true;
    Key const key = std::get<Key>(flow.valueKeyDeq());
    String8 const text = flow.hasValueIter() ? flow.valueText() : String8();
    bool const sent = A::send(A::adapter(adapter), key, String8(), false);
    Entry const* const entry = Common::entryAt(adapter, key);
    if (!sent || !entry || *entry->zolValue() != text) {
      Common::dirty(flow).dirtyIs(key);
      return sent;
    }
    Common::dirty(flow).dirtyDel(key);
    return true;
  }

  static void apply(EntityAdapter& adapter, Inbound& message) {
    ConnectionInSizeAnchor const bound(&message.in, message.size);
    Key key = WireForm<Key>::read(message.in);
    adapter.channelModeIs(MsgChannel::Mode::applied);
    if (!message.applies) return Common::react(adapter, &key);
    bool const goesOn = message.flow && message.flow->idxMatches(key);
    String8::Iterator whole;
    String8::Iterator& text = goesOn ? message.flow->iterFor(A::kId) : whole;
    if (message.size != 0) chunkRead(message, text);
    adapter.streamDemuxer()->requireRoomFor(A::map(Common::holder(adapter)), key);
    // A text under way confirms the one that it will take the place of.
    typename Common::Confirmed const confirmed(adapter, key);
    Ptr<Demuxer> const demuxer = adapter.streamDemuxer();
    EntityId const entityId = adapter.entityId();
    if (text.position() != 0) {
      if (!goesOn) {
        message.flow = demuxer->flowInIs(entityId);
        message.flow->idxIs(key);
        message.flow->iterIs(A::kId, std::move(text));
      }
      demuxer->partialTextGrew(*message.flow);
      return;
    }
    A::set(Common::holder(adapter), key, text.text());
    if (!goesOn) return;
    message.flow->iterDel();
    message.flow->idxDel();
    demuxer->flowInDel(entityId);
  }

  static bool transact(EntityAdapter& adapter, LogRow::TransactionType type, FlowIn* flow) {
    if (type != LogRow::TransactionType::abort) return Common::transact(adapter, type, flow);
    if (flow) {
      flow->iterDel();
      flow->idxDel();
    }
    return true;
  }

  static void freeState(FlowOut& flow) {
    flow.bookmarkFree();
    flow.valueDeq();
    flow.valueKeyFree();
  }

  static constexpr LogRow kRow{.id = A::kId,
                               .kind = LogRow::Kind::collection,
                               .bit = A::kBit,
                               .attr = A::kCached,
                               .react = &Common::react,
                               .apply = &apply,
                               .answer = &Common::answer,
                               .remove = &Common::remove,
                               .serialize = &Common::serialize,
                               .transact = &transact,
                               .freeState = &freeState};

 private:
  // A removal's message, and that of a text without its bytes and its key.
  static constexpr std::size_t kRemovalSize = 33;

  // The text under way is obsolete: an abort goes out, and then the new text or the removal.
  static void restart(EntityAdapter& adapter, LevelFlowOut& flow, Key const& key,
                      String8 const& value, bool del) {
    flow.pendingAbortIs(A::kId, true);
    flow.valueDeq();
    if (del) {
      flow.valueKeyFree();
    } else {
      flow.valueEnq(String8::IteratorConst(value));
    }
    Common::keyOwed(adapter, key);
  }

  static bool run(EntityAdapter& adapter, LevelFlowOut* flow, Key const& key, String8 const& value,
                  std::size_t need) {
    Ptr<Out> const out = adapter.nboAttrLogOut();
    bool const resumed = flow && adapter.has(flagScheduledFlowOut) && flow->hasValueIter();
    String8::IteratorConst position = resumed ? flow->valueDeq() : String8::IteratorConst(value);
    if (position.position() != 0 && position.atEnd()) return true;
    std::size_t const room = std::min(need, out->maxMessageSize());
    bool started = false;
    for (;;) {
      bool const goes = flow ? adapter.continueFlowOut() && room <= out->freeSpace()
                             : !started && out->freeSpace() >= kDirectTextRoom;
      if (!goes) break;
      writeChunk(adapter, *out, key, position);
      started = true;
      if (position.atEnd()) return true;
    }
    if (!flow) {
      flow = adapter.flowFor(A::kId);
      if (!flow) return false;
      Common::keyOwed(adapter, key);
      flow->outstandingKeysIs(1);
    } else if (!adapter.has(flagScheduledFlowOut)) {
      Common::keyOwed(adapter, key);
    }
    flow->valueEnq(position);
    flow->valueKeyEnq(key);
    return false;
  }

  static void writeChunk(EntityAdapter& adapter, Out& out, Key const& key,
                         String8::IteratorConst& position) {
    OutPtr const to(&out);
    to->nextHeaderIs({adapter.entityId(), A::kId, true, 0, 0, false});
    to << MessageToken::open;
    WireForm<Key>::write(to, key);
    std::size_t const former = to->chunkLimit();
    to->chunkLimitIs(kMaxChunk);
    to->chunkIs(position);
    to << MessageToken::close;
    to->chunkLimitIs(former);
  }
};

}  // namespace Zol::NboAttrLog
