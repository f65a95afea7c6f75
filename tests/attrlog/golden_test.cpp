// The bytes of each frame and message form, kept in tests/golden: as they are written, and read
// back from the same bytes. A change there breaks peers of earlier versions. With
// HWRAILSEQ_WRITE_GOLDEN in the environment the files are written anew.
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <map>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;
using namespace Hardware::Ucd9012;

std::uint32_t numberAt(Bytes const& bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = (number << 8) | bytes[at + i];
  return number;
}

// Bytes as pairs of hexadecimal digits; a text behind its length stands in quotation marks.
class Printer {
 public:
  explicit Printer(Bytes const& bytes) : bytes_(bytes) {}

  // One line per frame.
  std::string lines() {
    while (at_ < bytes_.size()) frame();
    return text_;
  }

 private:
  void hex(std::size_t count) {
    static constexpr char kDigits[] = "0123456789abcdef";
    for (; count > 0; --count, ++at_) {
      text_ += kDigits[bytes_[at_] >> 4];
      text_ += kDigits[bytes_[at_] & 15];
    }
    text_ += ' ';
  }
  void frame() {
    std::size_t const end = at_ + 4 + numberAt(bytes_, at_);
    hex(4);
    unsigned int const kind = bytes_[at_];
    hex(1);
    if (kind == 3) {
      hex(8);
      hex(4);
      unsigned int const bits = bytes_[at_];
      hex(1);
      if ((bits & 4) != 0) hex(4);
      if ((bits & 8) != 0) hex(4);
    }
    while (at_ < end) {
      if (!quoted(end)) hex(1);
    }
    text_.back() = '\n';
  }
  bool quoted(std::size_t end) {
    if (end - at_ < 5) return false;
    std::size_t const length = numberAt(bytes_, at_);
    if (length == 0 || length > end - at_ - 4) return false;
    std::string const text(bytes_.begin() + static_cast<std::ptrdiff_t>(at_ + 4),
                           bytes_.begin() + static_cast<std::ptrdiff_t>(at_ + 4 + length));
    for (char const byte : text) {
      if (std::isalnum(static_cast<unsigned char>(byte)) == 0 && byte != ':') return false;
    }
    hex(4);
    text_ += "'" + text + "' ";
    at_ += length;
    return true;
  }

  Bytes const& bytes_;
  std::size_t at_ = 0;
  std::string text_;
};

// A source that writes to the test, and a replica that the test feeds with what is expected of it.
class Golden : public testing::Test {
 protected:
  // Compares with the file, step by step.
  void open(std::string const& name) {
    path_ = std::string(HWRAILSEQ_GOLDEN) + "/" + name + ".txt";
    writes_ = std::getenv("HWRAILSEQ_WRITE_GOLDEN") != nullptr;
    std::ifstream file(path_);
    std::string* step = nullptr;
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with("== ")) {
        step = &expected_[line.substr(3)];
      } else if (step && !line.empty() && !line.starts_with("#")) {
        *step += line + "\n";
      }
    }
  }
  // What the source has written since the last step is what the file has under this name, and the
  // replica that takes it in is equal.
  void step(std::string const& name) {
    SCOPED_TRACE(name);
    while (source.connection->pump()) {
    }
    Bytes const bytes(source.received().begin() + static_cast<std::ptrdiff_t>(seen_),
                      source.received().end());
    seen_ = source.received().size();
    std::string const lines = Printer(bytes).lines();
    written_ += "== " + name + "\n" + lines + "\n";
    if (!writes_) {
      EXPECT_EQ(lines, expected_[name]);
    }
    replica.send(bytes);
    if (auto const mirror = replica.connection->mounted(root->name())) {
      EXPECT_EQ(Zol::digest(*mirror), Zol::digest(*root));
    }
  }
  void TearDown() override {
    if (writes_) std::ofstream(path_) << written_;
    EXPECT_EQ(replica.connection->counters().refused + replica.connection->counters().unknown, 0U);
  }

  Zol::Ptr<Zol::Entity> root;
  RawPeer source{[] {
    ConnectionOptions named;
    named.ownName = "src";
    return named;
  }()};
  RawPeer replica;

 private:
  std::string path_;
  bool writes_ = false;
  std::map<std::string, std::string> expected_;
  std::string written_;
  std::size_t seen_ = 0;
};

