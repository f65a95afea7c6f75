// The value record `PsocCause`: how a bit that a PSoC reports stands for a reload cause.
#pragma once

#include <cstdint>

#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// A plain value. To change one that a collection holds, store another under the same key.
class ZOL_EXPORT PsocCause {
 public:
  class GenericIf_;
  class _Type;

  PsocCause() = default;
  PsocCause(ReloadCauses reloadCauseKey, std::uint16_t bitNum, bool origin)
      : reloadCauseKey_(reloadCauseKey), bitNum_(bitNum), origin_(origin) {}

  [[nodiscard]] ReloadCauses reloadCauseKey() const { return reloadCauseKey_; }
  [[nodiscard]] std::uint16_t bitNum() const { return bitNum_; }
  // A flag that goes with the bit; nothing here reads a meaning into it.
  [[nodiscard]] bool origin() const { return origin_; }

  [[nodiscard]] Zol::ZolType* fwkType() const { return _fwkType(); }
  static Zol::ZolType* _fwkType();

  friend bool operator==(PsocCause const&, PsocCause const&) = default;

 private:
  ReloadCauses reloadCauseKey_ = ReloadCauses::rc_unknown;
  std::uint16_t bitNum_ = 0;
  bool origin_ = false;
};

}  // namespace Hardware::Ucd9012
