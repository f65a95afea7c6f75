// What each kind of attribute does by name. Every check stands in front of the typed operation, so
// that a refused call changes nothing.
#pragma once

#include <tuple>
#include <utility>

#include "host/zol/generic/access_level.h"
#include "host/zol/generic/argument_list.h"

namespace Zol {

// The rows' functions are told the holder's class `X` and its typed operations: `get` reads, `set`
// is the mutator, `del` takes out, `begin` gives the first iterator and `from` the one at a key.

// A parameter of the constructor: it can be read.
template <class X, auto get>
Ptr<GenericIf> accessParameter(AccessCall const& call) {
  call.requireNoIndex();
  if (call.op != GenericIf::attrOpRead) call.refuseOp();
  return wrapped((static_cast<X&>(call.holder).*get)(), call.isConst);
}

// A value that can be read and written.
template <class X, class T, auto get, auto set>
Ptr<GenericIf> accessScalar(AccessCall const& call) {
  call.requireNoIndex();
  auto& holder = static_cast<X&>(call.holder);
  switch (call.op) {
    case GenericIf::attrOpRead: {
      T const value = (holder.*get)();
      return wrapped(value, call.isConst);
    }
    case GenericIf::attrOpWrite: {
      T const value = unwrapped<T>(call.requireValue());
      (holder.*set)(value);
      return nullptr;
    }
    default:
      call.refuseOp();
  }
}

// A reference to an entity of somebody else; null clears it.
template <class X, class E, auto get, auto set>
Ptr<GenericIf> accessReference(AccessCall const& call) {
  call.requireNoIndex();
  auto& holder = static_cast<X&>(call.holder);
  switch (call.op) {
    case GenericIf::attrOpRead:
      return wrapped(Ptr<E>((holder.*get)()), call.isConst);
    case GenericIf::attrOpWrite:
      (holder.*set)(unwrappedEntity<E>(call.value.get()));
      return nullptr;
    default:
      call.refuseOp();
  }
}

// Calls a maker `<attr>Is( arguments )` with the arguments of a list, which are named by the rows
// of `parameters`.
template <auto const& parameters, class X, class Result, class... Params>
Result madeFromList(AccessCall const& call, Result (X::*make)(Params...)) {
  ArgumentList list(call.value.get());
  auto const take = [&]<std::size_t... i>(std::index_sequence<i...>) {
    // In braces, so that the arguments are taken in their order.
    return std::tuple<std::remove_cvref_t<Params>...>{
        list.next<std::remove_cvref_t<Params>>(parameters[i].name)...};
  };
  auto const arguments = take(std::index_sequence_for<Params...>());
  list.requireEnd(call.row.name);
  return std::apply(
      [&](auto const&... each) { return (static_cast<X&>(call.holder).*make)(each...); },
      arguments);
}

// One entity that the holder makes.
template <class X, class Child, auto const& parameters, auto get, auto make, auto del>
Ptr<GenericIf> accessSingleton(AccessCall const& call) {
  call.requireNoIndex();
  auto& holder = static_cast<X&>(call.holder);
  switch (call.op) {
    case GenericIf::attrOpRead:
      return wrapped(Ptr<Child>((holder.*get)()), call.isConst);
    case GenericIf::attrOpWrite:
      return wrapped(Ptr<Child>(madeFromList<parameters>(call, make)), call.isConst);
    case GenericIf::attrOpDelete:
      return wrapped(Ptr<Child>((holder.*del)()), call.isConst);
    default:
      call.refuseOp();
  }
}

// What all keyed kinds have alike; `write` is the kind's own.
template <class X, class Key, auto get, auto del, auto begin, class Write>
Ptr<GenericIf> accessKeyed(AccessCall const& call, Write const& write) {
  auto& holder = static_cast<X&>(call.holder);
  auto const key = [&]() -> Key { return unwrapped<Key>(call.requireIndex()); };
  switch (call.op) {
    case GenericIf::attrOpRead:
      return wrapped((holder.*get)(key()), call.isConst);
    case GenericIf::attrOpCount:
      return wrapped((holder.*begin)().map().count(), call.isConst);
    case GenericIf::attrOpVersion:
      return wrapped((holder.*begin)().map().version(), call.isConst);
    case GenericIf::attrOpContains:
      return wrapped((holder.*begin)().map()[key()] != nullptr, call.isConst);
    case GenericIf::attrOpWrite:
      return write(holder);
    case GenericIf::attrOpDelete:
      return wrapped((holder.*del)(key()), call.isConst);
    default:
      call.refuseOp();
  }
}

// Values under a key.
template <class X, class T, class Key, auto get, auto set, auto del, auto begin>
Ptr<GenericIf> accessValues(AccessCall const& call) {
  return accessKeyed<X, Key, get, del, begin>(call, [&](X& holder) -> Ptr<GenericIf> {
    Key const key = unwrapped<Key>(call.requireIndex());
    T const value = unwrapped<T>(call.requireValue());
    (holder.*set)(key, value);
    return nullptr;
  });
}

// Entities that the holder makes, by a key that is among the constructor's arguments.
template <class X, class Child, class Key, auto const& parameters, auto get, auto make, auto del,
          auto begin>
Ptr<GenericIf> accessChildren(AccessCall const& call) {
  return accessKeyed<X, Key, get, del, begin>(call, [&](X&) -> Ptr<GenericIf> {
    call.requireNoIndex();
    return wrapped(Ptr<Child>(madeFromList<parameters>(call, make)), call.isConst);
  });
}

// References to entities of somebody else, by their names.
template <class X, class E, class Key, auto get, auto set, auto del, auto begin>
Ptr<GenericIf> accessReferences(AccessCall const& call) {
  return accessKeyed<X, Key, get, del, begin>(call, [&](X& holder) -> Ptr<GenericIf> {
    call.requireNoIndex();
    (holder.*set)(unwrappedEntity<E>(call.value.get()));
    return nullptr;
  });
}

// The walk of a keyed attribute; `Iterator` is its constant iterator.
template <class X, class Key, class Iterator, auto begin, auto from>
struct Walk {
  static void* first(Entity const& holder) {
    return new Iterator((static_cast<X const&>(holder).*begin)());
  }
  // An ordered collection gives the next greater member for a key that is absent; a walk begins at
  // none then.
  static void* at(Entity const& holder, GenericIf const& key) {
    Key const wanted = unwrapped<Key>(key);
    Iterator it = (static_cast<X const&>(holder).*from)(wanted);
    using Map = std::remove_cvref_t<decltype(it.map())>;
    bool const differs = it && !(it.key() == wanted);
    return differs ? new Iterator(static_cast<Map const*>(nullptr)) : new Iterator(it);
  }
  static Iterator& of(void* iterator) { return *static_cast<Iterator*>(iterator); }
  static Iterator const& of(void const* iterator) {
    return *static_cast<Iterator const*>(iterator);
  }
  static void* clone(void const* iterator) { return new Iterator(of(iterator)); }
  static void step(void* iterator) { ++of(iterator); }
  static bool nonNull(void const* iterator) { return static_cast<bool>(of(iterator)); }
  static Ptr<GenericIf> member(void const* iterator, bool isConst) {
    if constexpr (std::is_convertible_v<decltype(*of(iterator)), Entity const&>) {
      return wrapped(of(iterator).ptr(), isConst);
    } else {
      return wrapped(*of(iterator), isConst);
    }
  }
  static Ptr<GenericIf> key(void const* iterator) { return wrapped(of(iterator).key(), true); }
  static void del(void* iterator) { delete &of(iterator); }
};

template <class X, class Key, auto begin, auto from>
inline constexpr WalkRow kWalk = [] {
  using Iterator = decltype((std::declval<X const&>().*begin)());
  using W = Walk<X, Key, Iterator, begin, from>;
  return WalkRow{&W::first, &W::at, &W::clone, &W::step, &W::nonNull, &W::member, &W::key, &W::del};
}();

// Tells what has waited of an attribute by the slots of the generic object's class `Generic`:
// `changed` is that of the whole attribute, `memberChanged` that of one member; `pending` of the
// adapter tells what waits.
template <class Generic, auto changed>
void deliver(GenericIfEntity& generic, bool) {
  (static_cast<Generic&>(generic).*changed)();
}
template <class Generic, auto changed, auto memberChanged, auto pending>
void deliverKeyed(GenericIfEntity& generic, bool whole) {
  auto& self = static_cast<Generic&>(generic);
  auto& waits = self.ownAdapter().*pending;
  unsigned char const count = std::exchange(waits.count, static_cast<unsigned char>(0));
  if (count > 1 || whole) {
    if (ActivitySm* const delivery = generic.actsm()) delivery->take();
    (self.*changed)();
  } else if (count == 1) {
    (self.*memberChanged)(waits.key);
  }
}

}  // namespace Zol
