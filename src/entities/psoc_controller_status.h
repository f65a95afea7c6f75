// The status of a PSoC that does a power controller's job.
#pragma once

#include "entities/controller_status.h"
#include "host/zol/hash_map.h"

namespace Hardware::Ucd9012 {

// What is reported about a controller with a PSoC. All that it is lies in `ControllerStatus`; it is
// a member of a hashed collection of `Status`.
class ZOL_EXPORT PsocControllerStatus final : public ControllerStatus {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  using ControllerStatus::ControllerStatus;
  ~PsocControllerStatus() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

 private:
  friend class Zol::HashMap<PsocControllerStatus, Zol::Name, PsocControllerStatus>;
  friend class Zol::HashMapVTable<PsocControllerStatus, Zol::Name>;

  Zol::HashLink zolHashLink_;
};

// The slots are those of `ControllerStatus`.
class ZOL_EXPORT PsocControllerStatus::NotifieeConst : public ControllerStatus::NotifieeConst {
 public:
  ~NotifieeConst() override;
  // Null when the notifier is a controller of another chip.
  [[nodiscard]] Zol::Ptr<PsocControllerStatus const> notifier() const;
};

class ZOL_EXPORT PsocControllerStatus::Notifiee : public PsocControllerStatus::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<PsocControllerStatus> notifier() const;
};

}  // namespace Hardware::Ucd9012
