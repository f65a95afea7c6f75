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
  // Gives the member under the key. One that exists goes through `requireSame( member )`, which
  // throws when it was made with other parameters, and nobody is told; a missing one is made by
  // `make()`, and `tell( key )` follows. Counts one mutation either way.
  template <class Map, class Key, class RequireSame, class Make, class Tell>
  auto memberIs(Map& map, Key const& key, RequireSame&& requireSame, Make&& make, Tell&& tell)
      -> decltype(make()) {
    if (auto const member = decltype(make())(map[key])) {
      requireSame(*member);
      this->countMutation();
      return member;
    }
    auto const member = make();
    this->countMutation();
    tell(key);
    return member;
  }

  // Makes a member and enters it into the collection; counts nothing and tells nobody. A member
  // that it replaces has no parent any more.
  template <class Map, class Child>
  Zol::Ptr<Child> makeMember(Map& map, Zol::AttributeId id, Child* made) {
    Zol::SelfHold const hold(*this);
    Zol::Ptr<Child> const child(made);
    child->parentAttrIdIs(id);
    Zol::Ptr<Child> const replaced = map.newMember(child.get());
    child->parentIs(this);
    if (replaced) replaced->parentIs(nullptr);
    return child;
  }

  // Takes a member out and tells of its key. Gives the member; null for null, and for an entity
  // that is no member any more.
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

  // Takes out every member by `del`, the class's own operation: one notification for each. Holds
  // this entity meanwhile, since a listener may drop the last reference to it.
  template <class Map, class Del>
  void takeOutAll(Map& map, Del&& del) {
    typename Map::Iterator it(&map);
    if (!it) return;
    Zol::SelfHold const hold(*this);
    for (; it; ++it) del(it);
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
