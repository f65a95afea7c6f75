// The debt of an adapter whose attributes are told by rows.
#pragma once

#include "host/zol/attrlog/log_rows.h"

namespace Zol::NboAttrLog {

// Has a bit for each row of a class and its bases. A class with collections adds its dirty keys.
class ZOL_EXPORT LevelFlowOut : public FlowOut {
 public:
  LevelFlowOut(LogLevel const& level, Ptr<Out> out, StreamAdapter* adapter, ConnectDesc desc,
               bool flag, AttributeId start);
  ~LevelFlowOut() override;
  [[nodiscard]] bool hasDirtyAttributes() const override;

 private:
  std::array<std::uint32_t, 2> owedMask_{};
  std::array<std::uint32_t, 2> syncedMask_{};
};

}  // namespace Zol::NboAttrLog
