// Messages that no peer of this version sends, handed to an adapter by its host: a child's message
// in a wrapper, and a sync mode.
#include <gtest/gtest.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;
using namespace Hardware::Ucd9012;

class Wrapped : public testing::Test {
 protected:
  // Hands the payload to the adapter of the entity, as if it had arrived.
  void arrive(Zol::Entity& entity, Zol::AttributeId id, Frame const& payload) {
    Bytes const framed = payload.bytes();
    Bytes const bytes(framed.begin() + 4, framed.end());
    auto const in = pair.replica->in();
    auto const start = in->position();
    for (std::size_t at = 0; at < bytes.size();) {
      auto const room = in->room();
      std::size_t const count = std::min(room.size(), bytes.size() - at);
      std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), count, room.begin());
      in->received(count);
      at += count;
    }
    in->boundIs(start + bytes.size());
    struct End {
      ~End() { in->positionIs(in->bound()); }
      Zol::NboAttrLog::In* in;
    } const end{in.get()};
    entity.zolNboAttrLogSa(pair.replica->out())
        ->handleAttrDeserialization(id, {}, static_cast<unsigned int>(bytes.size()), nullptr);
  }
  static Frame rail(std::uint64_t id, unsigned int skipped) {
    // Two offsets, a list with the attribute, a number that is dropped, the parameters, a gap.
    Frame frame = Frame::fields();
    frame.u16(12).u16(skipped == 0 ? 0 : 33 + skipped).u32(7).u32(390).u32(0);
    frame.u8(5).u64(0).u64(0);
    for (unsigned int i = 0; i < skipped; ++i) frame.u8(0xee);
    return frame.u64(id);
  }

  ReplicaPair pair;
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("board");
  Zol::Ptr<Ucd9012ControllerConfig> main = addController(*config, "main");
};

TEST_F(Wrapped, aChildsMessageIsFoundInItsWrapper) {
  pair.mount(config);
  auto const mirror = pair.mirrored("main");
  arrive(*mirror, 144, rail(0x700, 0));
  ASSERT_TRUE(mirror->voltageRail(5));
  EXPECT_TRUE(mirror->voltageRail(5)->zolNboAttrLogSa(pair.replica->out()));
  arrive(*mirror, -144, Frame::fields().u16(8).u16(0).u32(static_cast<std::uint32_t>(-390)).u8(5));
  EXPECT_FALSE(mirror->voltageRail(5));
  arrive(*mirror, 144, rail(0x702, 3));
  EXPECT_TRUE(mirror->voltageRail(5));
}

TEST_F(Wrapped, aWrapperForAnotherClassIsUnknownAndOneThatPointsWrongIsMalformed) {
  pair.mount(config);
  auto const mirror = pair.mirrored("main");
  std::uint64_t const before = pair.replica->counters().unknown;
  arrive(*mirror, 144, Frame::fields().u16(8).u16(0).u32(258).u32(0).u8(1));
  arrive(*pair.mirror(), 144, Frame::fields().u16(8).u16(0).u32(390).u32(0).u8(1));
  EXPECT_EQ(pair.replica->counters().unknown, before + 2);
  EXPECT_THROW(arrive(*mirror, 144, Frame::fields().u16(900).u16(0).u32(390).u32(0)),
               Zol::MalformedMessageException);
}

TEST_F(Wrapped, aPeerCannotSendThem) {
  pair.mount(config);
  RawPeer peer;
  peer.send(Frame::hello());
  peer.send(Frame::mount(0x20, "b"));
  peer.send(Frame::orphan(0x20, "Hardware::Ucd9012::Config", "b"));
  for (std::int32_t const id : {135, 144, -144}) peer.send(Frame::data(0x20, id).u32(1));
  EXPECT_EQ(peer.connection->counters().unknown, 3U);
  EXPECT_TRUE(peer.connection->isOpen());
}

TEST_F(Wrapped, aSyncModeSettlesARootInItsDirectory) {
  pair.mount(config);
  Zol::Dir::root().entryIs(pair.mirror());
  arrive(*pair.mirror(), 135, Frame::fields().u32(2));
  EXPECT_FALSE(Zol::Dir::root().entry("board")->settled());
  arrive(*pair.mirror(), 135, Frame::fields().u32(1));
  EXPECT_TRUE(Zol::Dir::root().entry("board")->settled());
  EXPECT_THROW(arrive(*pair.mirror(), 135, Frame::fields().u32(3)), Zol::RangeException);
  Zol::Dir::root().entryDel("board");
  // The mode alone marks and sweeps nothing: markers do.
  EXPECT_EQ(pair.mirror()->realUcd9012ControllerCount(), 1U);
}

TEST_F(Wrapped, aSyncModeReachesTheEntitysAdaptersUnderASharedId) {
  using Mode = Zol::StreamAdapter::SyncMode;
  pair.mount(config);
  ReplicaPair onward;
  ReplicaPair apart;
  onward.mount(pair.mirror());
  apart.mount(pair.mirror());
  Zol::EntityId const shared(0x41);
  auto const own = pair.mirror()->zolNboAttrLogSa(pair.replica->out());
  auto const twin = pair.mirror()->zolNboAttrLogSa(onward.source->out());
  auto const other = pair.mirror()->zolNboAttrLogSa(apart.source->out());
  arrive(*pair.mirror(), 135, Frame::fields().u32(2));
  EXPECT_EQ(own->syncMode(), Mode::off);  // its id is the connection's own
  for (auto const& [sa, end] : {std::pair(own, pair.replica), std::pair(twin, onward.source)}) {
    sa->entityIdIs(shared);
    end->demuxer()->reactorIs(shared, sa.get());
  }
  // Another entity under the same id.
  auto const stranger = apart.mirrored("main")->zolNboAttrLogSa(apart.replica->out());
  apart.replica->demuxer()->reactorIs(shared, stranger.get());
  arrive(*pair.mirror(), 135, Frame::fields().u32(2));
  EXPECT_EQ(own->syncMode(), Mode::mark);
  EXPECT_EQ(twin->syncMode(), Mode::mark);
  EXPECT_EQ(other->syncMode(), Mode::off);
  EXPECT_EQ(stranger->syncMode(), Mode::off);
  EXPECT_FALSE(own->has(Zol::flagQuiet | Zol::flagApplying) || twin->has(Zol::flagQuiet));
}

