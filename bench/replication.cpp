// A replica over a real socket pair: live changes, beside the plain bytes through the same pair,
// and the catch-up of many members.
#include <benchmark/benchmark.h>
#include <hwrailseq.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstring>
#include <string>
#include <vector>

namespace {

using Hardware::Ucd9012::Config;
using Hardware::Ucd9012::ControllerConfig;
using Zol::NboAttrLog::Connection;
using Zol::NboAttrLog::ConnectionOptions;

std::array<int, 2> socketPair() {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) std::abort();
  return ends;
}

ConnectionOptions options() {
  ConnectionOptions options;
  options.maxEntities = 4000000;
  options.maxMembers = 4000000;
  return options;
}

struct Ends {
  Ends() : Ends(socketPair()) {}
  explicit Ends(std::array<int, 2> fds)
      : source(Connection::overFd(fds[0], options())),
        replica(Connection::overFd(fds[1], options())) {}

  void flow() const {
    for (bool works = true; works;) {
      works = source->pump();
      works = replica->pump() || works;
    }
  }

  Zol::Ptr<Connection> source;
  Zol::Ptr<Connection> replica;
};

Zol::Ptr<ControllerConfig> controllerOf(Config& config) {
  return Zol::Ptr<ControllerConfig>(
      config.realPsocControllerIs("main", "c", nullptr, nullptr, nullptr).get());
}

struct Listener : ControllerConfig::Notifiee {
  explicit Listener(Zol::Ptr<ControllerConfig> const& controller) {
    isRegisteredNotifieeIs(true);
    notifierIs(controller);
  }
  void onReloadCauseSortKey() override { ++heard; }
  std::uint64_t heard = 0;
};

// So many changes of a number, and turns until the listener at the replica has heard of all.
void scalarsOverSocket(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const main = controllerOf(*config);
  Ends const ends;
  ends.source->mountIs(config);
  ends.flow();
  auto const mirror = Zol::ptrCast<Config>(ends.replica->mounted("board"));
  Zol::Ptr<Listener> const listener(new Listener(controllerOf(*mirror)));
  auto const before = ends.source->counters();
  std::uint32_t next = 0;
  for (auto _ : state) {
    for (std::int64_t i = 0; i < state.range(0); ++i) main->reloadCauseSortKeyIs(++next);
    while (listener->heard != next) {
      ends.source->pump();
      ends.replica->pump();
    }
  }
  auto const after = ends.source->counters();
  auto const changes = static_cast<double>(next);
  state.SetItemsProcessed(next);
  state.counters["bytes/change"] = static_cast<double>(after.bytesOut - before.bytesOut) / changes;
  state.counters["messages/change"] =
      static_cast<double>(after.messagesOut - before.messagesOut) / changes;
}
BENCHMARK(scalarsOverSocket)->Arg(1)->Arg(100)->Arg(1000);

// The peer: as many messages of the same size, each copied into a buffer, the buffer through the
// pair, and each copied out of what arrives.
void bytesOverSocket(benchmark::State& state) {
  constexpr std::size_t kMessage = 26;
  auto const fds = socketPair();
  auto const count = static_cast<std::size_t>(state.range(0));
  std::vector<std::uint8_t> out(count * kMessage);
  std::vector<std::uint8_t> in(count * kMessage);
  std::array<std::uint8_t, kMessage> message{};
  std::uint64_t changes = 0;
  for (auto _ : state) {
    for (std::size_t i = 0; i < count; ++i) {
      std::memcpy(message.data(), &++changes, sizeof changes);
      std::memcpy(out.data() + i * kMessage, message.data(), kMessage);
    }
    if (::send(fds[0], out.data(), out.size(), 0) != static_cast<ssize_t>(out.size())) std::abort();
    for (std::size_t got = 0; got < in.size();) {
      ssize_t const some = ::recv(fds[1], in.data() + got, in.size() - got, 0);
      if (some <= 0) std::abort();
      got += static_cast<std::size_t>(some);
    }
    for (std::size_t i = 0; i < count; ++i) {
      std::memcpy(message.data(), in.data() + i * kMessage, kMessage);
      benchmark::DoNotOptimize(message);
    }
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(changes));
  ::close(fds[0]);
  ::close(fds[1]);
}
BENCHMARK(bytesOverSocket)->Arg(1)->Arg(100)->Arg(1000);

void wait(Connection const& connection) {
  auto const events = static_cast<short>(POLLIN | (connection.wantsWrite() ? POLLOUT : 0));
  pollfd fd{connection.fd(), events, 0};
  ::poll(&fd, 1, -1);
}

