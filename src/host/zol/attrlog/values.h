// Attributes of the kind value collection: records under keys.
#pragma once

#include "host/zol/attrlog/collection.h"

namespace Zol::NboAttrLog {

template <class A>
struct Values : Collection<A, Values<A>> {
  using Common = Collection<A, Values<A>>;
  using typename Common::Entry;
  using typename Common::Key;
  using Value = typename A::Value;

  // The reaction to a change of the value under the key; `del`: it has been removed.
  static void changed(EntityAdapter& adapter, Key const& key, Value const& value, bool del) {
    Hearing const hearing = adapter.hearing(kRow);
    if (hearing == Hearing::ignores) return;
    EntityAdapter::ApplyingEnd const end(adapter);
    if (hearing != Hearing::sends) return;
    Ptr<Out> const out = adapter.nboAttrLogOut();
    if (!Common::keyMayLeave(adapter, key, *out)) return;
    if (del) return Common::writeRemoval(adapter, key);
    out->nextHeaderIs({adapter.entityId(), A::kId, true, 0, 0, false});
    out << MessageToken::open;
    WireForm<Key>::write(out, key);
    out << value << MessageToken::close;
  }

  static bool sendEntry(EntityAdapter& adapter, Key const& key, Entry* entry) {
    A::send(A::adapter(adapter), key, entry ? *entry->zolValue() : Value(), entry == nullptr);
    return true;
  }
  static constexpr auto sendDirty = &sendEntry;

  static void apply(EntityAdapter& adapter, Inbound& message) {
    Key key = WireForm<Key>::read(message.in);
    Value const value(&message.in, StreamBogon());
    requireEnd(message);
    if (!message.applies) return Common::react(adapter, &key);
    adapter.streamDemuxer()->requireRoomFor(A::map(Common::holder(adapter)), key);
    typename Common::Confirmed const confirmed(adapter, key);
    A::set(Common::holder(adapter), key, value);
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
                               .transact = &Common::transact,
                               .freeState = &Common::freeState};
};

}  // namespace Zol::NboAttrLog
