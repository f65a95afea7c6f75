// Soak: a board with a replica on a bad line for as long as is asked for, to which both ends write
// in some of the connections. Breaks the line again and again, compares both trees after each good
// connection, and ends with figures.
#include <faults/faults.h>
#include <hwrailseq.h>

#include <charconv>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <random>
#include <string_view>

#include "resident_memory.h"

using namespace Hardware::Ucd9012;
using Zol::Faults::Link;
using Zol::Faults::Plan;
using Zol::NboAttrLog::ConnectionOptions;
using Zol::NboAttrLog::MountOptions;

namespace {

struct Figures {
  std::uint64_t changes = 0;
  std::uint64_t mirrorChanges = 0;
  std::uint64_t refusals = 0;
  std::uint64_t connections = 0;
  std::uint64_t broken = 0;
  std::uint64_t delays = 0;
  std::uint64_t bitsChanged = 0;
  std::uint64_t doubled = 0;
  std::uint64_t bytes = 0;
  std::uint64_t comparisons = 0;
  std::uint64_t differences = 0;
};

class Soak {
 public:
  explicit Soak(std::uint64_t seed) : random_(seed) {
    for (unsigned int i = 0; i < kControllers; ++i) controller(*config_, i);
  }

  // One connection: mostly a bad one.
  void round() {
    bool const good = below(4) == 0;
    bool const writable = below(3) == 0;
    Link link = connect(good ? Plan{} : badPlan(), good ? Plan{} : badPlan(), writable);
    for (int i = 0; i < 200; ++i) {
      change(*config_);
      if (writable && below(2) == 0) changeMirror(link);
      if (below(3) == 0) link.pump();
    }
    link.settle();
    if (good) compare(link);
    if (!link.right->isOpen()) ++figures.broken;
    for (auto const& direction : {link.there, link.back}) {
      figures.delays += direction->delayed();
      figures.bitsChanged += direction->garbled();
      figures.doubled += direction->duplicated();
      figures.bytes += direction->bytes();
    }
  }

  Figures figures;

 private:
  static constexpr unsigned int kControllers = 16;

  std::uint64_t below(std::uint64_t limit) { return random_() % limit; }
  Zol::Ptr<Ucd9012ControllerConfig> controller(Config& config, unsigned int number) {
    Zol::Name const name = Zol::format("c%u", number);
    auto const present = config.realUcd9012Controller(name);
    if (present) return present;
    return config.realUcd9012ControllerIs(name, "soak", nullptr, pin_, nullptr);
  }
  // A bad line may have brought what takes no more changes.
  void changeMirror(Link const& link) {
    auto const mirror = Zol::ptrCast<Config>(link.right->mounted("soak"));
    if (!mirror) return;
    ++figures.mirrorChanges;
    try {
      change(*mirror);
    } catch (Zol::Exception const&) {
      ++figures.refusals;
    }
  }
  void change(Config& config) {
    ++figures.changes;
    auto const at = static_cast<unsigned int>(below(kControllers));
    auto const key = static_cast<std::uint8_t>(below(16));
    auto const value = static_cast<std::uint32_t>(random_());
    auto const main = controller(config, at);
    switch (below(12)) {
      case 0:
        return main->pollingEnabledIs(value % 2 != 0);
      case 1:
        return main->locationIs(std::string(below(100), 'l'));
      case 2:
        return main->descriptionIs(std::string(below(60000), 'd'));
      case 3:
        main->voltageRailIs(key, nullptr, nullptr)
            ->sensorMibIs(value % 2 ? sensor_ : Zol::Ptr<EntityMib::Sensor>());
        return;
      case 4:
        main->voltageRailDel(key);
        return;
      case 5:
        return main->reloadCauseIs(key, {ReloadCauses(0), CauseType(0), value, true});
      case 6:
        main->reloadCauseDel(key);
        return;
      case 7:
        main->diagCommandConfigIs("command")->parameterIs(key, std::string(below(500), 'p'));
        return;
      case 8:
        main->diagCommandConfigDel();
        return;
      case 9:
        return config.controllerIs(main);
      case 10:
        config.controllerDel(main->name());
        return;
      default:
        if (value % 8 == 0) config.realUcd9012ControllerDel(main->name());
        return main->reloadCauseSortKeyIs(value);
    }
  }
  Plan badPlan() {
    Plan plan;
    plan.seed = random_();
    plan.maxPiece = below(2) == 0 ? 4000 : 0;
    plan.delay = 200;
    plan.stall = 5;
    plan.garble = below(4) == 0 ? 2 : 0;
    plan.duplicate = below(4) == 0 ? 2 : 0;
    plan.cutAfter = below(200000);
    return plan;
  }
  Link connect(Plan const& there, Plan const& back, bool writable) {
    ConnectionOptions source;
    ConnectionOptions replica;
    source.ownName = replica.peerName = "soak source";
    replica.ownName = source.peerName = "soak replica";
    Link link(source, replica, there, back);
    link.left->mountIs(config_,
                       {writable ? MountOptions::writableByPeer : MountOptions::readOnlyForPeer});
    ++figures.connections;
    return link;
  }
  void compare(Link const& link) {
    auto const mirror = link.right->mounted("soak");
    ++figures.comparisons;
    if (!mirror || Zol::digest(*mirror) != Zol::digest(*config_)) ++figures.differences;
  }

  std::mt19937_64 random_;
  Zol::Ptr<EntityMib::Sensor> sensor_ = new EntityMib::Sensor("sensor");
  Zol::Ptr<Hardware::Gpio::PinConfig> pin_ = new Hardware::Gpio::PinConfig("pin");
  Zol::Ptr<Config> config_ = configFactory("soak");
};

// A whole number, or nothing.
std::optional<std::uint32_t> number(std::string_view text) {
  std::uint32_t value = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

int main(int argc, char** argv) {
  using Clock = std::chrono::steady_clock;
  auto const length = argc > 1 ? number(argv[1]) : 10;
  auto const seed = argc > 2 ? number(argv[2]) : 1;
  if (argc > 3 || !length || !seed) {
    std::cerr << "usage: soak [SECONDS [SEED]]\n";
    return 2;
  }
  auto const seconds = std::chrono::seconds(*length);
  Soak soak(*seed);
  // What is allocated once has been allocated by then.
  for (int i = 0; i < 50; ++i) soak.round();
  auto const before = residentKiB();
  auto const end = Clock::now() + seconds;
  while (Clock::now() < end) soak.round();
  auto const after = residentKiB();

  Figures const& figures = soak.figures;
  std::cout << "changes         " << figures.changes << '\n'
            << "at the replica  " << figures.mirrorChanges << ", " << figures.refusals
            << " refused\n"
            << "connections     " << figures.connections << '\n'
            << "broken          " << figures.broken << '\n'
            << "delays, stalls  " << figures.delays << '\n'
            << "bits changed    " << figures.bitsChanged << '\n'
            << "pieces doubled  " << figures.doubled << '\n'
            << "bytes           " << figures.bytes << '\n'
            << "comparisons     " << figures.comparisons << '\n'
            << "differences     " << figures.differences << '\n'
            << "memory, KiB     " << before << " at the start, " << after << " at the end\n";
  return figures.differences == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