TEST_F(Golden, config) {
  open("config");
  auto const config = Hardware::Ucd9012::configFactory("b");
  root = config;
  source.connection->mountIs(root);
  step("hello");
  source.send(Frame::hello());
  step("mount of an empty root");
  ASSERT_TRUE(replica.connection->synced("b"));

  auto const desc = config->dexoDescIs(
      "d", new Hardware::SmbusDevice("dev"), Hardware::LobusAccelId(1), Hardware::SmbusId(2),
      Hardware::SmbusDeviceId(3), Hardware::SmbusAddrSize::oneByte, true,
      Hardware::SmbusDelay::delay10us, Hardware::SmbusDelay::delay20us, false,
      Hardware::SmbusTimeout::timeout1ms, Hardware::LobusAgentId(4));
  step("dexoDesc, announced behind the device that it refers to");
  desc->busTimeoutIs(Hardware::SmbusTimeout::timeout2ms);
  step("busTimeout of the descriptor");
  auto const main = config->realUcd9012ControllerIs("m", "c", Zol::Ptr<Hardware::DexoDesc>(desc),
                                                    new Hardware::Gpio::PinConfig("pc"),
                                                    new Hardware::Gpio::PinStatus("ps"));
  step("realUcd9012Controller, behind its pins");
  // Written once per listener that forwards it: one hears the base model, two what is added to it.
  main->autoStartPowerProgramIs(true);
  step("autoStartPowerProgram");
  main->pollingEnabledIs(false);
  step("pollingEnabled, a bool");
  main->reloadCauseSortKeyIs(0x01020304);
  step("reloadCauseSortKey, a number");
  main->operationalModeIs(static_cast<OperationalMode>(0x80000001));
  step("operationalMode, an enumeration");
  main->locationIs("ab");
  step("location, a text");
  main->locationIs("");
  step("location, empty");
  main->reloadCauseIs(7, {ReloadCauses::watchdog, CauseType::gpio, 0x11223344, true});
  step("reloadCause");
  main->reloadCauseDel(7);
  step("reloadCause, removed");
  main->psocReloadCauseIs(8, {ReloadCauses::cpu, 0x1234, true});
  step("psocReloadCause");
  main->pageFaultCauseIs(9, {ReloadCauses::none, 5, 6});
  step("pageFaultCause");
  main->externalVoltageRailIs(10, {1, 2});
  step("externalVoltageRail");
  auto const rail = main->voltageRailIs(3, new Environment::Power::VoltageRailConfig("ec"),
                                        new Environment::Power::VoltageRailStatus("es"));
  step("voltageRail, behind its two entities");
  rail->overrideVoutUvLimitIs(0.75);
  step("overrideVoutUvLimit, a unit");
  rail->sensorMibIs(new EntityMib::Sensor("sn"));
  step("sensorMib, a reference");
  rail->sensorMibIs(nullptr);
  step("sensorMib, null, and what it referred to forgotten");
  auto const command = main->diagCommandConfigIs("cmd");
  step("diagCommandConfig, a child without a key");
  command->parameterIs(2, "two");
  step("parameter, a keyed text");
  command->parameterDel(2);
  step("parameter, removed");
  main->diagCommandConfigDel();
  step("diagCommandConfig, cleared");
  main->diagModeConfigIs("mode");
  step("diagModeConfig");
  main->kernelPanicEepromDexoIs("ee", 5, 6);
  step("kernelPanicEepromDexo");
  config->controllerIs(Zol::Ptr<ControllerConfig>(main));
  step("controller, a keyed reference");
  config->controllerDel("m");
  step("controller, removed");
  main->voltageRailDel(3);
  step("voltageRail, removed");
  config->realUcd9012ControllerDel("m");
  step("realUcd9012Controller, removed");
  source.connection->close();
  step("bye");
  EXPECT_EQ(replica.connection->error(), "closed by the peer");
}

TEST_F(Golden, status) {
  open("status");
  auto const status = Hardware::Ucd9012::statusFactory("s");
  root = status;
  auto const main = status->realPsocControllerIs("m");
  main->temperatureIs(41.5);
  main->firmwareVersionIs("v1");
  main->diagCommandStatusIs("cmd")->dataIs("42");
  main->diagModeStatusIs("mode")->resultIs(Ucd9012DiagResult::failure);
  status->controllerIs(Zol::Ptr<ControllerStatus>(main));
  source.connection->mountIs(root);
  source.send(Frame::hello());
  step("a whole tree, caught up");
  ASSERT_TRUE(replica.connection->synced("s"));
  main->controllerVersionIs("v2");
  step("controllerVersion");
  main->reloadDueToKernelPanicIs(KernelPanicEepromStatus::eepromReloadCauseOther);
  step("reloadDueToKernelPanic");
}

}  // namespace
