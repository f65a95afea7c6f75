// The configuration of a UCD9012 controller.
#pragma once

#include "entities/controller_config.h"
#include "host/zol/hash_map.h"

namespace Hardware::Ucd9012 {

// What is wanted of a controller with a UCD9012. All that it is lies in `ControllerConfig`; it is a
// member of a hashed collection of `Config`.
class ZOL_EXPORT Ucd9012ControllerConfig final : public ControllerConfig {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  using ControllerConfig::ControllerConfig;
  ~Ucd9012ControllerConfig() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

 private:
  friend class Zol::HashMap<Ucd9012ControllerConfig, Zol::Name, Ucd9012ControllerConfig>;
  friend class Zol::HashMapVTable<Ucd9012ControllerConfig, Zol::Name>;

  Zol::HashLink zolHashLink_;
};

// The slots are those of `ControllerConfig`.
class ZOL_EXPORT Ucd9012ControllerConfig::NotifieeConst : public ControllerConfig::NotifieeConst {
 public:
  ~NotifieeConst() override;
  // Null when the notifier is a controller of another chip.
  [[nodiscard]] Zol::Ptr<Ucd9012ControllerConfig const> notifier() const;
};

class ZOL_EXPORT Ucd9012ControllerConfig::Notifiee : public Ucd9012ControllerConfig::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<Ucd9012ControllerConfig> notifier() const;
};

}  // namespace Hardware::Ucd9012
