// Forwards to the chip collections, makes trees of boards and shows them.
#include "railseq/controllers.h"

#include <algorithm>

#include "railseq/controller_attributes.h"

namespace RailSeq {

std::string_view collectionName(Chip chip) {
  switch (chip) {
    case Chip::ucd9012:
      return "realUcd9012Controller";
    case Chip::ucd9032:
      return "realUcd9032Controller";
    case Chip::psoc:
      return "realPsocController";
  }
  return {};
}

Zol::Ptr<ControllerConfig> addController(Config& config, Chip chip, std::string const& name,
                                         std::string const& customerName) {
  switch (chip) {
    case Chip::ucd9012:
      return config.realUcd9012ControllerIs(name, customerName, nullptr, nullptr, nullptr);
    case Chip::ucd9032:
      return config.realUcd9032ControllerIs(name, customerName, nullptr, nullptr, nullptr);
    case Chip::psoc:
      return config.realPsocControllerIs(name, customerName, nullptr, nullptr, nullptr);
  }
  return nullptr;
}

void removeController(Config& config, Chip chip, std::string const& name) {
  switch (chip) {
    case Chip::ucd9012:
      config.realUcd9012ControllerDel(Zol::Name(name));
      return;
    case Chip::ucd9032:
      config.realUcd9032ControllerDel(Zol::Name(name));
      return;
    case Chip::psoc:
      config.realPsocControllerDel(Zol::Name(name));
      return;
  }
}

Zol::Ptr<ControllerConfig> findController(Config& config, Chip chip, std::string const& name) {
  switch (chip) {
    case Chip::ucd9012:
      return config.realUcd9012Controller(Zol::Name(name));
    case Chip::ucd9032:
      return config.realUcd9032Controller(Zol::Name(name));
    case Chip::psoc:
      return config.realPsocController(Zol::Name(name));
  }
  return nullptr;
}

std::vector<Zol::Ptr<ControllerConfig const>> controllersOf(Config const& config, Chip chip) {
  std::vector<Zol::Ptr<ControllerConfig const>> result;
  auto const collect = [&result](auto iterator) {
    for (; iterator; ++iterator) result.emplace_back(iterator.ptr());
  };
  switch (chip) {
    case Chip::ucd9012:
      collect(config.realUcd9012ControllerIteratorConst());
      break;
    case Chip::ucd9032:
      collect(config.realUcd9032ControllerIteratorConst());
      break;
    case Chip::psoc:
      collect(config.realPsocControllerIteratorConst());
      break;
  }
  std::ranges::sort(result, {}, [](auto const& controller) { return controller->name().view(); });
  return result;
}

Zol::Ptr<Config> makeConfig(BoardDescription const& board) {
  Zol::Ptr<Config> const config = new Config(board.configName);
  for (ControllerDescription const& given : board.controllers) {
    Zol::Ptr<ControllerConfig> const controller =
        addController(*config, given.chip, given.name, given.customerName);
    for (AttributeSetting const& setting : given.settings) {
      findControllerAttribute(setting.attribute)->write(*controller, setting.value);
    }
  }
  return config;
}

std::vector<std::string> treeLines(Config const& config) {
  std::vector<std::string> lines{std::string(config.name().view())};
  for (Chip const chip : kChips) {
    for (Zol::Ptr<ControllerConfig const> const& controller : controllersOf(config, chip)) {
      lines.push_back("  " + std::string(collectionName(chip)) + "[" +
                      std::string(controller->name().view()) + "]");
      lines.push_back("    customerName = " + inQuotes(controller->customerName().view()));
      for (ControllerAttribute const& attribute : controllerAttributes()) {
        lines.push_back("    " + std::string(attribute.name) + " = " +
                        valueText(attribute, attribute.read(*controller)));
      }
    }
  }
  return lines;
}

}  // namespace RailSeq
