// The rules that the entity classes share beyond those of the host: making, comparing and taking
// out the members of a child collection, and telling of a keyed attribute.
#pragma once

#include <type_traits>
#include <typeinfo>

#include "host/zol/attribute_rules.h"
#include "host/zol/hash_map.h"
#include "host/zol/value_text.h"

namespace Hardware::Ucd9012 {

// Refuses a second making of `member` with another constructor parameter than it has. Throws
// `NameInUseException` with the name of the member, of the parameter, and both values.
[[noreturn]] void throwReinstantiated(Zol::Entity const& member, char const* parameter,
                                      Zol::String8 const& given, Zol::String8 const& current);

// Requires that a constructor parameter has the value that the member was made with: texts are
// compared as texts, references by identity.
template <class T>
void requireSameParameter(Zol::Entity const& member, char const* parameter, T const& given,
                          T const& current) {
  if (given == current) return;
  throwReinstantiated(member, parameter, Zol::valueToStrep(given), Zol::valueToStrep(current));
}
template <class T>
void requireSameParameter(Zol::Entity const& member, char const* parameter,
                          Zol::Ptr<T> const& given, Zol::Ptr<T> const& current) {
  if (given == current) return;
  throwReinstantiated(member, parameter, Zol::valueToStrepOfRawPtr(given.get(), typeid(T)),
                      Zol::valueToStrepOfRawPtr(current.get(), typeid(T)));
}

// The base of an entity class that holds collections. `Base` is what the class derives from
// otherwise.
template <class Base>
class EntityRules : public Base {
 public:
  using Base::Base;

 protected:
  // Makes a member and enters it into the collection; counts nothing and tells nobody.
  template <class Map, class Child>
  Zol::Ptr<Child> makeMember(Map& map, Zol::AttributeId id, Child* made) {
    Zol::Ptr<Child> child(made);
    child->parentAttrIdIs(id);
    map.newMember(child.get());
    child->parentIs(this);
    return child;
  }

  // Takes a member out and tells of its key. Gives the member; null for null, and for an entity that is
  // no member any more.
  template <class Map, class Child, class Tell>
  Zol::Ptr<Child> takeOut(Map& map, Child* member, Tell&& tell) {
    Zol::Ptr<Child> const child(member);
    if (!child || map[child->zolKey()] != member) return nullptr;
    auto const key = child->zolKey();
    map.deleteMember(member);
    this->countMutation();
    child->parentIs(nullptr);
    tell(key);
    return child;
  }

  // Takes out every member by `del`, the class's own operation: one notification for each.
  template <class Map, class Del>
  void takeOutAll(Map& map, Del&& del) {
    for (typename Map::Iterator it(&map); it; ++it) del(it);
  }

  // Tells the listeners of class `Slots` of one member of a keyed attribute.
  template <class Slots, class Key>
  void tellKey(Zol::AttributeId id, void (Slots::*slot)(Key),
               std::type_identity_t<Key> const& key) {
    if (!this->hasNotifiees()) return;
    Zol::notificationPass<Slots>(this->zolNotifiees(), id,
                                 [slot, &key](Slots& listener) { (listener.*slot)(key); });
  }
};

}  // namespace Hardware::Ucd9012
