// The debt of an adapter whose attributes are told by rows.
#pragma once

#include <map>

#include "host/zol/attrlog/log_rows.h"

namespace Zol::NboAttrLog {

// Has a bit for each row of a class and its bases, and the keys owed of each collection.
class ZOL_EXPORT LevelFlowOut final : public FlowOut {
 public:
  LevelFlowOut(LogLevel const& level, Ptr<Out> out, StreamAdapter* adapter, ConnectDesc desc,
               bool flag, AttributeId start);
  ~LevelFlowOut() override;
  [[nodiscard]] bool hasDirtyAttributes() const override;
  [[nodiscard]] std::vector<Name> owedAttributes() const override;

  // The keys owed of the collection with this attribute id, which keeps them as `Keys`.
  template <class Keys>
  [[nodiscard]] Keys& dirty(AttributeId id) {
    std::unique_ptr<DirtyKeysBase>& keys = keys_[id];
    if (!keys) keys = std::make_unique<Keys>();
    return static_cast<Keys&>(*keys);
  }

 private:
  [[nodiscard]] bool owesRow(LogRow const& row) const;

  LogLevel const& level_;
  std::array<std::uint32_t, 2> owedMask_{};
  std::array<std::uint32_t, 2> syncedMask_{};
  std::map<AttributeId, std::unique_ptr<DirtyKeysBase>> keys_;
};

}  // namespace Zol::NboAttrLog
