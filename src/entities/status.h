// The root of the status side.
#pragma once

#include "entities/entity_rules.h"
#include "entities/psoc_controller_status.h"
#include "entities/ucd9012_controller_status.h"
#include "entities/ucd9032_controller_status.h"

namespace Hardware::Ucd9012 {

// The root under which an agent reports on power controllers, the twin of `Config`. The two are not
// linked: a controller of one has no entry in the other by itself. Its collections have the
// operations told at `Config`; since a controller is made from its name alone, none of them refuses
// a name that exists.
//
//   auto status = statusFactory( "board" );
//   status->realUcd9012ControllerIs( "main" )->temperatureIs( Units::Celsius( 41.5 ) );
class ZOL_EXPORT Status final : public EntityRules<Zol::AttributeRules<Zol::Entity>> {
 public:
  class NotifieeConst;
  class Notifiee;
  class GenericIf_;
  class _Type;
  class ZolNboAttrLogSa;

  // A collection of controllers with one chip, by name.
  template <class Controller>
  using Controllers = Zol::HashMap<Controller, Zol::Name, Controller>;

  // An entry of `controller`: a counted reference to a controller that belongs to somebody else.
  class ZolController final : public Zol::ReferenceEntry<ControllerStatus> {
    using ReferenceEntry::ReferenceEntry;
  };

  using RealUcd9012ControllerMap = Controllers<Ucd9012ControllerStatus>;
  using RealUcd9032ControllerMap = Controllers<Ucd9032ControllerStatus>;
  using RealPsocControllerMap = Controllers<PsocControllerStatus>;
  using ControllerMap = Zol::HashMap<ZolController, Zol::Name, ControllerStatus>;

  struct Id {
    enum : Zol::AttributeId {
#include "host/zol/stamp/stamp_ids.h"
#include "schema/status.def"
    };
  };

  // A root without members and without a parent, as of `statusFactory`.
  explicit Status(Zol::Name name);
  // Takes out all members that it owns first, and tells of each.
  ~Status() override;

  static Zol::ZolType* _fwkType();
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  [[nodiscard]] Zol::String8 attributeString(Zol::AttributeId id) const override;

  [[nodiscard]] bool zolHasAttrLogInterface() const override;
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> zolNboAttrLogSaIs(
      Zol_BitSet flags, unsigned int n, Zol::Ptr<Zol::NboAttrLog::Out> const& out,
      Zol::PtrInterface* msgChannelEntry) override;

  // The controllers with a UCD9012.
  [[nodiscard]] Zol::Ptr<Ucd9012ControllerStatus> realUcd9012Controller(Zol::Name name) const;
  Zol::Ptr<Ucd9012ControllerStatus> realUcd9012ControllerDel(Zol::Name name);
  Zol::Ptr<Ucd9012ControllerStatus> realUcd9012ControllerDel(
      RealUcd9012ControllerMap::Iterator& iterator);
  void realUcd9012ControllerNotify(Zol::Name name);
  Zol::ValidPtr<Ucd9012ControllerStatus> realUcd9012ControllerIs(Zol::Name name);
  Zol::Ptr<Ucd9012ControllerStatus> newRealUcd9012Controller(Zol::Name name);
  void realUcd9012ControllerDelAll();

  // The controllers with a UCD9032.
  [[nodiscard]] Zol::Ptr<Ucd9032ControllerStatus> realUcd9032Controller(Zol::Name name) const;
  Zol::Ptr<Ucd9032ControllerStatus> realUcd9032ControllerDel(Zol::Name name);
  Zol::Ptr<Ucd9032ControllerStatus> realUcd9032ControllerDel(
      RealUcd9032ControllerMap::Iterator& iterator);
  void realUcd9032ControllerNotify(Zol::Name name);
  Zol::ValidPtr<Ucd9032ControllerStatus> realUcd9032ControllerIs(Zol::Name name);
  Zol::Ptr<Ucd9032ControllerStatus> newRealUcd9032Controller(Zol::Name name);
  void realUcd9032ControllerDelAll();

  // The controllers with a PSoC.
  [[nodiscard]] Zol::Ptr<PsocControllerStatus> realPsocController(Zol::Name name) const;
  Zol::Ptr<PsocControllerStatus> realPsocControllerDel(Zol::Name name);
  Zol::Ptr<PsocControllerStatus> realPsocControllerDel(RealPsocControllerMap::Iterator& iterator);
  void realPsocControllerNotify(Zol::Name name);
  Zol::ValidPtr<PsocControllerStatus> realPsocControllerIs(Zol::Name name);
  Zol::Ptr<PsocControllerStatus> newRealPsocController(Zol::Name name);
  void realPsocControllerDelAll();

  // Controllers that a client wants found by their name alone, whatever their chip. They belong to
  // their collections; entering or taking out here touches neither those nor the controllers'
  // parents. `controllerIs` throws `RangeException` "null _controller parameter to mutator for
  // Hardware::Ucd9012::Status::controller not allowed\"" for null; the controller that stands there
  // already changes nothing, another one of its name takes its place. `zolController` gives the
  // entry itself.
  [[nodiscard]] Zol::Ptr<ControllerStatus> controller(Zol::Name name) const;
  void controllerIs(Zol::Ptr<ControllerStatus> const& controller);
  Zol::Ptr<ZolController> newController(Zol::Ptr<ControllerStatus> const& controller);
  [[nodiscard]] Zol::Ptr<ZolController> zolController(Zol::Name name) const;
  Zol::Ptr<ControllerStatus> controllerDel(Zol::Name name);
  Zol::Ptr<ControllerStatus> controllerDel(ControllerMap::Iterator& iterator);
  void controllerDelAll();
  void controllerNotify(Zol::Name name);

#include "host/zol/stamp/stamp_walks.h"
#include "schema/status.def"

 private:
#include "host/zol/stamp/stamp_fields.h"
#include "schema/status.def"
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

// A new root with this name.
[[nodiscard]] ZOL_EXPORT Zol::Ptr<Status> statusFactory(Zol::Name name);

}  // namespace Hardware::Ucd9012
