// The three collections of controllers of the configuration root under common names, and a listener
// that writes down what it is told of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "entities/config.h"
#include "entities/controller_attributes.h"
#include "host/models/siblings.h"

namespace Hardware::Ucd9012::Test {

// Hears of each change of a collection as "<attr> <name>".
class ConfigListener : public Config::Notifiee {
 public:
  std::vector<std::string> heard;
  std::function<void()> reaction = [] {};

  using Config::Notifiee::onRealPsocController;
  using Config::Notifiee::onRealUcd9012Controller;
  using Config::Notifiee::onRealUcd9032Controller;
  void onRealUcd9012Controller(Zol::Name name) override { hear("realUcd9012Controller", name); }
  void onRealUcd9032Controller(Zol::Name name) override { hear("realUcd9032Controller", name); }
  void onRealPsocController(Zol::Name name) override { hear("realPsocController", name); }
  using Config::Notifiee::onNotificationException;
  void onNotificationException(Zol::AttributeId id) override {
    heard.push_back("exception in " + std::to_string(id));
  }

 private:
  void hear(std::string const& attribute, Zol::Name const& name) {
    heard.push_back(attribute + " " + std::string(name.view()));
    reaction();
  }
};

// The operations of one collection.
struct CollectionOfControllers {
  using Member = Zol::Ptr<ControllerConfig>;
  std::string attribute;
  Zol::AttributeId id;
  std::function<Member(Config&, Zol::Name, Zol::Name, Zol::Ptr<Hardware::DexoDesc> const&,
                       Zol::Ptr<Gpio::PinConfig> const&, Zol::Ptr<Gpio::PinStatus const> const&)>
      is;
  std::function<Member(Config&, Zol::Name)> make;
  std::function<Member(Config const&, Zol::Name)> get;
  std::function<Member(Config&, Zol::Name)> del;
  std::function<void(Config&)> delAll;
  std::function<void(Config&, Zol::Name)> notify;
  // The names in walking order, from the first one or from a given one.
  std::function<std::vector<std::string>(Config const&)> names;
  std::function<std::vector<std::string>(Config const&, Zol::Name)> namesFrom;
  // Takes out each member that an iterator comes by, and tries again: the names taken out.
  std::function<std::vector<std::string>(Config&)> delTwiceAtEach;
};

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
  auto const names = [=](Config const& config) { return walked((config.*first)()); };
  auto const namesFrom = [=](Config const& config, Zol::Name name) {
    return walked((config.*at)(name));
  };
  return {attribute, id, is, makeBare, get, del, delAll, notify, names, namesFrom, delTwiceAtEach};
}

inline std::vector<CollectionOfControllers> const& collectionsOfControllers() {
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
