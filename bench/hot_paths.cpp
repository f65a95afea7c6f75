// The hot paths, each beside the plain code that does the same, so that a run gives ratios.
#include <benchmark/benchmark.h>
#include <hwrailseq.h>

#include <algorithm>
#include <map>
#include <random>
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

// Keys in an order that no collection has. The names are hashed once, as those that a program
// keeps.
std::vector<Zol::Name> names(std::int64_t count) {
  std::vector<Zol::Name> all;
  for (std::int64_t i = 0; i < count; ++i) {
    all.emplace_back("controller-" + std::to_string(i * 7919 % 1000003));
  }
  std::shuffle(all.begin(), all.end(), std::mt19937(1));
  return all;
}
std::vector<std::uint32_t> numbers(std::int64_t count) {
  std::vector<std::uint32_t> all;
  for (std::int64_t i = 0; i < count; ++i) all.push_back(static_cast<std::uint32_t>(i * 7));
  std::shuffle(all.begin(), all.end(), std::mt19937(1));
  return all;
}

// Looks up one key after the other, over and over.
template <class Keys, class Find>
void lookUpEach(benchmark::State& state, Keys const& keys, Find const& find) {
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(find(keys[at]));
    if (++at == keys.size()) at = 0;
  }
}

void lookUpMember(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const keys = names(state.range(0));
  for (auto const& key : keys) config->realUcd9012ControllerIs(key, "c", nullptr, nullptr, nullptr);
  auto const map = config->realUcd9012ControllerIteratorConst();
  lookUpEach(state, keys, [&](Zol::Name const& key) { return map.map()[key]; });
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
  lookUpEach(state, texts, [&](std::string const& key) { return map.find(key)->second.get(); });
}
BENCHMARK(lookUpUnorderedMap)->Arg(10)->Arg(1000)->Arg(100000);

void lookUpHashedNumber(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const controller = controllerOf(*config);
  auto const keys = numbers(state.range(0));
  for (auto const key : keys) controller->externalVoltageRailIs(key, {1, 1});
  auto const map = controller->externalVoltageRailIteratorConst();
  lookUpEach(state, keys, [&](std::uint32_t key) { return map.map()[key]; });
}
BENCHMARK(lookUpHashedNumber)->Arg(10)->Arg(1000)->Arg(100000);

void lookUpUnorderedMapOfNumbers(benchmark::State& state) {
  auto const keys = numbers(state.range(0));
  std::unordered_map<std::uint32_t, Hardware::Ucd9012::ExternalVoltageRail> map;
  for (auto const key : keys) map[key] = {1, 1};
  lookUpEach(state, keys, [&](std::uint32_t key) { return &map.find(key)->second; });
}
BENCHMARK(lookUpUnorderedMapOfNumbers)->Arg(10)->Arg(1000)->Arg(100000);

void lookUpOrdered(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const controller = controllerOf(*config);
  auto const keys = numbers(state.range(0));
  for (auto const key : keys) controller->reloadCauseIs(key, {});
  auto const map = controller->reloadCauseIteratorConst();
  lookUpEach(state, keys, [&](std::uint32_t key) { return map.map()[key]; });
}
BENCHMARK(lookUpOrdered)->Arg(10)->Arg(1000)->Arg(100000);

void lookUpMap(benchmark::State& state) {
  auto const keys = numbers(state.range(0));
  std::map<std::uint32_t, Hardware::Ucd9012::UcdCause> map;
  for (auto const key : keys) map[key];
  lookUpEach(state, keys, [&](std::uint32_t key) { return &map.find(key)->second; });
}
BENCHMARK(lookUpMap)->Arg(10)->Arg(1000)->Arg(100000);

// A walk over 10,000 members that nothing changes.
void walkOrdered(benchmark::State& state) {
  auto const config = Hardware::Ucd9012::configFactory("board");
  auto const controller = controllerOf(*config);
  for (auto const key : numbers(10000)) controller->reloadCauseIs(key, {});
  for (auto _ : state) {
    for (auto it = controller->reloadCauseIteratorConst(); it; ++it) {
      benchmark::DoNotOptimize(it->id());
    }
  }
}
BENCHMARK(walkOrdered);

void walkMap(benchmark::State& state) {
  std::map<std::uint32_t, Hardware::Ucd9012::UcdCause> map;
  for (auto const key : numbers(10000)) map[key];
  for (auto _ : state) {
    for (auto const& [key, cause] : map) benchmark::DoNotOptimize(cause.id());
  }
}
BENCHMARK(walkMap);

}  // namespace
