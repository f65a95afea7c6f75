// The owner's end of a log between processes: hosts two trees at a Unix socket for any number of
// peers, out of its own poll loop, until SIGINT or SIGTERM. The other end is replica.cpp.
//
//   owner PATH
#include <hwrailseq.h>

#include <iostream>

#include "unix_socket.h"

using namespace Hardware::Ucd9012;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Zol::NboAttrLog::Connection;
using Zol::NboAttrLog::MountOptions;

namespace {

constexpr auto kTick = 200ms;
constexpr auto kAliveEvery = 2s;
constexpr auto kLongestSilence = 10s;  // of a peer, which sends signs of life as well
constexpr std::size_t kMostPeers = 64;

// Stands for the driver of the bus.
Units::Celsius readTemperature() {
  static unsigned int readings = 0;
  return Units::Celsius(40 + ++readings % 4 * 0.5);
}

// Does what is wanted: takes a reading whenever the generation id asks for one.
class Agent : public ControllerConfig::Notifiee {
 public:
  explicit Agent(Zol::Ptr<ControllerStatus> status) : status_(std::move(status)) {}
  void onGenerationIdTemperature() override {
    status_->temperatureIs(readTemperature());
    status_->generationIdTemperatureIs(notifier()->generationIdTemperature());
  }

 private:
  Zol::Ptr<ControllerStatus> status_;
};

// What this process hosts.
class Board {
 public:
  Board() {
    main_->kernelPanicEepromWpIs(new Fru::Gpo("write-protect"));
    main_->voltageRailIs(0, nullptr, nullptr)->overrideVoutUvLimitIs(Units::Volts(11.25));
    main_->voltageRailIs(3, nullptr, nullptr)->overrideVoutUvLimitIs(Units::Volts(0.75));
    agent_->isRegisteredNotifieeIs(true);
    agent_->notifierIs(main_);
  }
  // Peers may write what is wanted of the controllers, but not what these report.
  void mountOn(Connection& peer) const {
    peer.mountIs(config_, {MountOptions::writableByPeer});
    peer.mountIs(status_, {MountOptions::readOnlyForPeer});
  }
  // What changes in the course of time: a scalar, and the members of a keyed attribute.
  void tick() {
    ++ticks_;
    reported_->temperatureIs(readTemperature());
    main_->reloadCauseIs(ticks_ % 3, {ReloadCauses::watchdog, CauseType::gpio, ticks_, false});
    main_->reloadCauseDel((ticks_ + 1) % 3);
  }

 private:
  std::uint32_t ticks_ = 0;
  Zol::Ptr<Config> config_ = configFactory("board");
  Zol::Ptr<Status> status_ = statusFactory("board-status");
  Zol::Ptr<ControllerConfig> main_ =
      config_->realUcd9012ControllerIs("main", "J12", nullptr, nullptr, nullptr);
  Zol::Ptr<ControllerStatus> reported_ = status_->realUcd9012ControllerIs("main");
  Zol::Ptr<Agent> agent_ = new Agent(reported_);
};

class Server {
 public:
  explicit Server(std::string path) : socket_(std::move(path)) {}

  void run() {
    int const stop = stopSignals();
    int const listener = socket_.listen();
    std::cout << "listening\n";
    Clock::time_point nextTick = Clock::now();
    for (bool isBusy = false;;) {
      std::vector<pollfd> waited{{stop, POLLIN, 0}, {hasRoom() ? listener : -1, POLLIN, 0}};
      for (auto const& peer : peers_) waited.push_back(polled(*peer));
      auto const left = std::chrono::ceil<std::chrono::milliseconds>(nextTick - Clock::now());
      poll(waited.data(), waited.size(), isBusy ? 0 : std::max(0, static_cast<int>(left.count())));
      if (waited[0].revents != 0) break;
      if (waited[1].revents != 0) accept(listener);
      if (Clock::now() >= nextTick) {
        board_.tick();
        nextTick = Clock::now() + kTick;
      }
      isBusy = pump();
    }
    for (auto const& peer : peers_) peer->close("the owner ends");
    unlink(socket_.path().c_str());
  }

 private:
  [[nodiscard]] bool hasRoom() const { return peers_.size() < kMostPeers; }
  void accept(int listener) {
    int const fd = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (fd < 0) return;  // who was there has gone again
    peers_.push_back(
        Connection::overFd(fd, {.ownName = "owner", .aliveEvery = kAliveEvery, .maxMounts = 0}));
    board_.mountOn(*peers_.back());
  }
  // One turn for each peer. False when there was nothing to do.
  bool pump() {
    bool worked = false;
    for (auto const& peer : peers_) {
      worked = peer->pump() || worked;
      if (Clock::now() - peer->lastMessageTime() > kLongestSilence) peer->close("you are silent");
      if (peer->isOpen()) continue;
      std::string const& reason = peer->error();
      std::cout << "a peer has gone: " << (reason.empty() ? "silent" : reason) << '\n';
      Zol::NboAttrLog::forgetPeer(peer->peerName());  // this end holds nothing for its coming back
    }
    std::erase_if(peers_, [](auto const& peer) { return !peer->isOpen(); });
    return worked;
  }

  UnixSocket socket_;
  Board board_;
  std::vector<Zol::Ptr<Connection>> peers_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: owner PATH\n";
    return 2;
  }
  std::cout << std::unitbuf;  // each line at once, into a pipe too
  try {
    Server(argv[1]).run();
  } catch (std::exception const& error) {
    std::cerr << "owner: " << error.what() << '\n';
    return 1;
  }
}
