// Physical quantities: a floating-point number that knows its unit.
#pragma once

#include <limits>

#include "host/zol/export.h"
#include "host/zol/forward.h"

namespace Units {

// A number of the unit `Self`. Negative infinity, the default, stands for "no reading" or "no
// override". Two quantities are equal when their numbers compare equal, so one that is not a number
// equals nothing.
template <class Self>
class Quantity {
 public:
  constexpr Quantity() = default;
  constexpr Quantity(double value) : value_(value) {}

  [[nodiscard]] constexpr double value() const noexcept { return value_; }

  friend constexpr bool operator==(Self const& a, Self const& b) noexcept {
    return a.value() == b.value();
  }

 private:
  double value_ = -std::numeric_limits<double>::infinity();
};

class ZOL_EXPORT Volts : public Quantity<Volts> {
 public:
  using Quantity::Quantity;
  static Zol::ZolType* _fwkType();
};

class ZOL_EXPORT Celsius : public Quantity<Celsius> {
 public:
  using Quantity::Quantity;
  static Zol::ZolType* _fwkType();
};

}  // namespace Units
