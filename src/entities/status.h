// The root of the status side.
#pragma once

#include "entities/forward.h"
#include "host/zol/attribute_rules.h"

namespace Hardware::Ucd9012 {

// The root under which an agent reports on power controllers, the twin of `Config`. The two are not
// linked: a controller of one has no entry in the other by itself.
class ZOL_EXPORT Status final : public Zol::AttributeRules<Zol::Entity> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/status.def"
    };
  };

  explicit Status(Zol::Name name);
  ~Status() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;
};

// The slots: `on<Attr>()` for each attribute that can change.
class ZOL_EXPORT Status::NotifieeConst : public Zol::Entity::NotifieeConst {
 public:
  ~NotifieeConst() override;
  void notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) override;
  [[nodiscard]] Zol::Ptr<Status const> notifier() const;

#include "host/zol/stamp/stamp_slots.h"
#include "schema/status.def"
};

class ZOL_EXPORT Status::Notifiee : public Status::NotifieeConst {
 public:
  [[nodiscard]] Zol::Ptr<Status> notifier() const;
};

}  // namespace Hardware::Ucd9012
