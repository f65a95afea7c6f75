// The constructor parameters of a controller, as they stand in an announcement.
#pragma once

#include "entities/controller_config.h"
#include "host/zol/attrlog/in.h"
#include "host/zol/attrlog/out.h"

namespace Hardware::Ucd9012 {

// text name, text customerName, and references to dexoDesc, resetGpioPinConfig, resetGpioPinStatus.
struct ControllerParameters {
  Zol::Name name;
  Zol::Name customerName;
  Zol::Ptr<Hardware::DexoDesc> dexoDesc;
  Zol::Ptr<Hardware::Gpio::PinConfig> resetGpioPinConfig;
  Zol::Ptr<Hardware::Gpio::PinStatus const> resetGpioPinStatus;

  // Throws `AttrLogEntityException` for a reference to an unknown entity or to one of another
  // class.
  static ControllerParameters read(Zol::NboAttrLog::In& in);
};

// Writes them in that order; announces what they refer to first, where the log does not know it.
void writeControllerParameters(Zol::OutPtr const& out, Zol::Entity const& controller);

}  // namespace Hardware::Ucd9012
