// The configuration of a PSoC that does a power controller's job.
#pragma once

#include "entities/controller_config.h"
#include "host/zol/hash_map.h"

namespace Hardware::Ucd9012 {

// What is wanted of a controller with a PSoC. All that it is lies in `ControllerConfig`; it is a
// member of a hashed collection of `Config`.
class ZOL_EXPORT PsocControllerConfig final : public ControllerConfig {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  using ControllerConfig::ControllerConfig;
  ~PsocControllerConfig() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

 private:
  friend class Zol::HashMap<PsocControllerConfig, Zol::Name, PsocControllerConfig>;
  friend class Zol::HashMapVTable<PsocControllerConfig, Zol::Name>;

  Zol::HashLink zolHashLink_;
};

// The slots are those of `ControllerConfig`.
class ZOL_EXPORT PsocControllerConfig::NotifieeConst : public ControllerConfig::NotifieeConst {
 public:
  ~NotifieeConst() override;
  // Null when the notifier is a controller of another chip.
  [[nodiscard]] Zol::Ptr<PsocControllerConfig const> notifier() const;
};

class ZOL_EXPORT PsocControllerConfig::Notifiee : public PsocControllerConfig::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<PsocControllerConfig> notifier() const;
};

}  // namespace Hardware::Ucd9012
