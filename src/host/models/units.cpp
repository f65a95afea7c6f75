#include "host/models/units.h"

#include "host/zol/registry/model_type.h"

namespace Units {

Zol::ZolType* Volts::_fwkType() {
  static Zol::ZolType* const type = Zol::ModelType::value("Units::Volts", sizeof(Volts)).type();
  return type;
}

Zol::ZolType* Celsius::_fwkType() {
  static Zol::ZolType* const type = Zol::ModelType::value("Units::Celsius", sizeof(Celsius)).type();
  return type;
}

}  // namespace Units
