// What can be done by name with the attributes of a class: one row of functions for each.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "host/zol/generic/generic_if_entity.h"

namespace Zol {

// A walk of one attribute's members, by a typed iterator behind a plain pointer.
struct WalkRow {
  void* (*first)(Entity const& holder);
  // On the member of exactly that key, or on nothing.
  void* (*at)(Entity const& holder, GenericIf const& key);
  void* (*clone)(void const* iterator);
  void (*step)(void* iterator);
  bool (*nonNull)(void const* iterator);
  Ptr<GenericIf> (*member)(void const* iterator, bool isConst);
  Ptr<GenericIf> (*key)(void const* iterator);
  void (*del)(void* iterator);
};

// One operation on an attribute, as it came in.
struct ZOL_EXPORT AccessCall {
  AccessRow const& row;
  Entity& holder;
  std::int32_t op;
  Ptr<GenericIf const> const& index;
  Ptr<GenericIf> const& value;
  // Of the generic object by way of which it came.
  bool isConst;

  [[noreturn]] void refuseOp() const;
  // Throws `BadIndexAttrException` with the attribute's name.
  void requireNoIndex() const;
  // Throws `TypeException` with the name of the key.
  [[nodiscard]] GenericIf const& requireIndex() const;
  // Throws `TypeException` with the attribute's name.
  [[nodiscard]] GenericIf const& requireValue() const;
};

struct AccessRow {
  AttributeId id;
  std::string_view name;
  // What a missing key is called, and the type of keys; empty and null for an attribute without.
  std::string_view keyName;
  ZolType* (*keyType)();
  Ptr<GenericIf> (*op)(AccessCall const& call);
  // Tells of what has changed, as one change of a member or as a whole; null for an attribute that
  // does not change.
  void (*deliver)(GenericIfEntity& generic, bool whole);
  // Null for an attribute without keys.
  WalkRow const* walk;
};

// The rows of one class, in the order of the ids without a gap, and those of the class that it
// derives from.
struct AccessLevel {
  std::span<AccessRow const> rows;
  AccessLevel const* base = nullptr;

  [[nodiscard]] AccessRow const* find(std::string_view name) const noexcept {
    auto const row = std::ranges::find(rows, name, &AccessRow::name);
    return row != rows.end() ? &*row : base ? base->find(name) : nullptr;
  }
  [[nodiscard]] AccessRow const* find(AttributeId id) const noexcept {
    AttributeId const offset = rows.empty() ? -1 : id - rows.front().id;
    if (offset >= 0 && static_cast<std::size_t>(offset) < rows.size()) {
      return &rows[static_cast<std::size_t>(offset)];
    }
    return base ? base->find(id) : nullptr;
  }
};

}  // namespace Zol
