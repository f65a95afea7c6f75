// The table of the attributes of a controller's configuration.
#include "entities/controller_attributes.h"

#include <algorithm>

namespace Hardware::Ucd9012::Test {

namespace {

template <class T>
ControllerAttribute attribute(char const* name, Zol::AttributeId id,
                              T (ControllerConfig::*get)() const, void (ControllerConfig::*set)(T),
                              std::vector<T> const& values) {
  return {name, id, values.size(),
          [=](ControllerConfig& controller, std::size_t nth) { (controller.*set)(values[nth]); },
          [=](ControllerConfig const& controller) {
            auto const found = std::find(values.begin(), values.end(), (controller.*get)());
            return static_cast<std::size_t>(found - values.begin());
          }};
}

}  // namespace

std::vector<ControllerAttribute> const& controllerAttributes() {
  using C = ControllerConfig;
  std::vector<std::uint32_t> const numbers = {0, 1, 0x80000000, 0xffffffff};
  std::vector<Zol::String8> const texts = {"", "slot 1", std::string("\0\xff'", 3),
                                           std::string(5000, 'x')};
  std::vector<OperationalMode> const modes = {OperationalMode::modeNormal,
                                              OperationalMode::diagMode};
  static std::vector<ControllerAttribute> const attributes = {
      attribute("generationIdReadVoltage", 386, &C::generationIdReadVoltage,
                &C::generationIdReadVoltageIs, numbers),
      attribute("generationIdTemperature", 387, &C::generationIdTemperature,
                &C::generationIdTemperatureIs, numbers),
      attribute("isMainController", 388, &C::isMainController, &C::isMainControllerIs,
                {false, true}),
      attribute("location", 389, &C::location, &C::locationIs, texts),
      attribute("reloadCauseSortKey", 391, &C::reloadCauseSortKey, &C::reloadCauseSortKeyIs,
                numbers),
      attribute("operationalMode", 396, &C::operationalMode, &C::operationalModeIs, modes),
      attribute("shutdownEnabled", 401, &C::shutdownEnabled, &C::shutdownEnabledIs, {true, false}),
      attribute("pollingEnabled", 402, &C::pollingEnabled, &C::pollingEnabledIs, {true, false}),
      attribute("configReady", 403, &C::configReady, &C::configReadyIs, {false, true}),
      attribute("modelName", 404, &C::modelName, &C::modelNameIs, texts),
      attribute("description", 405, &C::description, &C::descriptionIs, texts),
      attribute("ready", 406, &C::ready, &C::readyIs, {false, true}),
      attribute("debugPowerOff", 407, &C::debugPowerOff, &C::debugPowerOffIs, {false, true}),
  };
  return attributes;
}

}  // namespace Hardware::Ucd9012::Test
