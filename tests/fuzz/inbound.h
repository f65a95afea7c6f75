// The trees and recorded sessions of the fuzz target of what a peer sends. Everything is announced
// live, one after the other, so that ids are the same in each run.
#pragma once

#include <functional>

#include "fuzz/fuzz.h"
#include "support/raw_peer.h"
#include "support/tree.h"

namespace fuzz {

using test::Bytes;
using test::RawPeer;
using namespace Hardware::Ucd9012;

// The four things that an input may be, by its first byte: the whole stream of a peer, or frames
// behind a session that has filled this end. Of a frame stands its length in two bytes, and its
// kind and body.
enum class Part : std::uint8_t { stream, readOnlyReplica, writableReplica, owner };

struct Board {
  Zol::Ptr<Config> config = configFactory("board");
  Zol::Ptr<Status> status = statusFactory("state");

  // Uses every kind of attribute at least once.
  void fill() const {
    Zol::Ptr<EntityMib::Sensor> const sensor(new EntityMib::Sensor("sensor"));
    auto const descriptor = config->dexoDescIs(
        "descriptor", new Hardware::SmbusDevice("device"), Hardware::LobusAccelId(1),
        Hardware::SmbusId(2), Hardware::SmbusDeviceId(3), Hardware::SmbusAddrSize(1), true,
        Hardware::SmbusDelay(1), Hardware::SmbusDelay(2), false, Hardware::SmbusTimeout(1),
        Hardware::LobusAgentId(4));
    auto const main = config->realUcd9012ControllerIs(
        "main", "customer", descriptor, new Hardware::Gpio::PinConfig("pin"), nullptr);
    auto const psoc = config->realPsocControllerIs("psoc", "customer", nullptr, nullptr, nullptr);
    config->controllerIs(main);
    config->controllerIs(psoc);
    main->voltageRailIs(1, nullptr, nullptr)->sensorMibIs(sensor);
    main->voltageRailIs(2, new Environment::Power::VoltageRailConfig("rail"), nullptr)
        ->overrideVoutOvLimitIs(1.5);
    main->reloadCauseIs(1, {ReloadCauses(1), CauseType(1), 7, true});
    main->reloadCauseIs(2, {ReloadCauses(2), CauseType(0), 8, false});
    main->externalVoltageRailIs(3, {1, 2});
    auto const command = main->diagCommandConfigIs("command");
    command->parameterIs(1, "one");
    command->parameterIs(2, "two");
    main->diagModeConfigIs("mode")->diagCommandConfigIs("inner")->epochIs(5);
    main->kernelPanicEepromDexoIs("eeprom", 1, 2);
    main->kernelPanicEepromWpIs(new Fru::Gpo("output"));
    main->locationIs("rear");
    main->operationalModeIs(OperationalMode::diagMode);
    main->pollingEnabledIs(false);
    auto const state = status->realUcd9012ControllerIs("main");
    status->controllerIs(state);
    state->diagModeStatusIs("mode");
    state->temperatureIs(Units::Celsius(20.5));
    state->firmwareVersionIs("1.0");
  }
};

inline Zol::NboAttrLog::ConnectionOptions inboundOptions() {
  Zol::NboAttrLog::ConnectionOptions options;
  options.ownName = "this end";
  options.maxFrame = 1;
  options.inCapacity = 1;
  options.maxText = 4000;
  options.maxPartialTexts = 6000;
  options.maxEntities = 100;
  options.maxOrphans = 40;
  options.maxMounts = 4;
  options.maxMembers = 20;
  return options;
}

// A connection that owns a filled board; its peer has said hello.
struct Owner {
  explicit Owner(Zol::NboAttrLog::MountOptions mount = {},
                 Zol::NboAttrLog::ConnectionOptions options = inboundOptions())
      : peer(std::move(options)) {
    peer.connection->mountIs(board.config, mount);
    peer.connection->mountIs(board.status, mount);
    peer.send(test::Frame::hello());
    board.fill();
    peer.send(Bytes());
  }
  Board board;
  RawPeer peer;
};

// What an owner says from the hello to the filled board.
inline Bytes recorded(Zol::NboAttrLog::MountOptions mount = {}) {
  return Owner(mount).peer.received();
}

// Visits each frame of a stream: its kind and body.
inline void eachFrame(Bytes const& stream, std::function<void(Bytes const&)> const& visit) {
  for (std::size_t at = 0; at + 4 <= stream.size();) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < 4; ++i) length = length << 8 | stream[at + i];
    auto const from = stream.begin() + static_cast<std::ptrdiff_t>(at + 4);
    visit(Bytes(from, from + static_cast<std::ptrdiff_t>(length)));
    at += 4 + length;
  }
}

// As the inputs have frames.
inline void append(Bytes& input, Bytes const& frame) {
  input.push_back(static_cast<std::uint8_t>(frame.size() >> 8));
  input.push_back(static_cast<std::uint8_t>(frame.size()));
  input.insert(input.end(), frame.begin(), frame.end());
}

inline std::vector<Bytes> framesOf(Bytes const& input) {
  std::vector<Bytes> frames;
  for (std::size_t at = 1; at + 2 <= input.size();) {
    std::size_t const named = std::size_t{input[at]} << 8 | input[at + 1];
    std::size_t const length = std::min(named, input.size() - at - 2);
    auto const from = input.begin() + static_cast<std::ptrdiff_t>(at + 2);
    frames.emplace_back(from, from + static_cast<std::ptrdiff_t>(length));
    at += 2 + length;
  }
  return frames;
}

}  // namespace fuzz
