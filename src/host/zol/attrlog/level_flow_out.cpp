#include "host/zol/attrlog/level_flow_out.h"

#include <algorithm>

#include "host/zol/registry/zol_attr.h"

namespace Zol::NboAttrLog {

DirtyKeysBase::~DirtyKeysBase() = default;

LevelFlowOut::LevelFlowOut(LogLevel const& level, Ptr<Out> out, StreamAdapter* adapter,
                           ConnectDesc desc, bool flag, AttributeId start)
    : FlowOut(std::move(out), adapter, std::move(desc), flag, start), level_(level) {
  for (LogLevel const* at = &level; at; at = at->base) {
    for (LogRow const& row : at->rows) {
      bool const collection = row.kind == LogRow::Kind::collection;
      (collection ? syncedMask_ : owedMask_)[row.bit.set] |= row.bit.mask;
      owedFromStart(row.bit, row.id, collection);
    }
  }
}

LevelFlowOut::~LevelFlowOut() = default;

bool LevelFlowOut::hasDirtyAttributes() const {
  return FlowOut::hasDirtyAttributes() || owes(0, owedMask_[0], syncedMask_[0]) ||
         owes(1, owedMask_[1], syncedMask_[1]) ||
         std::ranges::any_of(keys_, [](auto const& keys) { return !keys.second->empty(); });
}

// The rows have the truth about a walk too: each one's bit changes as it has been sent.
bool LevelFlowOut::owesRow(LogRow const& row) const {
  bool const collection = row.kind == LogRow::Kind::collection;
  if (bit(row.bit) != collection || pendingAborts().contains(row.id)) return true;
  if (attrId() == row.id && (hasValueIter() || hasValueKey() || hasBookmark())) return true;
  auto const keys = keys_.find(row.id);
  return keys != keys_.end() && !keys->second->empty();
}

std::vector<Name> LevelFlowOut::owedAttributes() const {
  std::vector<Name> names;
  for (LogLevel const* at = &level_; at; at = at->base) {
    for (LogRow const& row : at->rows) {
      if (!owesRow(row)) continue;
      ZolAttr const* const attr = row.attr(row.id);
      names.push_back(attr ? attr->name() : Name(format("%d", static_cast<int>(row.id))));
    }
  }
  return names;
}

}  // namespace Zol::NboAttrLog
