// The stream adapter of Config.
#pragma once

#include "entities/config.h"
#include "host/zol/attrlog/level_flow_out.h"
#include "host/zol/attrlog/parent_adapter.h"

namespace Hardware::Ucd9012 {

class ZOL_EXPORT Config::ZolNboAttrLogSa final : public Zol::NboAttrLog::ParentAdapter {
 public:
  class ZolNboAttrLogSaAdapter_;
  class FlowOut;

  ZolNboAttrLogSa(Zol_BitSet flags, Zol::Ptr<Config> const& entity, unsigned int n,
                  Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);
  ~ZolNboAttrLogSa() override;

  Zol::AttributeId handleAttrFlowOut(Zol::AttributeId id) override;
  void freeResyncState(Zol::Ptr<Zol::NboAttrLog::FlowOut> const& flow) override;
  void zolInstantiateSerialize() override;
  void doSerializeOrphan() override;
  void handleAttrDeserialization(Zol::AttributeId id, DeserializationOptions options,
                                 unsigned int size,
                                 Zol::Ptr<Zol::NboAttrLog::In> const& in) override;
  Zol::Ptr<Zol::NboAttrLog::FlowOut> flowOutIs(Zol::Ptr<Zol::NboAttrLog::Out> const& out,
                                               Zol::ConnectDesc const& desc, bool flag,
                                               Zol::AttributeId start) override;
  void doNotification(Zol::AttributeId id, void* key) override;
  void doRemountSelf(Zol::Ptr<Zol::NboAttrLog::Out> const& out) override;

#include "attrlog/stamp_controllers_declared.h"
#include "entities/config_controllers.def"
};

}  // namespace Hardware::Ucd9012
