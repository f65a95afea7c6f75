// What the type objects of the library can make, knowing only the type.
#include <gmock/gmock.h>

#include <cstring>

#include "entities/config.h"
#include "entities/status.h"
#include "entities/ucd9012_diag_status.h"
#include "entities/voltage_rail_config.h"
#include "host/models/siblings.h"
#include "host/zol/attrlog/in.h"
#include "host/zol/registry/zol_type.h"

namespace {

using namespace Hardware::Ucd9012;

// The bytes of a message, written as they go over the wire.
class Bytes {
 public:
  Bytes& text(std::string_view text) {
    number(text.size(), 4);
    bytes_.append(text);
    return *this;
  }
  Bytes& number(std::uint64_t value, unsigned int size) {
    for (unsigned int i = size; i-- > 0;) bytes_ += static_cast<char>(value >> (8 * i));
    return *this;
  }
  Bytes& noEntity() { return number(0, 8); }

  [[nodiscard]] Zol::Ptr<Zol::NboAttrLog::In> in() const {
    Zol::Ptr<Zol::NboAttrLog::In> const in = new Zol::NboAttrLog::In(1024);
    std::memcpy(in->room().data(), bytes_.data(), bytes_.size());
    in->received(bytes_.size());
    in->boundIs(in->position() + bytes_.size());
    return in;
  }

 private:
  std::string bytes_;
};

template <class X>
Zol::Ptr<X> fromStream(Zol::Ptr<Zol::NboAttrLog::In> const& in) {
  return Zol::ptrCast<X>(X::_fwkType()->newEntity(in, {}, 0, nullptr));
}

TEST(EntityFromName, OnlyRootsAreMade) {
  auto const config = Zol::ptrCast<Config>(Config::_fwkType()->newEntity("board", nullptr));
  ASSERT_TRUE(config);
  EXPECT_EQ(config->name(), "board");
  EXPECT_FALSE(config->parent());
  EXPECT_TRUE(Zol::ptrCast<Status>(Status::_fwkType()->newEntity("board", nullptr)));
  EXPECT_THROW(static_cast<void>(ControllerConfig::_fwkType()->newEntity("main", nullptr)),
               Zol::InternalException);
}

TEST(EntityFromStream, TakesItsParametersAndLeavesTheRest) {
  auto const in = Bytes().text("diag").number(77, 8).in();
  auto const status = fromStream<Ucd9012DiagStatus>(in);
  ASSERT_TRUE(status);
  EXPECT_EQ(status->name(), "diag");
  EXPECT_EQ(in->nextU64(), 77U);
}

TEST(EntityFromStream, AControllerIsMadeOfItsOwnChip) {
  auto const in =
      Bytes().text("main").text("J12").noEntity().noEntity().noEntity().number(77, 8).in();
  auto const controller = fromStream<PsocControllerConfig>(in);
  ASSERT_TRUE(controller);
  EXPECT_EQ(controller->name(), "main");
  EXPECT_EQ(controller->customerName(), "J12");
  EXPECT_FALSE(controller->dexoDesc());
  EXPECT_FALSE(controller->resetGpioPinConfig());
  EXPECT_FALSE(controller->resetGpioPinStatus());
  EXPECT_EQ(in->nextU64(), 77U);
}

TEST(EntityFromStream, ARailMayHaveNoReferences) {
  auto const rail =
      fromStream<VoltageRailConfig>(Bytes().number(200, 1).noEntity().noEntity().in());
  ASSERT_TRUE(rail);
  EXPECT_EQ(rail->id(), 200);
  EXPECT_FALSE(rail->voltageRailEnvConfig());
  EXPECT_FALSE(rail->voltageRailEnvStatus());
}

TEST(EntityFromStream, ATruncatedMessageMakesNothing) {
  EXPECT_THROW(fromStream<ControllerConfig>(Bytes().text("main").text("J12").noEntity().in()),
               Zol::MalformedMessageException);
}

TEST(EntityTypes, TakePartInTheDigest) {
  EXPECT_NE(Config::_fwkType()->digestFn(), nullptr);
  EXPECT_NE(ControllerConfig::_fwkType()->digestFn(), nullptr);
}

}  // namespace
