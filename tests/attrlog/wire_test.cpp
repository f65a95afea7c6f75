// What a source does with a message that its peer does not take in.
#include <gtest/gtest.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"

namespace {

using namespace test;

TEST(Wire, aMessageBeyondWhatThePeerTakesInIsDroppedAlone) {
  RawPeer source;
  auto const config = Hardware::Ucd9012::configFactory("b");
  source.connection->mountIs(config);
  source.send(
      Frame(1).u32(0x5a4f4c31).u16(1).u16(1).u32(0).u32(32768).u32(1 << 24).u64(0).text("small"));
  std::size_t const seen = source.received().size();
  auto const main =
      config->realUcd9012ControllerIs("m", std::string(40000, 'c'), nullptr, nullptr, nullptr);
  config->realUcd9012ControllerIs(std::string(65536, 'n'), "c", nullptr, nullptr, nullptr);
  // The peer knows nothing of either, so it hears nothing of them.
  main->readyIs(true);
  while (source.connection->pump()) {
  }
  EXPECT_EQ(source.received().size(), seen);
  EXPECT_EQ(source.connection->counters().dropped, 2U);
  EXPECT_EQ(source.connection->out()->freeSpace(), source.connection->out()->capacity());
}

}  // namespace
