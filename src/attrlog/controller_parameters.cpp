#include "attrlog/controller_parameters.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012 {

namespace {

unsigned long long referenceId(Zol::OutPtr const& out, Zol::Entity const* entity) {
  return entity ? const_cast<Zol::Entity*>(entity)->entityId(out, true, true, true) : 0;
}

}  // namespace

ControllerParameters ControllerParameters::read(Zol::NboAttrLog::In& in) {
  ControllerParameters parameters;
  parameters.name = in.nextString();
  parameters.customerName = in.nextString();
  parameters.dexoDesc = in.nextEntity<Hardware::DexoDesc>();
  parameters.resetGpioPinConfig = in.nextEntity<Hardware::Gpio::PinConfig>();
  parameters.resetGpioPinStatus = in.nextEntity<Hardware::Gpio::PinStatus>();
  return parameters;
}

void writeControllerParameters(Zol::OutPtr const& out, Zol::Entity const& entity) {
  auto const& controller = static_cast<ControllerConfig const&>(entity);
  out << Zol::String8(controller.name()) << Zol::String8(controller.customerName());
  out << referenceId(out, controller.dexoDesc().get());
  out << referenceId(out, controller.resetGpioPinConfig().get());
  out << referenceId(out, controller.resetGpioPinStatus().get());
}

}  // namespace Hardware::Ucd9012
