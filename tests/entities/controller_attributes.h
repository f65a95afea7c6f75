// The attributes of a controller's configuration as a table, and a listener that writes down what
// it is told of them: what the tests of all controller classes walk.
#pragma once

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

// All attributes that `ControllerConfig` adds, in the order of their ids.
std::vector<ControllerAttribute> const& controllerAttributes();

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
