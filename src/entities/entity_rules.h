// The rules that the entity classes share beyond those of the host: making, comparing and taking
// out the members of a child collection, and telling of a keyed attribute.
#pragma once

#include <type_traits>
#include <typeinfo>

#include "host/zol/attribute_rules.h"
#include "host/zol/value_entry.h"
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

// The base of an entity class that holds children or collections. `Base` is what the class derives
// from otherwise.
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
    return takeOutEntry(map, member, tell, [](Child& child) { child.parentIs(nullptr); });
  }

  // Keeps a value under a key: an equal one changes nothing, another one is stored in the entry
  // that is there, and a missing entry is made by `make()`. `tell( key )` follows.
  template <class Map, class Key, class Value, class Make, class Tell>
  void valueIs(Map& map, Key const& key, Value const& value, Make&& make, Tell&& tell) {
    auto entry = decltype(make())(map[key]);
    if (!entry) {
      entry = make();
    } else if (*entry->zolValue() == value) {
      return;
    } else {
      entry->zolValueIs(value);
    }
    this->countMutation();
    tell(key);
  }

  // Enters an entry; counts nothing and tells nobody.
  template <class Map, class Entry>
  Zol::Ptr<Entry> makeEntry(Map& map, Entry* made) {
    Zol::Ptr<Entry> const entry(made);
    map.newMember(made);
    return entry;
  }

  // The value of an entry, or the default for none.
  template <class Value, class Entry>
  static Value valueOf(Entry const* entry) {
    return entry ? *entry->zolValue() : Value();
  }

  // Takes an entry out and tells of its key. Gives the value that it held; the default for none.
  template <class Value, class Map, class Entry, class Tell>
  Value takeOutValue(Map& map, Entry* entry, Tell&& tell) {
    return valueOf<Value>(takeOutEntry(map, entry, tell, [](Entry&) {}).get());
  }
  // The same for an entry that refers to an entity.
  template <class Referred, class Map, class Entry, class Tell>
  Zol::Ptr<Referred> takeOutReference(Map& map, Entry* entry, Tell&& tell) {
    auto const out = takeOutEntry(map, entry, tell, [](Entry&) {});
    return out ? out->zolValue() : nullptr;
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

  // Sets a reference collection's entry for `referred`: the same one changes nothing, another one
  // of its name takes its place, and a missing entry is made by `make()`. `tell( name )` follows.
  template <class Map, class Referred, class Make, class Tell>
  void referenceIs(Map& map, Zol::Ptr<Referred> const& referred, Make&& make, Tell&& tell) {
    Zol::Name const name = referred->name();
    auto const entry = decltype(make())(map[name]);
    if (!entry) {
      make();
    } else if (entry->zolValue() == referred.get()) {
      return;
    } else {
      entry->zolValueIs(referred);
    }
    this->countMutation();
    tell(name);
  }

  // Gives the child singleton. One that is there and for which `isSame( child )` stays, and nobody
  // is told; any other is replaced by `make()`, and the listeners of class `Slots` are told.
  template <class Slots, class Child, class IsSame, class Make>
  Zol::ValidPtr<Child> singletonIs(Zol::Ptr<Child>& field, Zol::AttributeId id,
                                   void (Slots::*slot)(), IsSame&& isSame, Make&& make) {
    if (Zol::Ptr<Child> const present = field) {
      bool const same = isSame(*present);
      this->countMutation();
      if (same) return present;
      present->parentIs(nullptr);
    }
    Zol::Ptr<Child> const child = make();
    field = child;
    this->countMutation();
    this->tell(id, slot);
    return child;
  }

  // Makes a child for a singleton; counts nothing, tells nobody, and leaves the field alone.
  template <class Child>
  Zol::Ptr<Child> makeSingleton(Zol::AttributeId id, Child* made) {
    Zol::SelfHold const hold(*this);
    Zol::Ptr<Child> const child(made);
    child->parentAttrIdIs(id);
    child->parentIs(this);
    return child;
  }

  // Takes the child of a singleton out and gives it, or null.
  template <class Slots, class Child>
  Zol::Ptr<Child> takeOutSingleton(Zol::Ptr<Child>& field, Zol::AttributeId id,
                                   void (Slots::*slot)()) {
    if (!field) return nullptr;
    Zol::Ptr<Child> const child = std::move(field);
    this->countMutation();
    child->parentIs(nullptr);
    this->tell(id, slot);
    return child;
  }

  // Tells the listeners of class `Slots` of one member of a keyed attribute.
  template <class Slots, class Key>
  void tellKey(Zol::AttributeId id, void (Slots::*slot)(Key),
               std::type_identity_t<Key> const& key) {
    if (!this->hasNotifiees()) return;
    Zol::notificationPass<Slots>(this->zolNotifiees(), id,
                                 [slot, &key](Slots& listener) { (listener.*slot)(key); });
  }

 private:
  template <class Map, class Entry, class Tell, class Release>
  Zol::Ptr<Entry> takeOutEntry(Map& map, Entry* member, Tell&& tell, Release&& release) {
    Zol::Ptr<Entry> const entry(member);
    if (!entry || map[entry->zolKey()] != member) return nullptr;
    auto const key = entry->zolKey();
    map.deleteMember(member);
    this->countMutation();
    release(*entry);
    tell(key);
    return entry;
  }
};

}  // namespace Hardware::Ucd9012
