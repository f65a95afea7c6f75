// The value record `ExternalVoltageRail`: a rail outside the controller, with the kind of fault
// that it stands for.
#pragma once

#include <cstdint>

#include "host/zol/export.h"
#include "host/zol/forward.h"

namespace Hardware::Ucd9012 {

// A plain value. To change one that a collection holds, store another under the same key.
class ZOL_EXPORT ExternalVoltageRail {
 public:
  class GenericIf_;
  class _Type;

  ExternalVoltageRail() = default;
  ExternalVoltageRail(std::uint8_t railNum, std::uint8_t faultType)
      : railNum_(railNum), faultType_(faultType) {}

  [[nodiscard]] std::uint8_t railNum() const { return railNum_; }
  // A bare number, defined by those who fill it.
  [[nodiscard]] std::uint8_t faultType() const { return faultType_; }

  [[nodiscard]] Zol::ZolType* fwkType() const { return _fwkType(); }
  static Zol::ZolType* _fwkType();

  friend bool operator==(ExternalVoltageRail, ExternalVoltageRail) = default;

 private:
  std::uint8_t railNum_ = 0;
  std::uint8_t faultType_ = 0;
};

}  // namespace Hardware::Ucd9012
