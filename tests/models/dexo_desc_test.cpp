// The bus descriptors, and the vocabulary that they are written in.
#include "host/models/dexo_desc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "host/models/units.h"

namespace {

using ::testing::ElementsAre;

class DescriptorListener : public SmbusDexo::DexoDesc::Notifiee {
 public:
  std::vector<std::string> heard;

  void onLobusAccelId() override { heard.emplace_back("lobusAccelId"); }
  void onBusId() override { heard.emplace_back("busId"); }
  void onDeviceId() override { heard.emplace_back("deviceId"); }
  void onAddrSize() override { heard.emplace_back("addrSize"); }
  void onWriteNoStopReadCurrent() override { heard.emplace_back("writeNoStopReadCurrent"); }
  void onWriteDelay() override { heard.emplace_back("writeDelay"); }
  void onReadDelay() override { heard.emplace_back("readDelay"); }
  void onBug30005ExtraDelays() override { heard.emplace_back("bug30005ExtraDelays"); }
  void onBusTimeout() override { heard.emplace_back("busTimeout"); }
  void onSmbusAgentId() override { heard.emplace_back("smbusAgentId"); }
};

class SmbusDescriptor : public ::testing::Test {
 protected:
  SmbusDescriptor() {
    listener->isRegisteredNotifieeIs(true);
    listener->notifierIs(desc);
  }

  Zol::Ptr<Hardware::SmbusDevice> device = new Hardware::SmbusDevice("bus1");
  Zol::Ptr<SmbusDexo::DexoDesc> desc =
      new SmbusDexo::DexoDesc("ucd", device, 1, 2, 0x4e, Hardware::SmbusAddrSize::oneByte, true,
                              Hardware::SmbusDelay::delay1ms, Hardware::SmbusDelay::delay20us,
                              false, Hardware::SmbusTimeout::timeout25ms, 7);
  Zol::Ptr<DescriptorListener> listener = new DescriptorListener;
};

TEST_F(SmbusDescriptor, HoldsItsTwelveArguments) {
  EXPECT_EQ(desc->name(), Zol::Name("ucd"));
  EXPECT_EQ(desc->device(), device);
  EXPECT_EQ(desc->lobusAccelId(), Hardware::LobusAccelId(1));
  EXPECT_EQ(desc->busId(), Hardware::SmbusId(2));
  EXPECT_EQ(desc->deviceId(), Hardware::SmbusDeviceId(0x4e));
  EXPECT_EQ(desc->addrSize(), Hardware::SmbusAddrSize::oneByte);
  EXPECT_TRUE(desc->writeNoStopReadCurrent());
  EXPECT_EQ(desc->writeDelay(), Hardware::SmbusDelay::delay1ms);
  EXPECT_EQ(desc->readDelay(), Hardware::SmbusDelay::delay20us);
  EXPECT_FALSE(desc->bug30005ExtraDelays());
  EXPECT_EQ(desc->busTimeout(), Hardware::SmbusTimeout::timeout25ms);
  EXPECT_EQ(desc->smbusAgentId(), Hardware::LobusAgentId(7));
  EXPECT_EQ(desc->readCounter(), 11u);
}

TEST_F(SmbusDescriptor, TellsEachOfItsTenChangesOnce) {
  using namespace Hardware;
  for (int i = 0; i < 2; ++i) {
    desc->lobusAccelIdIs(11);
    desc->busIdIs(12);
    desc->deviceIdIs(0x58);
    desc->addrSizeIs(SmbusAddrSize::twoBytes);
    desc->writeNoStopReadCurrentIs(false);
    desc->writeDelayIs(SmbusDelay::delay2ms);
    desc->readDelayIs(SmbusDelay::delay10us);
    desc->bug30005ExtraDelaysIs(true);
    desc->busTimeoutIs(SmbusTimeout::timeout1s);
    desc->smbusAgentIdIs(17);
  }
  EXPECT_THAT(listener->heard, ElementsAre("lobusAccelId", "busId", "deviceId", "addrSize",
                                           "writeNoStopReadCurrent", "writeDelay", "readDelay",
                                           "bug30005ExtraDelays", "busTimeout", "smbusAgentId"));
  EXPECT_EQ(desc->mutationCounter(), 10u);
  EXPECT_EQ(desc->busTimeout(), SmbusTimeout::timeout1s);
  EXPECT_EQ(desc->smbusAgentId(), LobusAgentId(17));
}

TEST_F(SmbusDescriptor, IsNotTakenForAnI2cDescriptor) {
  Zol::Ptr<I2cDexo::DexoDesc> const i2c = new I2cDexo::DexoDesc("eeprom", 3, 0x50);
  EXPECT_EQ(i2c->busId(), 3);
  EXPECT_EQ(i2c->device(), 0x50);
  EXPECT_EQ(i2c->attributeString(I2cDexo::DexoDesc::Id::device), Zol::String8("device"));
  EXPECT_EQ(desc->attributeString(SmbusDexo::DexoDesc::Id::busTimeout), Zol::String8("busTimeout"));
  listener->notifierIs(i2c);
  EXPECT_FALSE(listener->notifier());
}

TEST(SmbusEnumerations, TurnNumbersAndNamesIntoEnumerators) {
  using namespace Hardware;
  EXPECT_EQ(SmbusDelayInstance(7), SmbusDelay::delay1ms);
  EXPECT_EQ(SmbusTimeoutInstance("timeout25ms"), SmbusTimeout::timeout25ms);
  EXPECT_EQ(stringValue(SmbusAddrSize::twoBytes), Zol::String8("twoBytes"));
  EXPECT_EQ(stringValue(static_cast<SmbusDelay>(99)), Zol::String8("SmbusDelay(99)"));
  EXPECT_THROW(SmbusAddrSizeInstance(5), Zol::RangeException);
  EXPECT_THROW(SmbusDelayInstance("Delay1ms"), Zol::RangeException);
}

TEST(Quantities, CompareAsTheirNumbers) {
  double const infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Units::Volts().value(), -infinity);
  EXPECT_EQ(Units::Celsius(), Units::Celsius(-infinity));
  EXPECT_EQ(Units::Volts(0.0), Units::Volts(-0.0));
  EXPECT_NE(Units::Volts(std::nan("")), Units::Volts(std::nan("")));
  EXPECT_NE(Units::Volts(0.8), Units::Volts(0.9));
}

}  // namespace
