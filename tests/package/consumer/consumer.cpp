// A user's first program: makes a tree, listens to it, changes it and compares digests. Prints the
// first thing that is not as promised and ends with 1.
#include <hwrailseq.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

using Hardware::Ucd9012::Config;
using Hardware::Ucd9012::ControllerConfig;

void require(bool holds, char const* what) {
  if (holds) return;
  std::cerr << "consumer: not so: " << what << '\n';
  std::exit(1);
}

class RootListener : public Config::Notifiee {
 public:
  using Config::Notifiee::onRealUcd9012Controller;
  void onRealUcd9012Controller(Zol::Name name) override { heard.emplace_back(name.view()); }

  std::vector<std::string> heard;
};

class ControllerListener : public ControllerConfig::Notifiee {
 public:
  void onPollingEnabled() override { ++heard; }

  int heard = 0;
};

Zol::Ptr<Config> makeBoard() {
  Zol::Ptr<Config> board(new Config("board"));
  board->realUcd9012ControllerIs("main", "customer", nullptr, nullptr, nullptr);
  return board;
}

void changesAreHeard() {
  Zol::Ptr<Config> board(new Config("board"));
  Zol::Ptr<RootListener> rootListener(new RootListener);
  rootListener->isRegisteredNotifieeIs(true);
  rootListener->notifierIs(board);

  Zol::Ptr<ControllerConfig> controller =
      board->realUcd9012ControllerIs("main", "customer", nullptr, nullptr, nullptr);
  require(rootListener->heard == std::vector<std::string>{"main"}, "the new controller is heard");

  Zol::Ptr<ControllerListener> listener(new ControllerListener);
  listener->isRegisteredNotifieeIs(true);
  listener->notifierIs(controller);
  bool const before = controller->pollingEnabled();
  controller->pollingEnabledIs(!before);
  controller->pollingEnabledIs(!before);
  require(controller->pollingEnabled() != before, "the attribute has its new value");
  require(listener->heard == 1, "a change is heard once, an equal value never");
}

void digestTellsStates() {
  Zol::Ptr<Config> const one = makeBoard();
  Zol::Ptr<Config> const other = makeBoard();
  require(Zol::digest(*one) == Zol::digest(*other), "equal trees have equal digests");
  Zol::Ptr<ControllerConfig> controller = other->realUcd9012Controller("main");
  controller->pollingEnabledIs(!controller->pollingEnabled());
  require(Zol::digest(*one) != Zol::digest(*other), "a changed attribute changes the digest");
}

}  // namespace

int main() {
  changesAreHeard();
  digestTellsStates();
  std::cout << "consumer: all as promised\n";
}
