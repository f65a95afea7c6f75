// Texts of entity references, and the paths in them, among roots whose names have every mark of a
// path in them.
#include "fuzz/fuzz.h"

using namespace Hardware::Ucd9012;

namespace {

bool makeTree() {
  Zol::Ptr<Zol::Dir> const dir(new Zol::Dir("d"));
  Zol::Dir::root().entryIs(dir);
  for (char const* const name : {"board", "a/b[c]\\", "it's\n\x01\xff"}) {
    auto const config = configFactory(name);
    config->realUcd9012ControllerIs("main", "", nullptr, nullptr, nullptr);
    config->realPsocControllerIs(name, "", nullptr, nullptr, nullptr);
    dir->entryIs(config);
  }
  Zol::Dir::root().entryIs(configFactory("board"));
  return true;
}

template <class X>
void readsAgain(Zol::String8 const& text) {
  auto const entity = fuzz::accepted([&] { return Zol::strepToValue<Zol::Ptr<X>>(text); });
  if (!entity) return;
  Zol::String8 const written = Zol::valueToStrepOfRawPtr(entity->get(), typeid(X));
  fuzz::require(Zol::strepToValue<Zol::Ptr<X>>(written) == *entity,
                "a reference leads back to its entity");
}

}  // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  [[maybe_unused]] static bool const made = makeTree();
  Zol::String8 const text = fuzz::textOf(data, size);
  readsAgain<Zol::Entity>(text);
  readsAgain<Config>(text);
  readsAgain<ControllerConfig>(text);
  readsAgain<Ucd9012DiagStatus>(text);
  if (auto const at = fuzz::accepted([&] { return Zol::entityAt(text); })) {
    fuzz::require(Zol::entityAt((*at)->fullName()) == *at, "a path leads back to its entity");
  }
  return 0;
}
