// The table of the collections of the configuration root.
#include "entities/config_collections.h"

#include "host/models/siblings.h"

namespace Hardware::Ucd9012::Test {

namespace {

template <class Iterator>
std::vector<std::string> walked(Iterator it) {
  std::vector<std::string> names;
  for (; it; ++it) names.emplace_back(it.key().view());
  return names;
}

template <class C, class Is, class Make>
CollectionOfControllers collection(
    char const* attribute, Zol::AttributeId id, Zol::Ptr<C> (Config::*get)(Zol::Name) const, Is is,
    Make make, Zol::Ptr<C> (Config::*del)(Zol::Name),
    Zol::Ptr<C> (Config::*delAt)(typename Config::Controllers<C>::Iterator&),
    void (Config::*delAll)(), void (Config::*notify)(Zol::Name),
    typename Config::Controllers<C>::Iterator (Config::*iterator)(),
    typename Config::Controllers<C>::IteratorConst (Config::*first)() const,
    typename Config::Controllers<C>::IteratorConst (Config::*at)(Zol::Name const&) const) {
  auto const delTwiceAtEach = [=](Config& config) {
    std::vector<std::string> names;
    for (auto it = (config.*iterator)(); it; ++it) {
      while (auto const member = (config.*delAt)(it)) names.emplace_back(member->name().view());
    }
    return names;
  };
  auto const makeBare = [=](Config& config, Zol::Name name) {
    return (config.*make)(name, "", nullptr, nullptr, nullptr);
  };
  return {attribute,
          id,
          is,
          makeBare,
          get,
          del,
          delAll,
          notify,
          [=](Config const& config) { return walked((config.*first)()); },
          [=](Config const& config, Zol::Name name) { return walked((config.*at)(name)); },
          delTwiceAtEach};
}

}  // namespace

std::vector<CollectionOfControllers> const& collectionsOfControllers() {
  using C = Config;
  static std::vector<CollectionOfControllers> const collections = {
      collection<Ucd9012ControllerConfig>(
          "realUcd9012Controller", 259, &C::realUcd9012Controller, &C::realUcd9012ControllerIs,
          &C::newRealUcd9012Controller, &C::realUcd9012ControllerDel, &C::realUcd9012ControllerDel,
          &C::realUcd9012ControllerDelAll, &C::realUcd9012ControllerNotify,
          &C::realUcd9012ControllerIterator, &C::realUcd9012ControllerIteratorConst,
          &C::realUcd9012ControllerIteratorConst),
      collection<Ucd9032ControllerConfig>(
          "realUcd9032Controller", 260, &C::realUcd9032Controller, &C::realUcd9032ControllerIs,
          &C::newRealUcd9032Controller, &C::realUcd9032ControllerDel, &C::realUcd9032ControllerDel,
          &C::realUcd9032ControllerDelAll, &C::realUcd9032ControllerNotify,
          &C::realUcd9032ControllerIterator, &C::realUcd9032ControllerIteratorConst,
          &C::realUcd9032ControllerIteratorConst),
      collection<PsocControllerConfig>(
          "realPsocController", 261, &C::realPsocController, &C::realPsocControllerIs,
          &C::newRealPsocController, &C::realPsocControllerDel, &C::realPsocControllerDel,
          &C::realPsocControllerDelAll, &C::realPsocControllerNotify,
          &C::realPsocControllerIterator, &C::realPsocControllerIteratorConst,
          &C::realPsocControllerIteratorConst),
  };
  return collections;
}

}  // namespace Hardware::Ucd9012::Test
