#include "host/models/units.h"

#include "host/zol/generic/value_generic_if.h"

namespace Units {

Zol::ZolType* Volts::_fwkType() {
  static Zol::ZolType* const type = Zol::makeValueType<Volts>("Units::Volts").type();
  return type;
}

Zol::ZolType* Celsius::_fwkType() {
  static Zol::ZolType* const type = Zol::makeValueType<Celsius>("Units::Celsius").type();
  return type;
}

}  // namespace Units
