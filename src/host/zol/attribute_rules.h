// What every accessor and every mutator of an attribute without a key does, written once for all
// entity classes.
#pragma once

#include <type_traits>

#include "host/zol/notification_pass.h"

namespace Zol {

// The base of an entity class that has attributes. `Base` is `Entity`, or what stands between; a
// class below an entity class with attributes inherits the rules from it.
//
//   bool ready() const { return read(ready_); }
//   void readyIs(bool value) { assign<NotifieeConst>(ready_, value, Id::ready,
//   &NotifieeConst::onReady); }
template <class Base>
class AttributeRules : public Base {
 public:
  using Base::Base;

 protected:
  // Counts one read of this entity and gives the field.
  template <class T>
  T const& read(T const& field) const noexcept {
    this->countRead();
    return field;
  }

  // Sets a scalar, a text or a reference, and tells the listeners of class `Slots`. An equal value
  // changes nothing; a value that is not a number equals nothing. Nothing is allocated while nobody
  // listens.
  template <class Slots, class T>
  void assign(T& field, std::type_identity_t<T> const& value, AttributeId id,
              void (Slots::*slot)()) {
    if (field == value) return;
    field = value;
    this->countMutation();
    tell(id, slot);
  }

  // Tells the listeners of class `Slots` of a change that has been made and counted.
  template <class Slots>
  void tell(AttributeId id, void (Slots::*slot)()) {
    if (!this->hasNotifiees()) return;
    notificationPass<Slots>(this->zolNotifiees(), id,
                            [slot](Slots& listener) { (listener.*slot)(); });
  }
};

}  // namespace Zol
