// A small agent: it listens to the configuration of a controller, does what is asked for, and
// reports on the status side. Here the request is for a diagnostic mode and for a reading of the
// temperature.
#include <hwrailseq.h>

#include <iostream>

using namespace Hardware::Ucd9012;

namespace {

// Stands for the driver of the bus.
Units::Celsius readTemperature() { return Units::Celsius(41.5); }

class Agent : public ControllerConfig::Notifiee {
 public:
  explicit Agent(Zol::Ptr<ControllerStatus> status) : status_(std::move(status)) {}

  // The mode asked for becomes the mode in force.
  void onOperationalMode() override { status_->operationalModeIs(notifier()->operationalMode()); }

  // A new generation id asks for a reading; the same id on the status side says that it is there.
  void onGenerationIdTemperature() override {
    status_->temperatureIs(readTemperature());
    status_->generationIdTemperatureIs(notifier()->generationIdTemperature());
  }

 private:
  Zol::Ptr<ControllerStatus> status_;
};

// Shows what the agent reports.
class Display : public ControllerStatus::Notifiee {
 public:
  void onOperationalMode() override {
    std::cout << "mode " << notifier()->operationalMode() << '\n';
  }
  void onTemperature() override {
    std::cout << "temperature " << notifier()->temperature().value() << " C\n";
  }
  void onGenerationIdTemperature() override {
    std::cout << "reading " << notifier()->generationIdTemperature() << " is there\n";
  }
};

template <class Listener, class Entity>
void listen(Zol::Ptr<Listener> const& listener, Zol::Ptr<Entity> const& entity) {
  listener->isRegisteredNotifieeIs(true);
  listener->notifierIs(entity);
}

}  // namespace

int main() {
  auto const config = configFactory("board");
  auto const status = statusFactory("board");
  Zol::Ptr<ControllerConfig> const wanted =
      config->realUcd9012ControllerIs("main", "J12", nullptr, nullptr, nullptr);
  Zol::Ptr<ControllerStatus> const reported = status->realUcd9012ControllerIs("main");

  Zol::Ptr<Agent> const agent = new Agent(reported);
  listen(agent, wanted);
  Zol::Ptr<Display> const display = new Display;
  listen(display, reported);

  wanted->operationalModeIs(OperationalMode::diagMode);
  wanted->operationalModeIs(OperationalMode::diagMode);  // the same mode: nobody is told
  wanted->generationIdTemperatureIs(1);
}
