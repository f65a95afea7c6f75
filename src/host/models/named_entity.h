// The base of entities that are known by their name alone.
#pragma once

#include "host/zol/entity.h"

namespace Hardware {

// Nothing of it changes. On a log it is announced before the first message that refers to it.
class ZOL_EXPORT NamedEntity : public Zol::Entity {
 public:
  class ZolNboAttrLogSa;

  using Entity::Entity;
  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;
};

}  // namespace Hardware
