// Attributes of the kind reference collection: entities that somebody else owns, by their name.
#pragma once

#include "host/zol/attrlog/collection.h"

namespace Zol::NboAttrLog {

template <class A>
struct References : Collection<A, References<A>> {
  using Common = Collection<A, References<A>>;
  using typename Common::Entry;
  using typename Common::Key;
  using Member = typename A::Member;

  // The reaction to a change of the entry under the key; null: it has been removed.
  static void changed(EntityAdapter& adapter, Key const& key, Ptr<Member> const& referred) {
    Hearing const hearing = adapter.hearing(kRow);
    if (hearing == Hearing::ignores) return;
    EntityAdapter::ApplyingEnd const end(adapter);
    if (hearing != Hearing::sends) return;
    Ptr<Out> const out = adapter.nboAttrLogOut();
    if (!Common::keyMayLeave(adapter, key, *out)) return;
    if (!referred) return Common::writeRemoval(adapter, key);
    auto const write = [&] {
      std::uint64_t const id = referenceId(out, referred.get());
      out->nextHeaderIs({adapter.entityId(), A::kId, true, 0, 0, false});
      out << MessageToken::open;
      out->u64Is(id);
      out << MessageToken::close;
    };
    writeReference(write, [&] { Common::keyWaits(adapter, key); });
  }

  static bool sendEntry(EntityAdapter& adapter, Key const& key, Entry* entry) {
    A::send(A::adapter(adapter), key, Ptr<Member>(entry ? entry->zolValue() : nullptr));
    return true;
  }
  static constexpr auto sendDirty = &sendEntry;

  static void apply(EntityAdapter& adapter, Inbound& message) {
    Ptr<Member> const referred = message.in.nextEntity<Member>();
    requireEnd(message);
    Key key = referred ? referred->name() : Key();
    if (!message.applies) return Common::react(adapter, &key);
    adapter.channelModeIs(MsgChannel::Mode::applied);
    typename Common::Confirmed const confirmed(adapter, key);
    A::set(Common::holder(adapter), referred);
  }

  // An entity that this end does not know, or that has another class, has no entry here. Which name
  // it has there is not known, so the peer gets the whole collection.
  static void answer(EntityAdapter& adapter, Inbound& message) {
    if (message.id < 0) return Common::answer(adapter, message);
    Entity* const referred = adapter.streamDemuxer()->entity(message.in.nextEntityId());
    if (!referred) return adapter.walkAgain();
    Key key = referred->name();
    Common::react(adapter, &key);
  }

  static constexpr LogRow kRow{.id = A::kId,
                               .kind = LogRow::Kind::collection,
                               .bit = A::kBit,
                               .attr = A::kCached,
                               .react = &Common::react,
                               .apply = &apply,
                               .answer = &answer,
                               .remove = &Common::remove,
                               .serialize = &Common::serialize,
                               .transact = &Common::transact,
                               .freeState = &Common::freeState};
};

}  // namespace Zol::NboAttrLog
