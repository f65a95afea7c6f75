// Attributes of the kind reference: an entity that somebody else owns, or none.
#pragma once

#include "host/zol/attrlog/scalar.h"

namespace Zol::NboAttrLog {

// Begins the message again as long as `write` meets `AttrLogRecordException`. Calls `owe()` when
// the entity that it refers to has no id on this log yet.
template <class Write, class Owe>
void writeReference(Write&& write, Owe&& owe) {
  Expect const scope(48);
  for (;;) {
    try {
      return write();
    } catch (AttrLogRecordException const&) {
      continue;
    } catch (EntityIdUnavailableException const&) {
      return owe();
    }
  }
}

// The id of what an attribute refers to; 0 for null.
[[nodiscard]] inline std::uint64_t referenceId(OutPtr const& out, Entity const* entity) {
  return entity ? const_cast<Entity*>(entity)->entityId(out, false, true, true) : 0;
}

template <class A>
struct Reference {
  static void changed(EntityAdapter& adapter) {
    Hearing const hearing = adapter.hearing(kRow);
    if (hearing == Hearing::ignores) return;
    EntityAdapter::ApplyingEnd const end(adapter);
    Ptr<Out> const out = adapter.nboAttrLogOut();
    if (hearing != Hearing::sends || !adapter.mayLeave(kRow, *out)) return;
    auto const write = [&] {
      auto const referred = A::get(holder(adapter));
      std::uint64_t const id = referenceId(out, referred.get());
      out->nextHeaderIs({adapter.entityId(), A::kId, true, 0, 0, false});
      out << MessageToken::open;
      out->u64Is(id);
      out << MessageToken::close;
    };
    writeReference(write, [&] {
      LevelFlowOut* const flow = adapter.flowFor(A::kId);
      if (!flow) return;
      adapter.attributeOwed(kRow);
      flow->blockedIs(true);
    });
  }

  static void react(EntityAdapter& adapter, void*) { A::react(A::adapter(adapter)); }

  static void apply(EntityAdapter& adapter, Inbound& message) {
    auto const referred = message.in.nextEntity<typename A::Value>();
    requireEnd(message);
    if (!message.applies) return react(adapter, nullptr);
    adapter.channelModeIs(MsgChannel::Mode::applied);
    A::set(holder(adapter), referred);
  }

  static auto& holder(EntityAdapter& adapter) {
    return static_cast<typename A::Holder&>(*adapter.entity());
  }

  static constexpr LogRow kRow{.id = A::kId,
                               .kind = LogRow::Kind::scalar,
                               .bit = A::kBit,
                               .attr = A::kCached,
                               .react = &react,
                               .apply = &apply};
};

}  // namespace Zol::NboAttrLog
