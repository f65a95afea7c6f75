// A replica that stops reading while its source changes ten million times: what the source takes in
// memory, at three moments. Run one of them at a time, since memory stays with the process.
#include <benchmark/benchmark.h>
#include <hwrailseq.h>
#include <sys/socket.h>

#include <array>
#include <string>

#include "resident_memory.h"

namespace {

using Hardware::Ucd9012::Config;
using Hardware::Ucd9012::ControllerConfig;
using Hardware::Ucd9012::UcdCause;
using Zol::NboAttrLog::Connection;

constexpr std::uint32_t kChanges = 10000000;
constexpr std::uint32_t kRecords = 100000;

UcdCause causeOf(std::uint32_t id) { return {{}, {}, id, false}; }

struct Board {
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<ControllerConfig> main =
      config->realUcd9012ControllerIs("main", "c", nullptr, nullptr, nullptr);
};

// `change( i )` so often; the replica is pumped before the first and behind the last one.
template <class Change>
void unread(benchmark::State& state, Config& config, Change const& change) {
  std::array<int, 2> fds{};
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, fds.data()) != 0) std::abort();
  auto const source = Connection::overFd(fds[0], {});
  auto const replica = Connection::overFd(fds[1], {});
  auto const flow = [&] {
    for (bool works = true; works;) {
      works = source->pump();
      works = replica->pump() || works;
    }
  };
  source->mountIs(Zol::Ptr<Config>(&config));
  flow();
  std::uint32_t done = 0;
  std::uint64_t waiting = 0;
  for (auto _ : state) {
    change(++done);
    if (done % 100 == 0) source->pump();
    waiting = std::max<std::uint64_t>(waiting, source->out()->pending().size());
    if (done == kChanges / 100) state.counters["KiB@00.1M"] = residentKiB();
    if (done == kChanges / 2) state.counters["KiB@05M"] = residentKiB();
    if (done == kChanges) state.counters["KiB@10M"] = residentKiB();
  }
  state.counters["waiting"] = static_cast<double>(waiting);
  flow();
  bool const isEqual = Zol::digest(config) == Zol::digest(*replica->mounted("board"));
  if (!isEqual) state.SkipWithError("the trees differ");
}

void unreadNumberAndText(benchmark::State& state) {
  Board const board;
  unread(state, *board.config, [&](std::uint32_t i) {
    board.main->reloadCauseSortKeyIs(i);
    board.main->locationIs("place " + std::to_string(i));
  });
}
BENCHMARK(unreadNumberAndText)->Iterations(kChanges);

void unreadRecords(benchmark::State& state) {
  Board const board;
  for (std::uint32_t key = 0; key < kRecords; ++key) board.main->reloadCauseIs(key, causeOf(0));
  unread(state, *board.config,
         [&](std::uint32_t i) { board.main->reloadCauseIs(i * 7919 % kRecords, causeOf(i)); });
}
BENCHMARK(unreadRecords)->Iterations(kChanges);

// Keys that come, go and never return.
void unreadPassingKeys(benchmark::State& state) {
  Board const board;
  auto const command = board.main->diagCommandConfigIs("command");
  unread(state, *board.config, [&](std::uint32_t i) {
    command->parameterIs(i, "passes");
    command->parameterDel(i);
  });
}
BENCHMARK(unreadPassingKeys)->Iterations(kChanges);

}  // namespace
