// Random changes over streams that break their bytes anywhere: at rest both ends are equal, and
// listeners have heard the last value.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <random>

#include "support/replica_pair.h"

namespace {

using namespace test;
using Random = std::mt19937;

// One end of a stream that moves a few bytes at a time, and now and then none.
class Trickle final : public Zol::NboAttrLog::Transport {
 public:
  using Bytes = std::shared_ptr<std::deque<std::uint8_t>>;

  Trickle(Bytes in, Bytes out, Random& random)
      : in_(std::move(in)), out_(std::move(out)), random_(random) {}
  Result read(std::span<std::uint8_t> to) override {
    std::size_t const count = some(std::min(to.size(), in_->size()));
    std::copy_n(in_->begin(), count, to.begin());
    in_->erase(in_->begin(), in_->begin() + static_cast<std::ptrdiff_t>(count));
    return moved(count);
  }
  Result write(std::span<std::uint8_t const> from) override {
    std::size_t const count = some(from.size());
    out_->insert(out_->end(), from.begin(), from.begin() + static_cast<std::ptrdiff_t>(count));
    return moved(count);
  }
  [[nodiscard]] int fd() const override { return -1; }
  void close() override {}

 private:
  static Result moved(std::size_t count) {
    return {count ? Result::State::moved : Result::State::wouldBlock, count, {}};
  }
  std::size_t some(std::size_t most) {
    auto const size = random_() % 8;
    return size == 0 ? 0 : std::min<std::size_t>(most, 1 + random_() % (size == 1 ? 8 : 20000));
  }

  Bytes in_;
  Bytes out_;
  Random& random_;
};

// Remembers what a controller had when it told of it last.
class Ear : public ControllerConfig::Notifiee {
 public:
  explicit Ear(Zol::Ptr<ControllerConfig> const& controller) {
    isRegisteredNotifieeIs(true);
    notifierIs(controller);
    isWeakReferenceIs(true);
    onReloadCauseSortKey();
    onLocation();
  }
  void onReloadCauseSortKey() override { sortKey = notifier()->reloadCauseSortKey(); }
  void onLocation() override { location = notifier()->location(); }
  [[nodiscard]] bool isUpToDate() const {
    return !notifier() ||
           (sortKey == notifier()->reloadCauseSortKey() && location == notifier()->location());
  }

 private:
  std::uint32_t sortKey = 0;
  Zol::String8 location;
};

class Session {
 public:
  explicit Session(unsigned int seed) : random_(seed), writable_(seed % 2 != 0) {
    auto const there = std::make_shared<std::deque<std::uint8_t>>();
    auto const back = std::make_shared<std::deque<std::uint8_t>>();
    ConnectionOptions options;
    if (seed % 4 < 2) options.outCapacity = 1;
    options.maxFrame = 1;  // the smallest rings, which wrap around often
    options.inCapacity = 1;
    source_ = Connection::over(std::make_unique<Trickle>(back, there, random_), options);
    replica_ = Connection::over(std::make_unique<Trickle>(there, back, random_), options);
  }

  void run() {
    for (int i = 0; i < 5; ++i) mutate(*config_);
    source_->mountIs(config_,
                     {writable_ ? MountOptions::writableByPeer : MountOptions::readOnlyForPeer});
    for (int phase = 0; phase < 4; ++phase) {
      // Only one end writes at a time; the other hears all of it before it writes itself.
      Config& writer = writable_ && phase % 2 != 0 ? *mirror() : *config_;
      for (int i = 0; i < 40; ++i) {
        mutate(writer);
        if (random_() % 4 == 0) source_->pump();
        if (random_() % 4 == 0) replica_->pump();
        if (random_() % 8 == 0) listen();
      }
      // A trickle that moves nothing once is not at its end yet.
      for (int idle = 0; idle < 30; ++idle) {
        if (source_->pump() || replica_->pump()) idle = 0;
      }
      ASSERT_NO_FATAL_FAILURE(expectEqual());
    }
  }

