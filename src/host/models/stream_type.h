// The types of entities that are made from a stream.
#pragma once

#include "host/zol/attrlog/parameters.h"
#include "host/zol/registry/model_type.h"

namespace Hardware {

// The type of the class `X`, made on the first call; `Type` is the class of its type object.
template <class X, class Type = Zol::NboAttrLog::StreamType<X>>
Zol::ModelType streamType(char const* fullName, Zol::ZolType* base) {
  auto* const made = new Type(Zol::ModelType::bareName(fullName), base);
  return Zol::ModelType::entity(fullName, sizeof(X), base, made);
}

// The same of a class of entities that are known by their name alone.
template <class X>
Zol::ZolType* namedType(char const* fullName) {
  return streamType<X>(fullName, Zol::Entity::_fwkType()).arg("name", "Zol::Name").type();
}

}  // namespace Hardware
