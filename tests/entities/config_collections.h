// The three collections of controllers of the configuration root under common names, and a listener
// that writes down what it is told of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "entities/config.h"
#include "entities/controller_attributes.h"

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

std::vector<CollectionOfControllers> const& collectionsOfControllers();

}  // namespace Hardware::Ucd9012::Test
