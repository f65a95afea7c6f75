// Values of every type, made from no more than the type object.
#pragma once

#include <gtest/gtest.h>
#include <hwrailseq.h>

#include <functional>
#include <map>
#include <string>

namespace Hardware::Ucd9012::Test {

using Generic = Zol::Ptr<Zol::GenericIf>;
using Zol::GenericIf;
using Zol::ZolAttr;
using Zol::ZolType;

// What the test expects of an operation: the failure's class and text.
template <class Failure, class Operation>
void expectFailure(Operation const& operation, std::string const& text) {
  try {
    operation();
    ADD_FAILURE() << "was not refused, expected " << text;
  } catch (Failure const& failure) {
    EXPECT_EQ(failure.what(), text);
  } catch (std::exception const& failure) {
    ADD_FAILURE() << "was refused as " << failure.what() << ", expected " << text;
  }
}

inline Generic number(unsigned int value) { return Zol::wrapped(value, false); }
inline Generic text(char const* value) { return Zol::wrapped(Zol::String8(value), false); }
inline Generic name(char const* value) { return Zol::wrapped(Zol::Name(value), false); }

inline Generic listOf(std::vector<Generic> const& arguments) {
  auto const list = GenericIf::List_::List_Is();
  for (Generic const& argument : arguments) list->valueEnq(argument);
  return list;
}

// An entity that another model would own.
inline Generic foreignEntity(ZolType const& type, char const* named) {
  std::map<std::string_view, std::function<Zol::Entity*(Zol::Name)>> const makers{
      {"Hardware::DexoDesc", [](auto n) { return new Hardware::DexoDesc(n); }},
      {"Hardware::SmbusDevice", [](auto n) { return new Hardware::SmbusDevice(n); }},
      {"Hardware::Gpio::PinConfig", [](auto n) { return new Hardware::Gpio::PinConfig(n); }},
      {"Hardware::Gpio::PinStatus", [](auto n) { return new Hardware::Gpio::PinStatus(n); }},
      {"Environment::Power::VoltageRailConfig",
       [](auto n) { return new Environment::Power::VoltageRailConfig(n); }},
      {"Environment::Power::VoltageRailStatus",
       [](auto n) { return new Environment::Power::VoltageRailStatus(n); }},
      {"EntityMib::Sensor", [](auto n) { return new EntityMib::Sensor(n); }},
      {"Fru::Gpo", [](auto n) { return new Fru::Gpo(n); }},
      {"Hardware::Ucd9012::ControllerConfig",
       [](auto n) { return new Ucd9012ControllerConfig(n, "", nullptr, nullptr, nullptr); }},
      {"Hardware::Ucd9012::ControllerStatus", [](auto n) { return new PsocControllerStatus(n); }},
  };
  return ZolType::genericIf(makers.at(type.fullName().view())(named), false);
}

Generic sample(ZolType const& type, unsigned int turn);

// The arguments of a constructor, as its queues tell them; `key` takes the place of `keyField`.
template <class Source>
Generic argumentsOf(Source const& source, unsigned int turn, Generic const& key = nullptr,
                    Zol::Name const& keyField = {}) {
  std::vector<Generic> arguments;
  auto type = source.constructorArgTypeQIteratorConst();
  for (auto it = source.constructorArgNameQIteratorConst(); it; ++it, ++type) {
    bool const isKey = key && *it == keyField;
    arguments.push_back(isKey ? key : sample(*ZolType::typeNode(Zol::Name(*type)), turn));
  }
  return listOf(arguments);
}

// A value that is not the default, another one for each of the turns 0 and 1.
inline Generic sample(ZolType const& type, unsigned int turn) {
  std::string const digit = std::to_string(turn + 1);
  std::string_view const name = type.fullName().view();
  if (type.isEntity()) return foreignEntity(type, turn ? "one" : "other");
  if (type.isEnumType()) {
    auto it = type.attributeQIteratorConst();
    if (turn == 0) ++it;
    return type.genericIf("'" + it->name() + "'", false);
  }
  if (name == "bool") return Zol::wrapped(turn == 0, false);
  if (name == "Zol::String8" || name == "Zol::Name") {
    return type.genericIf(Zol::String8("'" + digit + "'"), false);
  }
  auto args = type.constructorArgNameQIteratorConst();
  bool const isRecord = args && type.fullName().view().starts_with("Hardware::Ucd9012::");
  return isRecord ? type.genericIf(argumentsOf(type, turn).get(), false)
                  : type.genericIf(Zol::String8(digit), false);
}

}  // namespace Hardware::Ucd9012::Test
