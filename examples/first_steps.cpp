// One tree, one listener, and a replica at the other end of a log.
#include <hwrailseq.h>

#include <iostream>

using Hardware::Ucd9012::ControllerConfig;

struct Agent : ControllerConfig::Notifiee {
  void onPollingEnabled() override {
    std::cout << "polling of " << name() << ": " << notifier()->pollingEnabled() << '\n';
  }
};

int main() {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const main = config->realUcd9012ControllerIs("main", "J12", nullptr, nullptr, nullptr);

  auto const [here, there] = Zol::NboAttrLog::connectionPair();
  here->mountIs(config);
  while (here->pump() || there->pump()) continue;

  auto const mirror = Zol::ptrCast<Hardware::Ucd9012::Config>(there->mounted("board"));
  Zol::Ptr<Agent> const agent(new Agent);
  agent->isRegisteredNotifieeIs(true);
  agent->notifierIs(mirror->realUcd9012Controller("main"));

  main->pollingEnabledIs(false);
  while (here->pump() || there->pump()) continue;
  std::cout << "equal: " << (Zol::digest(*config) == Zol::digest(*mirror)) << '\n';
}
