// Brings a child to its stream adapter, knowing the type of its holder.
#pragma once

#include <algorithm>

#include "host/zol/attrlog/entity_adapter.h"
#include "host/zol/registry/zol_attr.h"
#include "schema/attribute_rows.h"

namespace Hardware::Ucd9012 {

// Announces `child` on `out` when `attr` is a child attribute that the class `X` of its holder
// defines itself; false when it is not. The holder has an adapter on `out`.
template <class X>
bool childAnnounced(Zol::ZolAttr const& attr, Zol::PtrInterface* child,
                    Zol::Ptr<Zol::NboAttrLog::Out> const& out) {
  auto const& rows = kAttributeRows<X>;
  auto const row = std::ranges::find(rows, attr.name().view(), &AttributeRow::name);
  if (row == rows.end()) return false;
  if (row->kind != AttributeKind::singleton && row->kind != AttributeKind::children) return false;
  auto* const entity = dynamic_cast<Zol::Entity*>(child);
  auto* const owner = entity ? dynamic_cast<X*>(entity->zolParent()) : nullptr;
  auto const adapter = owner ? owner->zolNboAttrLogSa(out) : nullptr;
  if (!adapter) return true;
  constexpr unsigned int kNotForChildren = 0x400;
  unsigned int const flags = Zol::notificationBitMask() & ~kNotForChildren;
  Zol::NboAttrLog::announceHeldChild(*adapter, row->id, {flags & adapter->zol_bitSet().word()},
                                     *entity);
  return true;
}

}  // namespace Hardware::Ucd9012
