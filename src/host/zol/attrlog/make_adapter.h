// How every entity class makes or finds its adapter on a stream.
#pragma once

#include "host/zol/attrlog/stream_adapter.h"

namespace Zol {

// The adapter of `entity` on `out`, of class `X::ZolNboAttrLogSa`. One that exists takes the flags;
// one of another class is dropped and replaced. Throws `RangeException` "null ValidPtr" for a null
// `out`.
template <class X>
Ptr<Entity::ZolNboAttrLogSa> adapterIs(X& entity, Entity::Zol_BitSet flags, unsigned int n,
                                       Ptr<NboAttrLog::Out> const& out,
                                       PtrInterface* msgChannelEntry) {
  using Adapter = typename X::ZolNboAttrLogSa;
  if (!out) throwRangeException("null ValidPtr");
  Ptr<NboAttrLog::Out const> const stream(out);
  if (Ptr<Entity::ZolNboAttrLogSa> const existing = entity.Entity::zolNboAttrLogSa(stream)) {
    if (dynamic_cast<Adapter*>(existing.get())) {
      existing->notificationFlagsIs(flags);
      return existing;
    }
    entity.zolNboAttrLogSaDel(stream);
  }
  Ptr<Adapter> const adapter(new Adapter(flags, Ptr<X>(&entity), n, out, msgChannelEntry));
  adapter->hasNotificationActiveIs(true);
  return adapter;
}

}  // namespace Zol
