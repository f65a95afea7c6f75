// The attributes of a controller's configuration as a table, and a listener that writes down what
// it is told of them: what the tests of all controller classes walk.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "entities/controller_config.h"

namespace Hardware::Ucd9012::Test {

// One attribute. It is set and read by the place of a value among `count` different ones, of which
// the first is the default.
struct ControllerAttribute {
  std::string name;
  Zol::AttributeId id;
  std::size_t count;
  std::function<void(ControllerConfig&, std::size_t)> set;
  std::function<std::size_t(ControllerConfig const&)> get;
};

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

// All attributes that `ControllerConfig` adds, in the order of their ids.
inline std::vector<ControllerAttribute> const& controllerAttributes() {
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

// Hears of every attribute by its name, and of its own exceptions by "exception in <id>".
class ControllerListener : public ControllerConfig::Notifiee {
 public:
  std::vector<std::string> heard;
  bool throwing = false;

  // The names heard since the last call.
  std::vector<std::string> heardNow() { return std::exchange(heard, {}); }

  void onGenerationIdReadVoltage() override { hear("generationIdReadVoltage"); }
  void onGenerationIdTemperature() override { hear("generationIdTemperature"); }
  void onIsMainController() override { hear("isMainController"); }
  void onLocation() override { hear("location"); }
  void onReloadCauseSortKey() override { hear("reloadCauseSortKey"); }
  void onOperationalMode() override { hear("operationalMode"); }
  void onShutdownEnabled() override { hear("shutdownEnabled"); }
  void onPollingEnabled() override { hear("pollingEnabled"); }
  void onConfigReady() override { hear("configReady"); }
  void onModelName() override { hear("modelName"); }
  void onDescription() override { hear("description"); }
  void onReady() override { hear("ready"); }
  void onDebugPowerOff() override { hear("debugPowerOff"); }
  void onAutoStartPowerProgram() override { hear("autoStartPowerProgram"); }
  using ControllerConfig::Notifiee::onNotificationException;
  void onNotificationException(Zol::AttributeId id) override {
    heard.push_back("exception in " + std::to_string(id));
  }

 private:
  void hear(char const* attribute) {
    heard.emplace_back(attribute);
    if (throwing) throw attribute;
  }
};

// A new listener of class `Listener`, registered on the entity.
template <class Listener, class Notifier>
Zol::Ptr<Listener> listenTo(Zol::Ptr<Notifier> const& notifier) {
  Zol::Ptr<Listener> const listener = new Listener;
  listener->isRegisteredNotifieeIs(true);
  listener->notifierIs(notifier);
  return listener;
}

}  // namespace Hardware::Ucd9012::Test
