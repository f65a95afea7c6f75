// The bytes of each frame and message form: as they are written, and read back from the same bytes.
#include <gtest/gtest.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;
using BaseState = Hardware::PowerController::ControllerConfig::ControllerState;

// Bytes from hexadecimal digits in pairs, blanks, and texts in quotation marks.
Bytes golden(std::string_view pattern) {
  auto const digit = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
  Bytes bytes;
  bool quoted = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == '\'') {
      quoted = !quoted;
    } else if (quoted) {
      bytes.push_back(static_cast<std::uint8_t>(pattern[i]));
    } else if (pattern[i] != ' ') {
      int const high = digit(pattern[i++]);
      bytes.push_back(static_cast<std::uint8_t>(high * 16 + digit(pattern[i])));
    }
  }
  return bytes;
}

// A source that writes to the test, and a replica that the test feeds with what is expected of it.
class Wire : public testing::Test {
 protected:
  // The source has written exactly this, `times` times, and the replica that takes it in is equal.
  void expectSent(std::string_view pattern, int times = 1) {
    SCOPED_TRACE(pattern);
    while (source.connection->pump()) {
    }
    Bytes const one = golden(pattern);
    Bytes expected;
    while (times-- > 0) expected.insert(expected.end(), one.begin(), one.end());
    auto const unseen = source.received().begin() + static_cast<std::ptrdiff_t>(seen);
    EXPECT_EQ(Bytes(unseen, source.received().end()), expected);
    seen = source.received().size();
    replica.send(expected);
    if (auto const mirror = replica.connection->mounted("b")) {
      EXPECT_EQ(Zol::digest(*mirror), Zol::digest(*config));
    }
  }

  ConnectionOptions options = [] {
    ConnectionOptions named;
    named.ownName = "src";
    return named;
  }();
  RawPeer source{options};
  RawPeer replica;
  std::size_t seen = 0;
  Zol::Ptr<Config> config = Hardware::Ucd9012::configFactory("b");
};

TEST_F(Wire, eachFormHasItsBytes) {
  source.connection->mountIs(config);
  expectSent(
      "00000024 01 5a4f4c31 0001 0001 00000000 00040000 01000000 0000000000000000 00000003 'src'");
  source.send(Frame::hello());
  expectSent(
      "0000000f 02 0000000000000020 00 00000001 'b'"
      "00000047 03 0000000100000000 00000088 01"
      " 01 0000001d 00000019 'Hardware::Ucd9012::Config' 03 00000005 00000001 'b'"
      " 04 00000008 0000000000000020"
      "00000012 04 0000000000000020 00000102 00 00000000"
      "00000012 04 0000000000000020 00000102 02 00000000"
      "00000012 04 0000000000000020 00000103 00 00000000"
      "00000012 04 0000000000000020 00000103 02 00000000"
      "00000012 04 0000000000000020 00000104 00 00000000"
      "00000012 04 0000000000000020 00000104 02 00000000"
      "00000012 04 0000000000000020 00000105 00 00000000"
      "00000012 04 0000000000000020 00000105 02 00000000"
      "00000012 04 0000000000000020 00000106 00 00000000"
      "00000012 04 0000000000000020 00000106 02 00000000"
      "00000009 05 0000000000000020");
  ASSERT_TRUE(replica.connection->synced("b"));

  auto const main = config->realUcd9012ControllerIs("m", "c", nullptr, nullptr, nullptr);
  expectSent(
      "0000003c 03 0000000000000020 00000103 09 00000097 00000001 'm' 00000001 'c'"
      " 0000000000000000 0000000000000000 0000000000000000 0000000000000022");
  // Written once per listener that forwards it: one hears the base model, two what is added to it.
  main->autoStartPowerProgramIs(true);
  expectSent("00000013 03 0000000000000022 00000106 04 00000001 01");
  main->controllerStateIs(BaseState::on);
  expectSent("00000012 03 0000000000000022 00000107 01 00000002");
  main->pollingEnabledIs(false);
  expectSent("00000013 03 0000000000000022 00000192 04 00000001 00", 2);
  main->reloadCauseSortKeyIs(0x01020304);
  expectSent("00000016 03 0000000000000022 00000187 04 00000004 01020304", 2);
  main->operationalModeIs(static_cast<Hardware::Ucd9012::OperationalMode>(0x80000001));
  expectSent("00000012 03 0000000000000022 0000018c 01 80000001", 2);
  main->locationIs("ab");
  expectSent("00000015 03 0000000000000022 00000185 01 00 00000002 'ab'", 2);
  main->locationIs("");
  expectSent("00000013 03 0000000000000022 00000185 01 00 00000000", 2);
  config->realUcd9012ControllerDel("m");
  expectSent("00000013 03 0000000000000020 fffffefd 01 00000001 'm'");
  source.connection->close();
  expectSent("00000005 07 00000000");
  EXPECT_EQ(replica.connection->error(), "closed by the peer");
  EXPECT_EQ(replica.connection->counters().refused + replica.connection->counters().unknown, 0U);
}

TEST_F(Wire, aMessageBeyondWhatThePeerTakesInIsDroppedAlone) {
  source.connection->mountIs(config);
  source.send(
      Frame(1).u32(0x5a4f4c31).u16(1).u16(1).u32(0).u32(32768).u32(1 << 24).u64(0).text("small"));
  seen = source.received().size();
  auto const main =
      config->realUcd9012ControllerIs("m", std::string(40000, 'c'), nullptr, nullptr, nullptr);
  config->realUcd9012ControllerIs(std::string(65536, 'n'), "c", nullptr, nullptr, nullptr);
  // The peer knows nothing of either, so it hears nothing of them.
  main->readyIs(true);
  expectSent("");
  EXPECT_EQ(source.connection->counters().dropped, 2U);
  EXPECT_EQ(source.connection->out()->freeSpace(), source.connection->out()->capacity());
}

}  // namespace
