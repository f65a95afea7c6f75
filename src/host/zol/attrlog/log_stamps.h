// What the stamped rows of a class call: plain functions made from its members.
#pragma once

#include "host/zol/attrlog/parent_adapter.h"

namespace Zol::NboAttrLog {

template <class Class, class Result, class... Arguments>
Class classOfMember(Result (Class::*)(Arguments...));
template <class Class, class Result, class... Arguments>
Class classOfMember(Result (Class::*)(Arguments...) const);
// The class that a member operation belongs to.
template <auto member>
using ClassOf = decltype(classOfMember(member));

// An extra byte behind the last field is malformed, and found before anything is applied.
inline void requireEnd(Inbound& message) {
  if (!message.prefixOnly && message.in.left() != 0) {
    message.in.malformed("message about attribute " + std::to_string(message.id) + " with " +
                         std::to_string(message.in.left()) + " bytes too many");
  }
}

template <auto reaction>
void reactTo(EntityAdapter& adapter, void*) {
  (static_cast<ClassOf<reaction>&>(adapter).*reaction)();
}

template <auto serialize>
bool serializeTo(EntityAdapter& adapter) {
  return (static_cast<ClassOf<serialize>&>(adapter).*serialize)();
}

template <class T, class Model, auto set, auto reaction>
void applyScalar(EntityAdapter& adapter, Inbound& message) {
  T const value = ScalarForm<T>::read(adapter, message.in);
  requireEnd(message);
  if (!message.applies) return reactTo<reaction>(adapter, nullptr);
  (static_cast<Model&>(*adapter.entity()).*set)(value);
}

template <class Model, auto set, auto reaction>
void applyText(EntityAdapter& adapter, Inbound& message) {
  adapter.textArrived(
      message,
      [](Entity& entity, String8 text) { (static_cast<Model&>(entity).*set)(std::move(text)); },
      [](EntityAdapter& reactor) { reactTo<reaction>(reactor, nullptr); });
}

template <class Model, auto get>
String8 textOf(Entity const& entity) {
  return (static_cast<Model const&>(entity).*get)();
}

}  // namespace Zol::NboAttrLog
