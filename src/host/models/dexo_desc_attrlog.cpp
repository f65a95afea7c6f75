// The stream adapters of the descriptors.
#include "host/models/dexo_desc.h"
#include "host/models/parameters.h"
#include "host/zol/attrlog/kinds.h"
#include "host/zol/registry/zol_type.h"

namespace I2cDexo {

namespace {

constexpr Zol::NboAttrLog::LogLevel kNoRows{};

}  // namespace

class DexoDesc::ZolNboAttrLogSa final : public Zol::NboAttrLog::EntityAdapter {
 public:
  class ZolNboAttrLogSaAdapter_ final
      : public Zol::ReactorAdapter<DexoDesc::Notifiee, DexoDesc::ZolNboAttrLogSa> {
   public:
    using ReactorAdapter::ReactorAdapter;
  };

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<DexoDesc> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
      : EntityAdapter(flags, n, out, msgChannelEntry) {
    levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()), kNoRows);
  }

  void doSerializeOrphan() override { orphanIs(&Zol::NboAttrLog::Parameters<DexoDesc>::write); }
};

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> DexoDesc::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

}  // namespace I2cDexo

namespace SmbusDexo {

class DexoDesc::ZolNboAttrLogSa final : public Zol::NboAttrLog::EntityAdapter {
 public:
  class ZolNboAttrLogSaAdapter_;
  using FlowOut = Zol::NboAttrLog::LevelFlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<DexoDesc> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
  void doSerializeOrphan() override { orphanIs(&Zol::NboAttrLog::Parameters<DexoDesc>::write); }

#include "host/zol/stamp/stamp_reaction_slots.h"
#include "host/models/smbus_dexo_desc.def"
};

using Model = DexoDesc;
using Sa = DexoDesc::ZolNboAttrLogSa;

namespace {

using Zol::NboAttrLog::DirtyBit;

Zol::ZolAttr const* cachedAttr(Zol::AttributeId id) { return Model::_fwkType()->attr(id); }

template <Zol::AttributeId id>
using AccessTo =
    Zol::NboAttrLog::AttributeAccess<Sa, Model, id, DirtyBit::of(0, Model::Id::lobusAccelId, id),
                                     &cachedAttr>;

#include "host/zol/stamp/stamp_access.h"
#include "host/models/smbus_dexo_desc.def"

constexpr Zol::NboAttrLog::LogRow kRows[] = {
#include "host/zol/stamp/stamp_log_rows.h"
#include "host/models/smbus_dexo_desc.def"
};
constexpr Zol::NboAttrLog::LogLevel kLevel{kRows};

}  // namespace

class Sa::ZolNboAttrLogSaAdapter_ final : public Zol::ReactorAdapter<Model::Notifiee, Sa> {
 public:
  using ReactorAdapter::ReactorAdapter;
  using Listener = Model::NotifieeConst;
#include "host/zol/stamp/stamp_forwards.h"
#include "host/models/smbus_dexo_desc.def"
};

Sa::ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<Model> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
    : EntityAdapter(flags, n, out, msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()), kLevel);
}

#include "host/zol/stamp/stamp_reactions.h"
#include "host/models/smbus_dexo_desc.def"

Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> DexoDesc::zolNboAttrLogSaIs(
    Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
    Zol::PtrInterface* msgChannelEntry) {
  return Zol::adapterIs(*this, flags, n, out, msgChannelEntry);
}

}  // namespace SmbusDexo
