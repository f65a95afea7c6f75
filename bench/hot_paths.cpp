// The hot paths, each beside the plain code that does the same, so that a run gives ratios.
#include <benchmark/benchmark.h>
#include <hwrailseq.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace {

using Hardware::Ucd9012::Config;
using Hardware::Ucd9012::ControllerConfig;

// What a scalar's change must cost at least: a compare, a store, a count and a test.
struct Plain {
  std::uint32_t value = 0;
  std::uint32_t changes = 0;
  void const* listeners = nullptr;

  virtual ~Plain() = default;
  virtual void valueIs(std::uint32_t next) {
    if (value == next) return;
    value = next;
    ++changes;
    if (listeners) benchmark::DoNotOptimize(listeners);
  }
};

void changePlain(benchmark::State& state) {
  Plain plain;
  Plain* object = &plain;
  benchmark::DoNotOptimize(object);
  std::uint32_t next = 0;
  for (auto _ : state) object->valueIs(++next);
}
BENCHMARK(changePlain);

Zol::Ptr<ControllerConfig> controllerOf(Config& config) {
  return Zol::Ptr<ControllerConfig>(
      config.realUcd9012ControllerIs("main", "c", nullptr, nullptr, nullptr).get());
}

void changeWithoutListener(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const controller = controllerOf(*config);
  std::uint32_t next = 0;
  for (auto _ : state) controller->reloadCauseSortKeyIs(++next);
}
BENCHMARK(changeWithoutListener);

struct Listener : ControllerConfig::Notifiee {
  void onReloadCauseSortKey() override { ++heard; }
  std::uint64_t heard = 0;
};

void changeWithListeners(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const controller = controllerOf(*config);
  std::vector<Zol::Ptr<Listener>> listeners;
  for (int i = 0; i < state.range(0); ++i) {
    listeners.emplace_back(new Listener);
    listeners.back()->isRegisteredNotifieeIs(true);
    listeners.back()->notifierIs(controller);
  }
  std::uint32_t next = 0;
  for (auto _ : state) controller->reloadCauseSortKeyIs(++next);
}
BENCHMARK(changeWithListeners)->Arg(1)->Arg(16);

// From the mutator at the source to the listener at the replica, over a log inside the process.
void changeToReplica(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const controller = controllerOf(*config);
  auto const [here, there] = Zol::NboAttrLog::connectionPair();
  here->mountIs(config);
  while (here->pump() || there->pump()) continue;
  std::uint32_t next = 0;
  for (auto _ : state) {
    for (int i = 0; i < 100; ++i) controller->reloadCauseSortKeyIs(++next);
    here->pump();
    there->pump();
  }
  state.SetItemsProcessed(state.iterations() * 100);
}
BENCHMARK(changeToReplica);

std::vector<Zol::Name> names(std::int64_t count) {
  std::vector<Zol::Name> all;
  for (std::int64_t i = 0; i < count; ++i)
    all.emplace_back("controller-" + std::to_string(i * 7919));
  return all;
}

void lookUpMember(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const keys = names(state.range(0));
  for (auto const& key : keys) config->realUcd9012ControllerIs(key, "c", nullptr, nullptr, nullptr);
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(config->realUcd9012Controller(keys[at]).get());
    if (++at == keys.size()) at = 0;
  }
}
BENCHMARK(lookUpMember)->Arg(10)->Arg(1000)->Arg(100000);

void lookUpUnorderedMap(benchmark::State& state) {
  auto const keys = names(state.range(0));
  std::unordered_map<std::string, Zol::Ptr<ControllerConfig>> map;
  std::vector<std::string> texts;
  for (auto const& key : keys) {
    texts.emplace_back(key.view());
    map[texts.back()] = new ControllerConfig(key, "c", nullptr, nullptr, nullptr);
  }
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Zol::Ptr<ControllerConfig>(map.find(texts[at])->second).get());
    if (++at == texts.size()) at = 0;
  }
}
BENCHMARK(lookUpUnorderedMap)->Arg(10)->Arg(1000)->Arg(100000);

}  // namespace