 private:
  [[nodiscard]] Zol::Ptr<Config> mirror() const {
    return Zol::ptrCast<Config>(replica_->mounted("board"));
  }
  void mutate(Config& config) {
    Zol::Name const name = numbered("c", static_cast<unsigned int>(random_() % 6));
    bool const takesOut = random_() % 12 == 0;
    switch (random_() % 3) {
      case 0:
        if (takesOut) return void(config.realUcd9012ControllerDel(name));
        return change(*config.realUcd9012ControllerIs(name, "c", nullptr, nullptr, nullptr));
      case 1:
        if (takesOut) return void(config.realUcd9032ControllerDel(name));
        return change(*config.realUcd9032ControllerIs(name, "c", nullptr, nullptr, nullptr));
      default:
        if (takesOut) return void(config.realPsocControllerDel(name));
        return change(*config.realPsocControllerIs(name, "c", nullptr, nullptr, nullptr));
    }
  }
  void change(ControllerConfig& controller) {
    using C = ControllerConfig;
    using State = Hardware::PowerController::ControllerConfig::ControllerState;
    static constexpr void (C::*kNumbers[])(std::uint32_t) = {
        &C::generationIdReadVoltageIs, &C::generationIdTemperatureIs, &C::reloadCauseSortKeyIs};
    static constexpr void (C::*kFlags[])(bool) = {
        &C::isMainControllerIs, &C::shutdownEnabledIs, &C::pollingEnabledIs,       &C::readyIs,
        &C::configReadyIs,      &C::debugPowerOffIs,   &C::autoStartPowerProgramIs};
    static constexpr void (C::*kTexts[])(Zol::String8) = {&C::locationIs, &C::modelNameIs,
                                                          &C::descriptionIs};
    auto const value = static_cast<std::uint32_t>(random_());
    switch (random_() % 5) {
      case 0:
        return (controller.*kNumbers[value % 3])(value);
      case 1:
        return (controller.*kFlags[value % 7])(value % 2 != 0);
      case 2:
        return controller.operationalModeIs(Hardware::Ucd9012::OperationalMode(value % 2));
      case 3:
        return controller.controllerStateIs(State(value % 3));
      default:
        return (controller.*kTexts[value % 3])(text());
    }
  }
  Zol::String8 text() {
    static constexpr std::size_t kLengths[] = {0, 1, 30, 32735, 32736, 50000, 120000};
    std::size_t const length = kLengths[random_() % (random_() % 3 == 0 ? 7 : 3)];
    return std::string(length, static_cast<char>('a' + random_() % 26));
  }
  void listen() {
    if (!mirror()) return;
    for (auto it = mirror()->realUcd9012ControllerIteratorConst(); it; ++it) {
      ears_.emplace_back(new Ear(it.ptr()));
    }
  }
  void expectEqual() {
    ASSERT_TRUE(mirror()) << source_->error() << replica_->error();
    ASSERT_EQ(Zol::digest(*config_), Zol::digest(*mirror()));
    ASSERT_TRUE(replica_->synced("board"));
    for (Connection* const end : {source_.get(), replica_.get()}) {
      Zol::NboAttrLog::ConnectionCounters const counters = end->counters();
      ASSERT_EQ(counters.refused + counters.unknown + counters.listenerFailures, 0U);
    }
    ASSERT_TRUE(writable_ || replica_->counters().messagesOut == 0);
    for (auto const& ear : ears_) ASSERT_TRUE(ear->isUpToDate());
    ears_.clear();
  }

  Random random_;
  bool const writable_;
  Zol::Ptr<Config> config_ = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<Connection> source_;
  Zol::Ptr<Connection> replica_;
  std::vector<Zol::Ptr<Ear>> ears_;
};

TEST(RandomChanges, bothEndsAreEqualAtRestHoweverTheBytesTravel) {
  for (unsigned int seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    ASSERT_NO_FATAL_FAILURE(Session(seed).run());
  }
}

}  // namespace
