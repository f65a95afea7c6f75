// Attributes of the kind scalar: a number, bool, enumeration or unit.
#pragma once

#include "host/zol/attrlog/entity_adapter.h"
#include "host/zol/attrlog/wire_forms.h"

namespace Zol::NboAttrLog {

using MessageToken = Zol::Connection::Out::TransactToken;

// The payload's length where the header tells it; 0 for the other types.
template <class T>
inline constexpr std::uint32_t kFixedSize = 0;
template <>
inline constexpr std::uint32_t kFixedSize<bool> = 1;
template <>
inline constexpr std::uint32_t kFixedSize<std::uint32_t> = 4;

// A number without an enumerator is counted and applied as it came.
template <class A>
struct Scalar {
  using Value = typename A::Value;

  static void changed(EntityAdapter& adapter) {
    Hearing const hearing = adapter.hearing(kRow);
    if (hearing == Hearing::ignores) return;
    EntityAdapter::ApplyingEnd const end(adapter);
    Ptr<Out> const out = adapter.nboAttrLogOut();
    if (hearing != Hearing::sends || !adapter.mayLeave(kRow, *out)) return;
    constexpr std::uint32_t kSize = kFixedSize<Value>;
    out->nextHeaderIs({adapter.entityId(), A::kId, kSize == 0, kSize, 0, false});
    out << MessageToken::open;
    WireForm<Value>::write(out, A::get(holder(adapter)));
    out << MessageToken::close;
  }

  static void react(EntityAdapter& adapter, void*) { A::react(A::adapter(adapter)); }

  static void apply(EntityAdapter& adapter, Inbound& message) {
    Value const value = WireForm<Value>::read(message.in);
    requireEnd(message);
    if (!message.applies) return react(adapter, nullptr);
    A::set(holder(adapter), value);
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
