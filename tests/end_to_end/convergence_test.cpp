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
              Hardware::Ucd9012::statusFactory("status"),
              Hardware::Ucd9012::configFactory("other")};
    links_.push_back(connect("agent"));
  }
  ~Session() {
    cut();
    for (Link const& link : links_) Zol::NboAttrLog::forgetPeer(link.agent);
  }

  void run() {
    for (int i = 0; i < 30; ++i) change(*roots_[0]);
    mount();
    for (int phase = 0; phase < 4; ++phase) {
      // Three ends write at once: a chain, or two replicas of one source.
      if (phase == 1 && crosses_ && !breaks_) {
        links_.push_back(connect("far agent"));
        mount();
      }
      for (int i = 0; i < 80; ++i) {
        auto const& root = roots_[random()() % roots_.size()];
        auto const replica = mirror(links_[random()() % links_.size()], *root);
        change(replica && replicaWrites(phase) ? *replica : *root);
        for (Link const& link : links_) {
          if (random()() % 4 == 0) link.source->pump();
          if (random()() % 4 == 0) link.replica->pump();
        }
        if (random()() % 16 == 0) listen();
        if (breaks_ && random()() % 24 == 0) {
          cut();
          links_.assign(1, connect("agent"));
          mount();
        }
      }
      // A trickle that moves nothing once is not at its end yet.
      for (int idle = 0; idle < 30; ++idle) {
        for (Link const& link : links_) {
          if (link.source->pump() || link.replica->pump()) idle = 0;
        }
      }
      for (Link const& link : links_) ASSERT_NO_FATAL_FAILURE(expectEqual(link));
      for (auto const& ears : ears_) ASSERT_EQ(ears->outdated(), "");
      ears_.clear();
    }
  }

 private:
  struct Link {
    char const* agent;
    Zol::Ptr<Connection> source;
    Zol::Ptr<Connection> replica;
  };

  [[nodiscard]] Link connect(char const* agent) {
    auto const there = std::make_shared<std::deque<std::uint8_t>>();
    auto const back = std::make_shared<std::deque<std::uint8_t>>();
    ConnectionOptions options;
    if (seed_ % 4 < 2) options.outCapacity = 1;
    options.maxFrame = 1;  // the smallest rings, which wrap around often
    options.inCapacity = 1;
    auto const source = Connection::over(std::make_unique<Trickle>(back, there, random()), options);
    options.peerName = agent;
    return {agent, source,
            Connection::over(std::make_unique<Trickle>(there, back, random()), options)};
  }
  // Over the last link: from the source, or by the replica of the first link.
  void mount() {
    bool const chained = links_.size() > 1 && seed_ % 4 == 2;
    for (auto const& root : roots_) {
      links_.back().source->mountIs(
          chained ? mirror(links_.front(), *root) : root,
          {writable_ ? MountOptions::writableByPeer : MountOptions::readOnlyForPeer});
    }
  }
  // What is on its way is lost.
  void cut() {
    for (Link const& link : links_) {
      link.source->close();
      link.replica->close();
    }
  }
  // Unless they cross, only one end writes at a time, and the other hears all of it before it
  // writes itself.
  [[nodiscard]] bool replicaWrites(int phase) {
    return writable_ && (crosses_ ? random()() % 2 : static_cast<unsigned int>(phase) % 2) != 0;
  }
  [[nodiscard]] std::mt19937& random() { return hand_.random(); }
  [[nodiscard]] static Zol::Ptr<Zol::Entity> mirror(Link const& link, Zol::Entity& root) {
    return link.replica->mounted(root.name());
  }
  void change(Zol::Entity& root) { random()() % 8 == 0 ? refer(root) : hand_.change(root); }
  // One of the two configurations refers to a member of the other, which may go at any time.
  void refer(Zol::Entity& root) {
    auto* const from = dynamic_cast<Config*>(&root);
    if (!from) return;
    auto const to = otherOf(*from);
    if (!to) return;
    auto const name = numbered("shared", static_cast<unsigned int>(random()() % 3));
    switch (random()() % 4) {
      case 0:
        from->controllerDel(name);
        return;
      case 1:
        to->realUcd9012ControllerDel(name);
        return;
      default:
        from->controllerIs(addController(*to, name));
    }
  }
  // At the same end.
  [[nodiscard]] Zol::Ptr<Config> otherOf(Config const& from) const {
    Zol::Name const name = from.name() == "other" ? "config" : "other";
    for (auto const& root : roots_) {
      if (root == &from) return Zol::ptrCast<Config>(roots_[name == "other" ? 2 : 0]);
    }
    for (Link const& link : links_) {
      if (link.replica->mounted(from.name()) == &from) {
        return Zol::ptrCast<Config>(link.replica->mounted(name));
      }
    }
    return nullptr;
  }
  void listen() {
    for (auto const& root : roots_) {
      if (auto const there = mirror(links_.back(), *root)) {
        ears_.push_back(std::make_unique<Ears>(*there));
      }
    }
  }
  void expectEqual(Link const& link) {
    for (auto const& root : roots_) {
      auto const there = mirror(link, *root);
      ASSERT_TRUE(there) << link.source->error() << link.replica->error();
      ASSERT_EQ(textOf(*root), textOf(*there));
      ASSERT_EQ(Zol::digest(*root), Zol::digest(*there));
      ASSERT_TRUE(link.replica->synced(root->name()));
    }
    for (std::size_t const at : {0U, 2U}) {
      ASSERT_NO_FATAL_FAILURE(expectSameReferences(link, at));
    }
    for (Connection* const end : {link.source.get(), link.replica.get()}) {
      Zol::NboAttrLog::ConnectionCounters const counters = end->counters();
      // What has left its holder may be unknown there until a reference brings it back.
      ASSERT_TRUE(crosses_ || counters.refused == 0);
      ASSERT_EQ(counters.listenerFailures + counters.unreplicated, 0U);
    }
    ASSERT_TRUE(writable_ || link.replica->counters().messagesOut == 0);
  }

  // What refers to a member of the other tree does so at the replica too.
  void expectSameReferences(Link const& link, std::size_t at) {
    auto const from = Zol::ptrCast<Config>(roots_[at]);
    auto const to = Zol::ptrCast<Config>(roots_[2 - at]);
    auto const mirrorFrom = Zol::ptrCast<Config>(mirror(link, *from));
    auto const mirrorTo = Zol::ptrCast<Config>(mirror(link, *to));
    for (unsigned int i = 0; i < 3; ++i) {
      auto const name = numbered("shared", i);
      auto const held = from->controller(name);
      ASSERT_EQ(held && held == to->realUcd9012Controller(name),
                mirrorFrom->controller(name) &&
                    mirrorFrom->controller(name) == mirrorTo->realUcd9012Controller(name))
          << from->name() << " " << name;
    }
  }

  Hand hand_;
  unsigned int const seed_;
  bool const writable_;
  bool const crosses_;
  bool const breaks_;
  std::vector<Zol::Ptr<Zol::Entity>> roots_;
  std::vector<Link> links_;
  std::vector<std::unique_ptr<Ears>> ears_;
};

unsigned int number(char const* variable, unsigned int otherwise) {
  char const* const given = std::getenv(variable);
  return given ? static_cast<unsigned int>(std::strtoul(given, nullptr, 10)) : otherwise;
}

// HWRAILSEQ_SEEDS sets how many seeds each test runs, HWRAILSEQ_FIRST_SEED which is the first.
void runAll(Mount mount) {
  unsigned int const first = number("HWRAILSEQ_FIRST_SEED", 0);
  unsigned int const end = first + number("HWRAILSEQ_SEEDS", 50);
  for (unsigned int seed = first; seed < end; ++seed) {
    SCOPED_TRACE(seed);
    ASSERT_NO_FATAL_FAILURE(Session(seed, mount).run());
  }
}

TEST(Convergence, ofAReadOnlyReplicaHoweverTheBytesTravel) { runAll(Mount::readOnly); }

TEST(Convergence, ofAWritableReplicaHoweverTheBytesTravel) { runAll(Mount::writable); }

TEST(Convergence, ofTwoEndsThatWriteAtOnce) { runAll(Mount::crossing); }

TEST(Convergence, overConnectionsThatBreakAnywhere) { runAll(Mount::breaking); }

}  // namespace
