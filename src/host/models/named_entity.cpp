#include "host/models/named_entity.h"

#include "host/zol/attrlog/entity_adapter.h"
#include "host/zol/attrlog/make_adapter.h"
#include "host/zol/attrlog/parameters.h"
#include "host/zol/reactor_adapter.h"

namespace Hardware {

namespace {

constexpr Zol::NboAttrLog::LogLevel kNoRows{};

}  // namespace

class NamedEntity::ZolNboAttrLogSa final : public Zol::NboAttrLog::EntityAdapter {
 public:
  class ZolNboAttrLogSaAdapter_ final
      : public Zol::ReactorAdapter<Zol::Entity::Notifiee, NamedEntity::ZolNboAttrLogSa> {
   public:
    using ReactorAdapter::ReactorAdapter;
  };

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<NamedEntity> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
      : EntityAdapter(flags, n, out, msgChannelEntry) {
    levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()), kNoRows);
  }

  void doSerializeOrphan() override { orphanIs(&Zol::NboAttrLog::Parameters<NamedEntity>::write); }
};

bool NamedEntity::zolHasAttrLogInterface() const { return true; }

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> NamedEntity::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

}  // namespace Hardware
