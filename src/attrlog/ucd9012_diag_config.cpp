#include "attrlog/ucd9012_diag_config.h"

#include "attrlog/access.h"

namespace Hardware::Ucd9012 {

using Model = Ucd9012DiagConfig;
using Sa = Ucd9012DiagConfig::ZolNboAttrLogSa;

namespace {

template <Zol::AttributeId id>
using AccessTo = Access<Sa, Model, 0, Model::Id::command, id>;

#include "host/zol/stamp/stamp_access.h"
#include "schema/ucd9012_diag_config.def"

constexpr Zol::NboAttrLog::LogRow kRows[] = {
#include "host/zol/stamp/stamp_log_rows.h"
#include "schema/ucd9012_diag_config.def"
};
constexpr Zol::NboAttrLog::LogLevel kLevel{kRows};

}  // namespace

class Sa::ZolNboAttrLogSaAdapter_ final : public Zol::ReactorAdapter<Model::Notifiee, Sa> {
 public:
  using ReactorAdapter::ReactorAdapter;
  using Listener = Model::NotifieeConst;
#include "host/zol/stamp/stamp_forwards.h"
#include "schema/ucd9012_diag_config.def"
};

Sa::ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<Model> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
    : EntityAdapter(flags, n, out, msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()), kLevel);
}

void Sa::doSerializeOrphan() { orphanIs(&Zol::NboAttrLog::Parameters<Model>::write); }

#include "host/zol/stamp/stamp_reactions.h"
#include "schema/ucd9012_diag_config.def"

}  // namespace Hardware::Ucd9012
