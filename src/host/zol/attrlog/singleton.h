// Attributes of the kind child singleton: one entity made and owned by the holder, or none.
#pragma once

#include "host/zol/attrlog/parameters.h"
#include "host/zol/attrlog/reference.h"

namespace Zol::NboAttrLog {

template <class A>
struct Singleton {
  using Member = typename A::Member;

  static void changed(EntityAdapter& adapter) {
    Hearing const hearing = adapter.hearing(kRow);
    if (hearing == Hearing::ignores) return;
    EntityAdapter::ApplyingEnd const end(adapter);
    if (hearing == Hearing::silent) return;
    Ptr<Member> const child = A::get(holder(adapter));
    if (hearing == Hearing::adopts) return adapter.adopt(child);
    Ptr<Out> const out = adapter.nboAttrLogOut();
    if (!adapter.mayLeave(kRow, *out)) return;
    if (!child) {
      out->nextHeaderIs({adapter.entityId(), -A::kId, false, 0, 0, false});
      out << MessageToken::open << MessageToken::close;
      return;
    }
    writeReference([&] { adapter.childLeaves(kRow, *child); },
                   [&] {
                     LevelFlowOut* const flow = adapter.flowFor(A::kId);
                     if (!flow) return;
                     adapter.attributeOwed(kRow);
                     flow->blockedIs(true);
                   });
  }

  // For `<attr>NboAttrLogAdapterIs`.
  static LogRow::AdapterPtr announceIs(EntityAdapter& adapter, Entity::Zol_BitSet flags,
                                       Ptr<Member> const& child, unsigned int n, OutPtr const& out,
                                       PtrInterface* msgChannelEntry) {
    return adapter.announceChild(A::kId, flags, *child, n, out, msgChannelEntry,
                                 &Parameters<Member>::write);
  }

  static void react(EntityAdapter& adapter, void*) { A::react(A::adapter(adapter)); }

  static void apply(EntityAdapter& adapter, Inbound& message) {
    auto const parameters = Parameters<Member>::read(
        message.in, [&] { adapter.channelModeIs(MsgChannel::Mode::applied); });
    EntityAdapter::skipToChildId(message);
    if (!message.applies) return react(adapter, nullptr);
    auto const make = [&] {
      std::apply([&](auto const&... parameter) { A::make(holder(adapter), parameter...); },
                 parameters);
    };
    EntityId const id = EntityAdapter::peekEntityId(message);
    adapter.streamDemuxer()->requireNotAnother(id, A::get(holder(adapter)).get());
    {
      MsgChannel::DeserializingEidAnchor const anchor(id, adapter.entity());
      make();
    }
    // The mutator that changed nothing told nobody; the child is adopted all the same, or replaced.
    if (adapter.has(flagApplying)) {
      Ptr<Member> const present = A::get(holder(adapter));
      EntityId const again = EntityAdapter::peekEntityId(message);
      if (adapter.streamDemuxer()->checkEphemeralEntityDeletion(present.get(), again, false)) {
        A::del(holder(adapter));
        adapter.flagsIs(flagApplying, true);
        make();
      } else {
        react(adapter, nullptr);
      }
    }
    adapter.channelModeIs(MsgChannel::Mode::applied);
  }

  static void clear(EntityAdapter& adapter, Inbound& message) {
    requireEnd(message);
    if (!message.applies) return react(adapter, nullptr);
    if (!message.prefixOnly && adapter.isRemovalOfTwin(A::get(holder(adapter)).get())) return;
    A::del(holder(adapter));
  }

  static bool transact(EntityAdapter& adapter, LogRow::TransactionType type, FlowIn*) {
    if (type == LogRow::TransactionType::begin) {
      adapter.childStale(A::get(holder(adapter)).get());
    }
    return true;
  }

  static LogRow::AdapterPtr announce(EntityAdapter& adapter, Entity::Zol_BitSet flags,
                                     Entity& child) {
    return A::announce(A::adapter(adapter), flags, Ptr<Member>(dynamic_cast<Member*>(&child)), 1,
                       adapter.nboAttrLogOut(), adapter.msgChannelEntry());
  }
  static void dropAdapters(EntityAdapter& adapter) {
    A::drop(A::adapter(adapter), A::get(holder(adapter)));
  }

  static auto& holder(EntityAdapter& adapter) {
    return static_cast<typename A::Holder&>(*adapter.entity());
  }

  static constexpr LogRow kRow{.id = A::kId,
                               .kind = LogRow::Kind::scalar,
                               .bit = A::kBit,
                               .attr = A::kCached,
                               .react = &react,
                               .apply = &apply,
                               .remove = &clear,
                               .transact = &transact,
                               .announce = &announce,
                               .dropAdapters = &dropAdapters};
};

}  // namespace Zol::NboAttrLog
