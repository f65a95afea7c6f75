// Generic objects of entities.
#pragma once

#include "host/zol/activity.h"
#include "host/zol/generic/generic_if.h"
#include "host/zol/registry/type_of.h"
#include "host/zol/registry/zol_type.h"

namespace Zol {

struct AccessLevel;
struct AccessRow;

// What of a keyed attribute waits for delivery: the last key, and how many changes.
template <class Key>
struct PendingKey {
  Key key{};
  unsigned char count = 0;
};

// The generic object of a counted object, which it holds.
class ZOL_EXPORT GenericIfPtrInterface : public GenericIf {
 public:
  using GenericIf::GenericIf;
  ~GenericIfPtrInterface() override;
  // The object, or null.
  [[nodiscard]] virtual Ptr<PtrInterface const> obj() const;
  [[nodiscard]] virtual Ptr<PtrInterface> obj();
};

// The generic object of an entity. Of a class whose attributes nobody describes it knows those that
// every entity has: "name", "parent", "parentAttrId", "fullName", "zolHasAttrLogInterface", and of
// an entity that knows its own key "fwkKey".
//
// It may stand over no entity, as the result of reading a member that is not there does: then
// `obj()` is null, and every operation throws `RangeException` with the type and "there is no
// object".
//
// A class derived from the generic object of an entity class hears of the changes of its entity, by
// attribute id:
//
//   struct Watcher : ControllerConfig::GenericIf_ {
//     using GenericIf_::GenericIf_;
//     void onAttribute( Zol::AttributeId id ) override;
//     void onAttribute( Zol::AttributeId id, Zol::Ptr<Zol::GenericIf const>& key ) override;
//   };
class ZOL_EXPORT GenericIfEntity : public GenericIfPtrInterface {
 public:
  // `type` is the type of the entity's class, or of a base of it.
  GenericIfEntity(Ptr<Entity> const& entity, bool isConst, ZolType* type);
  ~GenericIfEntity() override;

  void hasNotificationActiveIs(bool value) override;
  void notifierIs(Ptr<PtrInterface const> const& notifier) override;
  // Delivers what has waited.
  void handleNotification(ActivityConfig* activity) override;
  [[nodiscard]] ZolType* type() const override { return type_; }
  [[nodiscard]] void* voidPtrIs(Ptr<ZolType const> const& type) const override;
  [[nodiscard]] AttributeId attributeId(String8 name) const override;
  Ptr<GenericIf> attributeOp(AttributeOp const& op, Ptr<GenericIf const> const& index,
                             Ptr<GenericIf> const& value) override;
  [[nodiscard]] String8 strRep() const override;
  void zolDoZombieReactors(bool value) override;

  [[nodiscard]] AttributeIteratorConst attributeIteratorConst(AttributeId id) const override;
  [[nodiscard]] AttributeIteratorConst attributeIteratorKeyConst(
      AttributeId id, Ptr<GenericIf const> const& key) const override;
  [[nodiscard]] Ptr<GenericIf> attributeIterator_iterObj(AttributeIteratorConst const& it) override;
  [[nodiscard]] Ptr<GenericIf const> attributeIterator_iterObj(
      AttributeIteratorConst const& it) const override;
  void attributeIterator_iterInc(AttributeIteratorConst const& it) const override;
  [[nodiscard]] Ptr<GenericIf> attributeIterator_iterKey(
      AttributeIteratorConst const& it) const override;
  [[nodiscard]] void* attributeIterator_iterClone(AttributeIteratorConst const& it) const override;
  [[nodiscard]] bool attributeIterator_nonNull(AttributeIteratorConst const& it) const override;
  void attributeIterator_iterDel(AttributeIteratorConst const& it) const override;

  [[nodiscard]] Ptr<GenericIf> clone() override;
  using GenericIf::clone;

  // Where changes wait to be told; null, the default: they are told at once, inside the mutator.
  void activityIs(Ptr<Activity> const& activity) { activity_ = activity; }
  [[nodiscard]] Activity* activityPtr() const override { return activity_.get(); }
  Activity* zolFwkActivity() override { return activity_.get(); }
  [[nodiscard]] Activity const* zolFwkActivity() const override { return activity_.get(); }
  ActivitySm* actsm() override { return &delivery_; }

  // What can be done with the attribute of this name, whether or not the registry knows it; null
  // for one of the frame or of no class.
  [[nodiscard]] AccessRow const* rowNamed(std::string_view name) const;

 protected:
  // What can be done with the attributes of the class by id; null: nothing but what every entity
  // has.
  [[nodiscard]] virtual AccessLevel const* level() const;
  // For the constructor of a class that has slots: makes the half that stands in the entity's list
  // and forwards to `self` what it hears.
  template <class Adapter, class Self>
  void adapterIs(Self* self, Entity* entity);
  // That half; null for an entity without slots.
  template <class Adapter>
  [[nodiscard]] Adapter& adapter() const noexcept {
    return static_cast<Adapter&>(*half_.listener);
  }

  // A change of an attribute without keys.
  void changed(AttributeId id);
  // A change of the member under the key; `pending` is what waits of this attribute.
  template <class Key>
  void memberChanged(AttributeId id, PendingKey<Key>& pending, Key const& key);

 private:
  [[nodiscard]] AccessRow const* row(AttributeId id) const;
  [[nodiscard]] Entity& required() const;
  Ptr<GenericIf> entityAttributeOp(AttributeOp const& op, Ptr<GenericIf const> const& index);
  // Tells of all attributes, those of the base classes first.
  void deliverAll(AccessLevel const* level, bool whole);

  struct Half {
    Ptr<Entity::NotifieeConst> listener;
    void (*zombie)(Entity::NotifieeConst&, bool) = nullptr;
    void (*detach)(Entity::NotifieeConst&) = nullptr;
  };

  ZolType* type_;
  Half half_;
  Ptr<Activity> activity_;
  ActivitySm delivery_;
};

template <class Adapter, class Self>
void GenericIfEntity::adapterIs(Self* self, Entity* entity) {
  using Listener = Entity::NotifieeConst;
  SelfHold const hold(*this);
  half_ = {
      Ptr<Listener>(new Adapter(self, entity)),
      [](Listener& half, bool value) { static_cast<Adapter&>(half).zolDoZombieReactors(value); },
      [](Listener& half) { static_cast<Adapter&>(half).zolReactorAdapterIs(nullptr); }};
  half_.listener->hasNotificationActiveIs(true);
}

template <class Key>
void GenericIfEntity::memberChanged(AttributeId id, PendingKey<Key>& pending, Key const& key) {
  pending.key = key;
  if (zolOnAttribute(id, &pending.count)) return;
  actsm();
  Ptr<GenericIf const> wrapped =
      typeOf<Key>()->genericIf(static_cast<void const*>(&key), isConst());
  onAttribute(id, wrapped);
}

}  // namespace Zol
