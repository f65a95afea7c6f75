#include "host/zol/attrlog/level_flow_out.h"

#include <algorithm>

namespace Zol::NboAttrLog {

DirtyKeysBase::~DirtyKeysBase() = default;

LevelFlowOut::LevelFlowOut(LogLevel const& level, Ptr<Out> out, StreamAdapter* adapter,
                           ConnectDesc desc, bool flag, AttributeId start)
    : FlowOut(std::move(out), adapter, std::move(desc), flag, start) {
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

}  // namespace Zol::NboAttrLog
