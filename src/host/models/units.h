// Physical quantities: a floating-point number that knows its unit.
#pragma once

#include <limits>

#include "host/zol/export.h"
#include "host/zol/value_reading.h"
#include "host/zol/value_text.h"

// Physical quantities.
namespace Units {

// A number of the unit `Self`. Negative infinity, the default, stands for "no reading" or "no
// override". Two quantities are equal when their numbers compare equal, so one that is not a number
// equals nothing.
template <class Self>
class Quantity {
 public:
  constexpr Quantity() = default;
  // Any number, infinities and not-a-number included.
  constexpr Quantity(double value) : value_(value) {}

  // The number, in the unit of the class.
  [[nodiscard]] constexpr double value() const noexcept { return value_; }

  friend constexpr bool operator==(Self const& a, Self const& b) noexcept {
    return a.value() == b.value();
  }

 private:
  double value_ = -std::numeric_limits<double>::infinity();
};

// The number, as "0.85", "-inf" or "nan", and back from it.
template <class Self>
Zol::String8 valueToStrep(Quantity<Self> const& value) {
  return Zol::numberText(value.value());
}
template <class Self>
requires std::derived_from<Self, Quantity<Self>> Self sequenceToValue(
    Zol::String8::IteratorConst& position, Zol::String8::IteratorConst const& end, Self*) {
  return Self(Zol::floatingAt(position, end));
}

// A voltage in volts.
class ZOL_EXPORT Volts : public Quantity<Volts> {
 public:
  using Quantity::Quantity;
  static Zol::ZolType* _fwkType();
};

// A temperature in degrees Celsius.
class ZOL_EXPORT Celsius : public Quantity<Celsius> {
 public:
  using Quantity::Quantity;
  static Zol::ZolType* _fwkType();
};

}  // namespace Units
