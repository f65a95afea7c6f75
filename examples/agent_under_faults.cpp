// How to test an agent on a bad line: it follows a board over a connection that breaks again and
// again, must take no reading twice, and must end with the one that was asked for last.
#include <faults/faults.h>
#include <hwrailseq.h>

#include <iostream>

using namespace Hardware::Ucd9012;
using Zol::Faults::Link;

namespace {

// Takes a reading whenever the generation id asks for one.
class Agent : public ControllerConfig::Notifiee {
 public:
  void onGenerationIdTemperature() override {
    repeats += notifier()->generationIdTemperature() <= lastReading ? 1 : 0;
    lastReading = notifier()->generationIdTemperature();
  }
  std::uint32_t lastReading = 0;
  int repeats = 0;
};

// One connection; the stream breaks behind so many bytes, and moves them in small pieces.
Link lineThatBreaksBehind(std::uint64_t bytes) {
  Zol::NboAttrLog::ConnectionOptions board;
  board.ownName = "board";
  Zol::NboAttrLog::ConnectionOptions agent;
  agent.ownName = "agent";
  agent.peerName = "board";  // what the agent has received of it stays over reconnects
  Zol::Faults::Plan plan;
  plan.seed = bytes;
  plan.maxPiece = 40;
  plan.delay = 200;
  plan.cutAfter = bytes;
  return {board, agent, plan};
}

}  // namespace

int main() {
  auto const config = configFactory("config");
  auto const main = config->realUcd9012ControllerIs("main", "J12", nullptr, nullptr, nullptr);

  Zol::Ptr<Agent> const agent = new Agent;
  std::uint32_t asked = 0;
  int broken = 0;
  for (std::uint64_t bytes = 50; bytes < 2500; bytes += 50) {
    Link line = lineThatBreaksBehind(bytes);
    line.left->mountIs(config);
    line.settle();
    auto const root = Zol::ptrCast<Config>(line.right->mounted("config"));
    auto const mirror = root ? root->realUcd9012Controller("main") : nullptr;
    if (mirror && !agent->notifier()) {
      agent->isRegisteredNotifieeIs(true);
      agent->notifierIs(mirror);
    }
    if (!line.right->isOpen()) ++broken;
    if (!agent->notifier()) continue;
    main->generationIdTemperatureIs(++asked);  // on a broken line: heard of over the next one
    line.settle();
  }
  Link last = lineThatBreaksBehind(1000000);
  last.left->mountIs(config);
  last.settle();

  bool const equal = Zol::digest(*config) == Zol::digest(*last.right->mounted("config"));
  std::cout << (broken > 10 ? "lines broke" : "lines held") << '\n'
            << "asked for " << asked << ", done " << agent->lastReading << ", twice "
            << agent->repeats << '\n'
            << "equal: " << equal << '\n';
}