TEST_F(Wrapped, aTypeBringsAChildToItsAdapter) {
  pair.mount(config);
  auto const out = pair.source->out();
  auto const rail = main->newVoltageRail(9, nullptr, nullptr);
  auto const mode = main->newDiagModeConfig("mode");
  auto const command = mode->newDiagCommandConfig("command");
  auto const announce = [&](Zol::ZolType const* type, char const* attr, Zol::Entity& child) {
    type->childAttrLogIs(type->attr(Zol::Name(attr)), Zol::Ptr<Zol::PtrInterface>(&child), out);
    return static_cast<bool>(child.zolNboAttrLogSa(out));
  };
  Zol::ZolType const* const type = Ucd9012ControllerConfig::_fwkType();
  EXPECT_FALSE(announce(type, "controllerState", *rail));
  EXPECT_TRUE(announce(type, "voltageRail", *rail));
  EXPECT_TRUE(announce(type, "diagModeConfig", *mode));
  EXPECT_TRUE(announce(Ucd9012DiagModeConfig::_fwkType(), "diagCommandConfig", *command));
  pair.flow();
  EXPECT_TRUE(pair.mirrored("main")->voltageRail(9));
  EXPECT_TRUE(pair.mirrored("main")->diagModeConfig("mode"));
}

TEST(EntitiesFromAStream, areMadeFromTheirParametersAlone) {
  RawPeer peer;
  peer.send(Frame::hello());
  auto const orphan = [](char const* type, std::uint64_t id, Frame const& parameters) {
    return Frame::data(std::uint64_t{1} << 32, 136)
        .section(1, Frame::fields().text(type))
        .section(3, parameters)
        .section(4, Frame::fields().u64(id));
  };
  auto const entity = [&](std::uint64_t id) {
    return Zol::Ptr<Zol::Entity>(
        peer.connection->demuxer()->entity(Zol::EntityId(id).seenFromOtherEnd()));
  };
  std::uint64_t id = 0x20;
  for (char const* const type :
       {"Hardware::Ucd9012::Ucd9012DiagConfig", "Hardware::Ucd9012::Ucd9012DiagModeConfig",
        "Hardware::Ucd9012::Ucd9012DiagStatus", "Hardware::Ucd9012::PsocControllerStatus",
        "Hardware::Ucd9012::Status", "Hardware::Gpio::PinConfig", "Fru::Gpo"}) {
    peer.send(orphan(type, id, Frame::fields().text("name")));
    ASSERT_TRUE(entity(id)) << type;
    EXPECT_EQ(entity(id)->name(), "name");
    EXPECT_EQ(entity(id)->fwkType()->fullName(), type);
    id += 2;
  }
  peer.send(
      orphan("Hardware::Ucd9012::VoltageRailConfig", 0x80, Frame::fields().u8(7).u64(0).u64(0)));
  auto const rail = Zol::ptrCast<VoltageRailConfig>(entity(0x80));
  ASSERT_TRUE(rail);
  EXPECT_EQ(rail->id(), 7U);
  EXPECT_FALSE(rail->voltageRailEnvConfig() || rail->parent());
  peer.send(orphan("I2cDexo::DexoDesc", 0x82, Frame::fields().text("i2c").u8(1).u8(2)));
  EXPECT_EQ(Zol::ptrCast<I2cDexo::DexoDesc>(entity(0x82))->device(), 2U);

  auto const smbus = [&](std::uint64_t device, unsigned int accel, unsigned int bus) {
    return Frame::fields()
        .text("smbus")
        .u64(device)
        .u8(accel)
        .u8(bus)
        .u8(255)
        .u32(1)
        .u8(1)
        .u32(2)
        .u32(3)
        .u8(0)
        .u32(4)
        .u8(255);
  };
  peer.send(orphan("SmbusDexo::DexoDesc", 0x84, smbus(0, 127, 127)));
  EXPECT_EQ(Zol::ptrCast<SmbusDexo::DexoDesc>(entity(0x84))->busId().value(), 127U);
  // An id out of range, a reference of another class, and one to nobody: nothing is made.
  peer.send(orphan("SmbusDexo::DexoDesc", 0x86, smbus(0, 128, 1)));
  peer.send(orphan("SmbusDexo::DexoDesc", 0x88, smbus(0, 1, 128)));
  peer.send(orphan("SmbusDexo::DexoDesc", 0x8a, smbus(0x20, 1, 1)));
  peer.send(orphan("SmbusDexo::DexoDesc", 0x8c, smbus(0x400, 1, 1)));
  EXPECT_EQ(peer.connection->counters().refused, 4U);
  EXPECT_FALSE(entity(0x86) || entity(0x88) || entity(0x8a) || entity(0x8c));
}

}  // namespace
