// The type objects of the base model and of its siblings, as tools read them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/models/power_controller.h"
#include "host/models/siblings.h"
#include "host/zol/registry/type_of.h"
#include "host/zol/registry/zol_type.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

std::string textOf(Zol::String8 const& text) { return std::string(text.view()); }

// The attributes of a type that its base does not have, as "name id: type".
std::vector<std::string> ownAttributes(Zol::ZolType const* type) {
  std::vector<std::string> rows;
  for (auto it = type->attributeQIteratorConst(); it; ++it) {
    if (type->baseType() && type->baseType()->attr(it->name())) continue;
    rows.push_back(textOf(it->name()) + " " + std::to_string(it->attrId()) + ": " +
                   textOf(it->type()->fullName()));
  }
  return rows;
}

std::vector<std::string> arguments(Zol::ZolType const* type) {
  std::vector<std::string> rows;
  auto kind = type->constructorArgTypeQIteratorConst();
  for (auto it = type->constructorArgNameQIteratorConst(); it; ++it, ++kind) {
    rows.push_back(textOf(*it) + ": " + textOf(*kind));
  }
  return rows;
}

TEST(ModelTypes, OfABaseControllerListsItsArguments) {
  using Hardware::PowerController::ControllerConfig;
  EXPECT_THAT(
      arguments(ControllerConfig::_fwkType()),
      ElementsAre("name: Zol::Name", "customerName: Zol::Name", "dexoDesc: Hardware::DexoDesc",
                  "resetGpioPinConfig: Hardware::Gpio::PinConfig",
                  "resetGpioPinStatus: Hardware::Gpio::PinStatus"));
}

TEST(ModelTypes, OfDescriptorsTakeOverFromTheirBase) {
  Zol::ZolType* const smbus = SmbusDexo::DexoDesc::_fwkType();
  Zol::ZolType* const i2c = I2cDexo::DexoDesc::_fwkType();
  EXPECT_EQ(smbus->baseType(), Hardware::DexoDesc::_fwkType());
  EXPECT_EQ(i2c->baseType(), Hardware::DexoDesc::_fwkType());
  EXPECT_EQ(arguments(smbus).size(), 12u);
  EXPECT_EQ(ownAttributes(smbus).size(), 11u);
  EXPECT_THAT(ownAttributes(smbus), IsSupersetOf({"device 386: Hardware::SmbusDevice",
                                                  "busTimeout 395: Hardware::SmbusTimeout",
                                                  "smbusAgentId 396: Hardware::LobusAgentId"}));
  EXPECT_THAT(arguments(i2c), ElementsAre("name: Zol::Name", "busId: U8", "device: U8"));
}

TEST(ModelTypes, AreThoseOfTheObjects) {
  Zol::Ptr<Zol::Entity> const desc = new I2cDexo::DexoDesc("eeprom", 1, 0x50);
  Zol::Ptr<Zol::Entity> const status = new Hardware::PowerController::ControllerStatus("main");
  EXPECT_EQ(desc->fwkType(), I2cDexo::DexoDesc::_fwkType());
  EXPECT_EQ(status->fwkType(), Hardware::PowerController::ControllerStatus::_fwkType());
}

TEST(ModelTypes, OfNamedEntitiesAreMadeFromTheirNameAlone) {
  std::pair<Zol::ZolType*, char const*> const types[] = {
      {Hardware::SmbusDevice::_fwkType(), "Hardware::SmbusDevice"},
      {Hardware::DexoDesc::_fwkType(), "Hardware::DexoDesc"},
      {Hardware::Gpio::PinConfig::_fwkType(), "Hardware::Gpio::PinConfig"},
      {Hardware::Gpio::PinStatus::_fwkType(), "Hardware::Gpio::PinStatus"},
      {Environment::Power::VoltageRailConfig::_fwkType(), "Environment::Power::VoltageRailConfig"},
      {Environment::Power::VoltageRailStatus::_fwkType(), "Environment::Power::VoltageRailStatus"},
      {EntityMib::Sensor::_fwkType(), "EntityMib::Sensor"},
      {Fru::Gpo::_fwkType(), "Fru::Gpo"},
  };
  for (auto const& [type, fullName] : types) {
    EXPECT_EQ(textOf(type->fullName()), fullName);
    EXPECT_TRUE(type->isEntity());
    EXPECT_EQ(type->baseType(), Zol::Entity::_fwkType());
    EXPECT_THAT(arguments(type), ElementsAre("name: Zol::Name"));
    EXPECT_THAT(ownAttributes(type), IsEmpty());
  }
}

TEST(ModelTypes, OfValuesAreFoundByTheirClass) {
  EXPECT_EQ(Zol::typeOf<Units::Volts>(), Units::Volts::_fwkType());
  EXPECT_EQ(Zol::typeOf<Hardware::SmbusDelay>(), Hardware::_fwkType_SmbusDelay());
  EXPECT_TRUE(Units::Celsius::_fwkType()->isValue());
  EXPECT_TRUE(Hardware::_fwkType_SmbusTimeout()->isEnumType());
  EXPECT_EQ(ownAttributes(Hardware::_fwkType_SmbusAddrSize()).size(), 5u);
  EXPECT_THAT(ownAttributes(Hardware::SmbusId::_fwkType()), ElementsAre("value 2: U8"));
  EXPECT_EQ(Hardware::SmbusId::_fwkType()->valAttr()->name(), Zol::Name("value"));
}

}  // namespace
