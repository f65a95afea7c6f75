// The status of a UCD9012 controller.
#pragma once

#include "entities/controller_status.h"
#include "host/zol/hash_map.h"

namespace Hardware::Ucd9012 {

// What is reported about a controller with a UCD9012. All that it is lies in `ControllerStatus`; it
// is a member of a hashed collection of `Status`.
class ZOL_EXPORT Ucd9012ControllerStatus final : public ControllerStatus {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  using ControllerStatus::ControllerStatus;
  ~Ucd9012ControllerStatus() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

 private:
  friend class Zol::HashMap<Ucd9012ControllerStatus, Zol::Name, Ucd9012ControllerStatus>;
  friend class Zol::HashMapVTable<Ucd9012ControllerStatus, Zol::Name>;

  Zol::HashLink zolHashLink_;
};

// The slots are those of `ControllerStatus`.
class ZOL_EXPORT Ucd9012ControllerStatus::NotifieeConst : public ControllerStatus::NotifieeConst {
 public:
  ~NotifieeConst() override;
  // Null when the notifier is a controller of another chip.
  [[nodiscard]] Zol::Ptr<Ucd9012ControllerStatus const> notifier() const;
};

class ZOL_EXPORT Ucd9012ControllerStatus::Notifiee : public Ucd9012ControllerStatus::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<Ucd9012ControllerStatus> notifier() const;
};

}  // namespace Hardware::Ucd9012
