#include "entities/status.h"

#include "host/zol/exception.h"

namespace Hardware::Ucd9012 {

Status::Status(Zol::Name name) : EntityRules(std::move(name)) {}

Status::~Status() {
  realUcd9012ControllerDelAll();
  realUcd9032ControllerDelAll();
  realPsocControllerDelAll();
  dismissNotifiees();
}

Zol::ZolType* Status::fwkType() const { return _fwkType(); }

Zol::String8 Status::attributeString(Zol::AttributeId id) const {
  switch (id) {
#include "host/zol/stamp/stamp_names.h"
#include "schema/status.def"
    default:
      return Entity::attributeString(id);
  }
}

bool Status::zolHasAttrLogInterface() const { return true; }

using Self = Status;
#include "entities/stamp_member_bodies.h"
#include "schema/status.def"

Zol::ValidPtr<Ucd9012ControllerStatus> Status::realUcd9012ControllerIs(Zol::Name name) {
  return memberIs(
      realUcd9012Controller_, name, [](Ucd9012ControllerStatus const&) {},
      [&] { return newRealUcd9012Controller(name); },
      [this](Zol::Name const& key) { realUcd9012ControllerNotify(key); });
}

Zol::Ptr<Ucd9012ControllerStatus> Status::newRealUcd9012Controller(Zol::Name name) {
  return makeMember(realUcd9012Controller_, Id::realUcd9012Controller,
                    new Ucd9012ControllerStatus(std::move(name)));
}

Zol::ValidPtr<Ucd9032ControllerStatus> Status::realUcd9032ControllerIs(Zol::Name name) {
  return memberIs(
      realUcd9032Controller_, name, [](Ucd9032ControllerStatus const&) {},
      [&] { return newRealUcd9032Controller(name); },
      [this](Zol::Name const& key) { realUcd9032ControllerNotify(key); });
}

Zol::Ptr<Ucd9032ControllerStatus> Status::newRealUcd9032Controller(Zol::Name name) {
  return makeMember(realUcd9032Controller_, Id::realUcd9032Controller,
                    new Ucd9032ControllerStatus(std::move(name)));
}

Zol::ValidPtr<PsocControllerStatus> Status::realPsocControllerIs(Zol::Name name) {
  return memberIs(
      realPsocController_, name, [](PsocControllerStatus const&) {},
      [&] { return newRealPsocController(name); },
      [this](Zol::Name const& key) { realPsocControllerNotify(key); });
}

Zol::Ptr<PsocControllerStatus> Status::newRealPsocController(Zol::Name name) {
  return makeMember(realPsocController_, Id::realPsocController,
                    new PsocControllerStatus(std::move(name)));
}

void Status::controllerIs(Zol::Ptr<ControllerStatus> const& controller) {
  if (!controller) {
    Zol::throwRangeException(
        "null _controller parameter to mutator for Hardware::Ucd9012::Status::controller not "
        "allowed\"");
  }
  referenceIs(
      controller_, controller, [&] { return newController(controller); },
      [this](Zol::Name const& name) { controllerNotify(name); });
}

Zol::Ptr<Status::ZolController> Status::newController(
    Zol::Ptr<ControllerStatus> const& controller) {
  return makeEntry(controller_, new ZolController(controller));
}

Status::NotifieeConst::~NotifieeConst() = default;

void Status::NotifieeConst::notifierIs(Zol::Ptr<Zol::PtrInterface const> const& notifier) {
  entityIs(dynamic_cast<Status const*>(notifier.get()));
}

Zol::Ptr<Status const> Status::NotifieeConst::notifier() const {
  return static_cast<Status const*>(entity());
}

Zol::Ptr<Status> Status::Notifiee::notifier() const {
  return const_cast<Status*>(static_cast<Status const*>(entity()));
}

Zol::Ptr<Status> statusFactory(Zol::Name name) { return new Status(std::move(name)); }

}  // namespace Hardware::Ucd9012
