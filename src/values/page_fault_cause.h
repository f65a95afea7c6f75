// The value record `PageFaultCause`: how the fault bits of a source stand for a reload cause.
#pragma once

#include <cstdint>

#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// A plain value. To change one that a collection holds, store another under the same key.
class ZOL_EXPORT PageFaultCause {
 public:
  class GenericIf_;
  class _Type;

  PageFaultCause() = default;
  PageFaultCause(ReloadCauses reloadCauseKey, std::uint32_t id, std::uint32_t faultMask)
      : reloadCauseKey_(reloadCauseKey), id_(id), faultMask_(faultMask) {}

  [[nodiscard]] ReloadCauses reloadCauseKey() const { return reloadCauseKey_; }
  // The number of the source.
  [[nodiscard]] std::uint32_t id() const { return id_; }
  // The fault bits that count for this cause.
  [[nodiscard]] std::uint32_t faultMask() const { return faultMask_; }

  [[nodiscard]] Zol::ZolType* fwkType() const { return _fwkType(); }
  static Zol::ZolType* _fwkType();

  friend bool operator==(PageFaultCause const&, PageFaultCause const&) = default;

 private:
  ReloadCauses reloadCauseKey_ = ReloadCauses::rc_unknown;
  std::uint32_t id_ = 0;
  std::uint32_t faultMask_ = 0;
};

}  // namespace Hardware::Ucd9012
