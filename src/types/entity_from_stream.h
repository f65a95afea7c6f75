// Makes entities from the constructor parameters that stand in a message.
#pragma once

#include "attrlog/controller_parameters.h"
#include "host/models/siblings.h"
#include "host/zol/attrlog/in.h"
#include "types/all_classes.h"

namespace Hardware::Ucd9012 {

// Reads the parameters of the constructor of `X` in their order, all of them before the entity is
// made. Leaves what stands behind them in the stream. Throws `AttrLogEntityException` for a
// reference to an entity of another class than the parameter's.
template <class X>
Zol::Ptr<X> entityFromStream(Zol::NboAttrLog::In& in) {
  if constexpr (std::is_base_of_v<ControllerConfig, X>) {
    auto const parameters = ControllerParameters::read(in);
    return new X(parameters.name, parameters.customerName, parameters.dexoDesc,
                 parameters.resetGpioPinConfig, parameters.resetGpioPinStatus);
  } else if constexpr (std::is_same_v<VoltageRailConfig, X>) {
    std::uint8_t const id = in.nextU8();
    auto const config = in.nextEntity<Environment::Power::VoltageRailConfig>();
    auto const status = in.nextEntity<Environment::Power::VoltageRailStatus>();
    return new X(id, config, status);
  } else {
    return new X(in.nextString());
  }
}

}  // namespace Hardware::Ucd9012