// The replica's process: follows until the connection ends, and answers a change to 0 with a byte.
[[noreturn]] void follow(int fd, int answers) {
  auto const replica = Connection::overFd(fd, options());
  struct Answer : ControllerConfig::Notifiee {
    void onReloadCauseSortKey() override {
      char const done = 0;
      auto const* const main = static_cast<ControllerConfig const*>(zolNotifier());
      if (main->reloadCauseSortKey() == 0 && ::write(to, &done, 1) != 1) std::abort();
    }
    int to = -1;
  };
  Zol::Ptr<Answer> answer;
  while (replica->isOpen()) {
    wait(*replica);
    while (replica->pump()) continue;
    if (answer || !replica->synced("board")) continue;
    answer = new Answer;
    answer->to = answers;
    answer->isRegisteredNotifieeIs(true);
    answer->notifierIs(controllerOf(*Zol::ptrCast<Config>(replica->mounted("board"))));
    if (::write(answers, "", 1) != 1) std::abort();
  }
  ::_exit(0);
}

// A process at each end: so many changes, until the other process says that it has heard the last.
void scalarsToProcess(benchmark::State& state) {
  auto const fds = socketPair();
  auto const answers = socketPair();
  pid_t const child = ::fork();
  if (child == 0) {
    ::close(fds[0]);
    follow(fds[1], answers[1]);
  }
  ::close(fds[1]);
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const main = controllerOf(*config);
  auto const source = Connection::overFd(fds[0], options());
  source->mountIs(config);
  auto const answered = [&] {
    for (;;) {
      while (source->pump()) continue;
      auto const events = static_cast<short>(POLLIN | (source->wantsWrite() ? POLLOUT : 0));
      std::array<pollfd, 2> both{{{source->fd(), events, 0}, {answers[0], POLLIN, 0}}};
      ::poll(both.data(), both.size(), -1);
      char done = 0;
      if ((both[1].revents & POLLIN) != 0) return ::read(answers[0], &done, 1) == 1;
    }
  };
  if (!answered()) state.SkipWithError("the replica has gone");
  std::uint64_t changes = 0;
  for (auto _ : state) {
    for (auto i = static_cast<std::uint32_t>(state.range(0)); i-- > 0; ++changes) {
      main->reloadCauseSortKeyIs(i);
      if (i % 100 == 0) source->pump();
      while (!source->out()->hasSufficientBuffer()) {
        wait(*source);
        source->pump();
      }
    }
    if (!answered()) state.SkipWithError("the replica has gone");
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(changes));
  source->close();
  ::waitpid(child, nullptr, 0);
  ::close(answers[0]);
  ::close(answers[1]);
}
BENCHMARK(scalarsToProcess)->Arg(100000)->UseRealTime();

// From an empty replica to one that has all.
void catchUp(benchmark::State& state, Config& config) {
  using Clock = std::chrono::steady_clock;
  double seconds = 0;
  std::uint64_t bytes = 0;
  for (auto _ : state) {
    Ends const ends;
    auto const start = Clock::now();
    ends.source->mountIs(Zol::Ptr<Config>(&config));
    ends.flow();
    std::chrono::duration<double> const took = Clock::now() - start;
    state.SetIterationTime(took.count());
    seconds += took.count();
    bytes += ends.replica->counters().bytesIn;
    if (!ends.replica->synced("board")) state.SkipWithError(ends.replica->error().c_str());
  }
  auto const members = static_cast<double>(state.iterations() * state.range(0));
  state.counters["ns/member"] = seconds * 1e9 / members;
  state.counters["bytes/member"] = static_cast<double>(bytes) / members;
}

void catchUpOfRecords(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const main = controllerOf(*config);
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    main->reloadCauseIs(static_cast<std::uint32_t>(i), {});
  }
  catchUp(state, *config);
}

void catchUpOfTexts(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const main = config->realUcd9012ControllerIs("main", "c", nullptr, nullptr, nullptr);
  auto const command = main->diagCommandConfigIs("command");
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    command->parameterIs(static_cast<std::uint32_t>(i), "parameter " + std::to_string(i));
  }
  catchUp(state, *config);
}

// Each with one attribute that is not its first value, so that it has a flow of its own.
void catchUpOfControllers(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    config->realPsocControllerIs("controller-" + std::to_string(i), "c", nullptr, nullptr, nullptr)
        ->reloadCauseSortKeyIs(1);
  }
  catchUp(state, *config);
}

void sizes(benchmark::internal::Benchmark* catchUp) {
  catchUp->RangeMultiplier(10)->Range(1000, 1000000)->UseManualTime();
  catchUp->Unit(benchmark::kMillisecond);
}
BENCHMARK(catchUpOfRecords)->Apply(sizes);
BENCHMARK(catchUpOfTexts)->Apply(sizes);
BENCHMARK(catchUpOfControllers)->Apply(sizes);

}  // namespace
