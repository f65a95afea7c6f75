#include "attrlog/controller_config.h"

#include "attrlog/access.h"

namespace Hardware::Ucd9012 {

using Model = ControllerConfig;
using Sa = ControllerConfig::ZolNboAttrLogSa;

namespace {

using Base = Hardware::PowerController::ControllerConfig::ZolNboAttrLogSa;

template <Zol::AttributeId id>
using AccessTo = Access<Sa, Model, 1, Model::Id::generationIdReadVoltage, id>;

#include "host/zol/stamp/stamp_access.h"
#include "schema/controller_config.def"

constexpr Zol::NboAttrLog::LogRow kRows[] = {
#include "host/zol/stamp/stamp_log_rows.h"
#include "schema/controller_config.def"
};

}  // namespace

class Sa::ZolNboAttrLogSaAdapter_ final : public Zol::ReactorAdapter<Model::Notifiee, Sa> {
 public:
  using ReactorAdapter::ReactorAdapter;
  using Listener = Model::NotifieeConst;
#include "host/zol/stamp/stamp_forwards.h"
#include "host/models/power_controller_config.def"

#include "host/zol/stamp/stamp_forwards.h"
#include "schema/controller_config.def"
};

template <class Chip>
class ChipConfigAdapter<Chip>::ZolNboAttrLogSaAdapter_ final
    : public Zol::ReactorAdapter<typename Chip::Notifiee, Sa> {
 public:
  using Half = Zol::ReactorAdapter<typename Chip::Notifiee, Sa>;
  using Half::Half;
  using Half::zolReactorAdapter;
  using Listener = typename Chip::NotifieeConst;
#include "host/zol/stamp/stamp_forwards.h"
#include "host/models/power_controller_config.def"

#include "host/zol/stamp/stamp_forwards.h"
#include "schema/controller_config.def"
};

// The base model's rows come from its own library, so the chain is joined at first use.
Zol::NboAttrLog::LogLevel const& Sa::level() {
  static Zol::NboAttrLog::LogLevel const theLevel{kRows, &Base::level()};
  return theLevel;
}

Sa::ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<Model> const& entity, unsigned int n,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry)
    : Base(flags, Zol::Ptr<Hardware::PowerController::ControllerConfig>(entity), n, out,
           msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()), level());
}

void Sa::doSerializeOrphan() { orphanIs(&Zol::NboAttrLog::Parameters<Model>::write); }

#include "host/zol/stamp/stamp_reactions.h"
#include "schema/controller_config.def"

template <class Chip>
ChipConfigAdapter<Chip>::ChipConfigAdapter(Zol_BitSet flags, Zol::Ptr<Chip> const& entity,
                                           unsigned int n,
                                           Zol::Ptr<Zol::NboAttrLog::Out> const& out,
                                           Zol::PtrInterface* msgChannelEntry)
    : Sa(flags, Zol::Ptr<Model>(entity), n, out, msgChannelEntry) {
  levelIs(entity.get(), new ZolNboAttrLogSaAdapter_(this, entity.get()), level());
}

template class ChipConfigAdapter<Ucd9012ControllerConfig>;
template class ChipConfigAdapter<Ucd9032ControllerConfig>;
template class ChipConfigAdapter<PsocControllerConfig>;

}  // namespace Hardware::Ucd9012
