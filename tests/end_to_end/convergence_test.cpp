// Random changes of every kind over streams that break their bytes anywhere: at rest both ends are
// equal, and listeners have heard the last value of each attribute.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/replica_pair.h"
#include "support/tree.h"
#include "support/trickle.h"

namespace {

using namespace test;

enum class Mount { readOnly, writable, crossing, breaking };

class Session {
 public:
  Session(unsigned int seed, Mount mount)
      : hand_(seed),
        seed_(seed),
        writable_(mount == Mount::writable || mount == Mount::crossing),
        crosses_(mount == Mount::crossing),
        breaks_(mount == Mount::breaking || (crosses_ && seed % 2 != 0)) {
    roots_ = {Hardware::Ucd9012::configFactory("config"),
              Hardware::Ucd9012::statusFactory("status")};
    connect();
  }
  ~Session() {
    cut();
    Zol::NboAttrLog::forgetPeer("agent");
  }

  void run() {
    for (int i = 0; i < 30; ++i) change(*roots_[0]);
    mount();
    for (int phase = 0; phase < 4; ++phase) {
      // Unless they cross, only one end writes at a time, and the other hears all of it before it
      // writes itself.
      for (int i = 0; i < 80; ++i) {
        bool const there = writable_ && (crosses_ ? random()() % 2 : phase % 2) != 0;
        auto const& root = roots_[random()() % 2];
        auto const replica = there ? mirror(*root) : nullptr;
        change(replica ? *replica : *root);
        if (random()() % 4 == 0) source_->pump();
        if (random()() % 4 == 0) replica_->pump();
        if (random()() % 16 == 0) listen();
        if (breaks_ && random()() % 24 == 0) {
          cut();
          connect();
          mount();
        }
      }
      // A trickle that moves nothing once is not at its end yet.
      for (int idle = 0; idle < 30; ++idle) {
        if (source_->pump() || replica_->pump()) idle = 0;
      }
      ASSERT_NO_FATAL_FAILURE(expectEqual());
    }
  }

 private:
  void connect() {
    auto const there = std::make_shared<std::deque<std::uint8_t>>();
    auto const back = std::make_shared<std::deque<std::uint8_t>>();
    ConnectionOptions options;
    if (seed_ % 4 < 2) options.outCapacity = 1;
    options.maxFrame = 1;  // the smallest rings, which wrap around often
    options.inCapacity = 1;
    source_ = Connection::over(std::make_unique<Trickle>(back, there, random()), options);
    options.peerName = "agent";
    replica_ = Connection::over(std::make_unique<Trickle>(there, back, random()), options);
  }
  void mount() {
    for (auto const& root : roots_) {
      source_->mountIs(root,
                       {writable_ ? MountOptions::writableByPeer : MountOptions::readOnlyForPeer});
    }
  }
  // What is on its way is lost.
  void cut() {
    source_->close();
    replica_->close();
  }
  [[nodiscard]] std::mt19937& random() { return hand_.random(); }
  [[nodiscard]] Zol::Ptr<Zol::Entity> mirror(Zol::Entity& root) const {
    return replica_->mounted(root.name());
  }
  void change(Zol::Entity& root) { hand_.change(root); }
  void listen() {
    for (auto const& root : roots_) {
      if (auto const there = mirror(*root)) ears_.push_back(std::make_unique<Ears>(*there));
    }
  }
  void expectEqual() {
    for (auto const& root : roots_) {
      ASSERT_TRUE(mirror(*root)) << source_->error() << replica_->error();
      ASSERT_EQ(textOf(*root), textOf(*mirror(*root)));
      ASSERT_EQ(Zol::digest(*root), Zol::digest(*mirror(*root)));
      ASSERT_TRUE(replica_->synced(root->name()));
    }
    for (Connection* const end : {source_.get(), replica_.get()}) {
      Zol::NboAttrLog::ConnectionCounters const counters = end->counters();
      ASSERT_TRUE(crosses_ || counters.refused + counters.unknown == 0);
      ASSERT_EQ(counters.listenerFailures + counters.unreplicated, 0U);
    }
    ASSERT_TRUE(writable_ || replica_->counters().messagesOut == 0);
    for (auto const& ears : ears_) ASSERT_EQ(ears->outdated(), "");
    ears_.clear();
  }

  Hand hand_;
  unsigned int const seed_;
  bool const writable_;
  bool const crosses_;
  bool const breaks_;
  std::vector<Zol::Ptr<Zol::Entity>> roots_;
  Zol::Ptr<Connection> source_;
  Zol::Ptr<Connection> replica_;
  std::vector<std::unique_ptr<Ears>> ears_;
};

// HWRAILSEQ_SEEDS sets how many seeds each test runs.
unsigned int seeds() {
  char const* const given = std::getenv("HWRAILSEQ_SEEDS");
  return given ? static_cast<unsigned int>(std::strtoul(given, nullptr, 10)) : 50;
}

void runAll(Mount mount) {
  for (unsigned int seed = 0; seed < seeds(); ++seed) {
    SCOPED_TRACE(seed);
    ASSERT_NO_FATAL_FAILURE(Session(seed, mount).run());
  }
}

TEST(Convergence, ofAReadOnlyReplicaHoweverTheBytesTravel) { runAll(Mount::readOnly); }

TEST(Convergence, ofAWritableReplicaHoweverTheBytesTravel) { runAll(Mount::writable); }

TEST(Convergence, ofTwoEndsThatWriteAtOnce) { runAll(Mount::crossing); }

TEST(Convergence, overConnectionsThatBreakAnywhere) { runAll(Mount::breaking); }

}  // namespace
