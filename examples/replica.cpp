// The other end of owner.cpp: holds replicas of its trees and tells what it hears. It waits for an
// owner that is not there, and comes back to one that was lost, until SIGINT or SIGTERM. With
// --write it also asks for a reading of the temperature.
//
//   replica PATH [--write]
#include <hwrailseq.h>

#include <iostream>

#include "unix_socket.h"

using namespace Hardware::Ucd9012;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Zol::NboAttrLog::Connection;

namespace {

constexpr auto kAliveEvery = 2s;
constexpr auto kLongestSilence = 10s;  // of the owner, which sends signs of life as well
constexpr std::chrono::milliseconds kTick = 500ms;  // at most so long between two turns
constexpr std::chrono::milliseconds kFirstPause = 50ms;
constexpr std::chrono::milliseconds kLongestPause = 5s;

// What is heard of a controller's configuration.
class Wanted : public ControllerConfig::Notifiee {
 public:
  using ControllerConfig::Notifiee::onReloadCause;
  // A member was stored, or taken out.
  void onReloadCause(std::uint32_t key) override {
    auto const cause = notifier()->reloadCauseIteratorConst(key);
    if (cause && cause.key() == key) {
      std::cout << "reload cause " << key << ": input " << cause->id() << '\n';
    } else {
      std::cout << "reload cause " << key << " has gone\n";
    }
  }
  void onPollingEnabled() override {
    std::cout << "polling " << notifier()->pollingEnabled() << '\n';
  }
};

// What is heard of its status.
class Reported : public ControllerStatus::Notifiee {
 public:
  void onTemperature() override {
    std::cout << "temperature " << notifier()->temperature().value() << " C" << '\n';
  }
  void onGenerationIdTemperature() override {
    std::cout << "readings taken: " << notifier()->generationIdTemperature() << '\n';
  }
};

// Keeps a listener at the controller "main" of a root, which may go and come anew.
template <class Root, class Listener>
class AtMain : public Root::Notifiee {
 public:
  AtMain() {
    this->isRegisteredNotifieeIs(true);
    main_->isRegisteredNotifieeIs(true);
  }
  // A root that was there before is the same object, and changes nothing here.
  void rootIs(Zol::Ptr<Zol::Entity> const& root) {
    this->notifierIs(root);
    onRealUcd9012Controller("main");
  }
  using Root::Notifiee::onRealUcd9012Controller;
  void onRealUcd9012Controller(Zol::Name name) override {
    auto const root = this->notifier();
    if (name == "main") main_->notifierIs(root ? root->realUcd9012Controller(name) : nullptr);
  }

 private:
  Zol::Ptr<Listener> main_ = new Listener;
};

// Walks a collection, and follows a reference.
void show(Ucd9012ControllerConfig& main) {
  std::cout << main.voltageRailCount() << " rails\n";
  for (auto rail = main.voltageRailIterator(); rail; ++rail) {
    std::cout << "rail " << +rail.key() << ": at least " << rail->overrideVoutUvLimit().value()
              << " V\n";
  }
  if (auto const pin = main.kernelPanicEepromWp()) std::cout << "pin " << pin->name() << '\n';
}

class Replica {
 public:
  Replica(std::string path, bool writes) : socket_(std::move(path)), writes_(writes) {}

  // One connection after the other.
  void run() {
    std::chrono::milliseconds pause = kFirstPause;
    while (waits({-1, 0, 0}, pause)) {
      pause = follow() ? kFirstPause : std::min(2 * pause, kLongestPause);
    }
  }

 private:
  // From a connection's beginning to its end. True when it has caught up.
  bool follow() {
    int const fd = socket_.connect();
    if (fd < 0) {
      lost(std::strerror(errno));
      return false;
    }
    // What has been received of a peer with a name stays over reconnects, and so do listeners.
    auto const connection = Connection::overFd(
        fd, {.ownName = "replica", .peerName = "owner", .aliveEvery = kAliveEvery});
    bool isCaughtUp = false;
    while (connection->isOpen()) {
      bool const isBusy = connection->pump();
      if (!isCaughtUp && connection->synced("board") && connection->synced("board-status")) {
        isCaughtUp = true;
        caughtUp(*connection);
      }
      if (Clock::now() - connection->lastMessageTime() > kLongestSilence) {
        lost("it is silent");
        connection->close("you are silent");
      }
      if (!waits(polled(*connection), isBusy ? 0ms : kTick)) connection->close("the replica ends");
    }
    if (!connection->error().empty()) lost(connection->error());
    return isCaughtUp;
  }
  // False once a signal has come, which is left in its descriptor for the next wait.
  [[nodiscard]] bool waits(pollfd forWhat, std::chrono::milliseconds longest) const {
    pollfd waited[] = {forWhat, {stop_, POLLIN, 0}};
    poll(waited, 2, static_cast<int>(longest.count()));
    return waited[1].revents == 0;
  }
  void caughtUp(Connection const& connection) {
    lost_.clear();
    std::cout << "caught up\n";
    config_->rootIs(connection.mounted("board"));
    status_->rootIs(connection.mounted("board-status"));
    auto const main =
        config_->notifier() ? config_->notifier()->realUcd9012Controller("main") : nullptr;
    if (!main) return;
    show(*main);
    if (writes_) main->generationIdTemperatureIs(main->generationIdTemperature() + 1);
  }
  // Each reason once, however often it is tried.
  void lost(std::string const& reason) {
    if (reason != lost_) std::cout << "no owner: " << reason << '\n';
    lost_ = reason;
  }

  UnixSocket socket_;
  bool writes_;
  int stop_ = stopSignals();
  std::string lost_;
  Zol::Ptr<AtMain<Config, Wanted>> config_ = new AtMain<Config, Wanted>;
  Zol::Ptr<AtMain<Status, Reported>> status_ = new AtMain<Status, Reported>;
};

}  // namespace

int main(int argc, char** argv) {
  bool const writes = argc == 3 && std::string_view(argv[2]) == "--write";
  if (argc != 2 && !writes) {
    std::cerr << "usage: replica PATH [--write]\n";
    return 2;
  }
  std::cout << std::unitbuf;  // each line at once, into a pipe too
  try {
    Replica(argv[1], writes).run();
  } catch (std::exception const& error) {
    std::cerr << "replica: " << error.what() << '\n';
    return 1;
  }
}
