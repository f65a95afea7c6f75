// The table of the sibling models' types.
#include "railseq/board/siblings.h"

#include <algorithm>
#include <array>

namespace RailSeq {

namespace {

struct Row {
  Zol::ZolType* (*type)();
  Zol::Ptr<Zol::Entity> (*make)(std::string const& name);
};

template <class X>
Zol::Ptr<Zol::Entity> make(std::string const& name) {
  return new X(Zol::Name(name));
}
template <class X>
constexpr Row kRow{&X::_fwkType, &make<X>};

constexpr std::array kRows{kRow<Hardware::SmbusDevice>,
                           kRow<Hardware::Gpio::PinConfig>,
                           kRow<Hardware::Gpio::PinStatus>,
                           kRow<Environment::Power::VoltageRailConfig>,
                           kRow<Environment::Power::VoltageRailStatus>,
                           kRow<EntityMib::Sensor>,
                           kRow<Fru::Gpo>};

[[nodiscard]] Row const* rowOf(Zol::ZolType const& type) {
  auto const found =
      std::ranges::find_if(kRows, [&type](Row const& row) { return row.type() == &type; });
  return found == kRows.end() ? nullptr : &*found;
}

}  // namespace

bool isSibling(Zol::ZolType const& type) { return rowOf(type) != nullptr; }

Zol::Ptr<Zol::Entity> Siblings::entity(Zol::ZolType const& type, std::string const& name) {
  Zol::Ptr<Zol::Entity>& entity = entities_[{&type, name}];
  if (!entity) entity = rowOf(type)->make(name);
  return entity;
}

}  // namespace RailSeq
