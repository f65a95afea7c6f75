// Which connection is applying a message on this thread.
#pragma once

#include "host/zol/forward.h"

namespace Zol::NboAttrLog {

// Null outside of a dispatch.
[[nodiscard]] Demuxer* dispatchingDemuxer() noexcept;

}  // namespace Zol::NboAttrLog
