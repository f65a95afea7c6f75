// A recorded session of two full trees, catch-up and live changes, taken in byte by byte, cut, and
// with changed bytes.
#include <gtest/gtest.h>

#include "support/raw_peer.h"
#include "support/replica_pair.h"
#include "support/tree.h"

namespace {

using namespace test;

class RecordedSession : public testing::Test {
 protected:
  RecordedSession() {
    RawPeer peer;
    Hand hand(7);
    auto const config = Hardware::Ucd9012::configFactory("config");
    auto const status = Hardware::Ucd9012::statusFactory("status");
    hand.fill(*config);
    hand.fill(*status);
    peer.connection->mountIs(config);
    peer.connection->mountIs(status);
    peer.send(Frame::hello());
    for (int i = 0; i < 100; ++i) {
      hand.change(i % 2 == 0 ? static_cast<Zol::Entity&>(*config) : *status);
      peer.send(Bytes());
    }
    expected = textOf(*config) + textOf(*status);
    stream = peer.received();
    for (std::size_t at = 0; at < stream.size();) {
      std::size_t length = 0;
      for (std::size_t i = 0; i < 4; ++i) length = length << 8 | stream[at + i];
      ends.push_back(at += 4 + length);
    }
  }
  [[nodiscard]] Bytes part(std::size_t from, std::size_t to) const {
    return {stream.begin() + static_cast<std::ptrdiff_t>(from),
            stream.begin() + static_cast<std::ptrdiff_t>(to)};
  }
  static std::uint64_t digestOf(RawPeer const& peer) {
    std::uint64_t sum = 0;
    for (char const* const name : {"config", "status"}) {
      auto const root = peer.connection->mounted(name);
      sum = sum * 31 + (root ? Zol::digest(*root) : 1);
    }
    return sum;
  }
  static std::string textAt(RawPeer const& peer) {
    std::string text;
    for (char const* const name : {"config", "status"}) {
      if (auto const root = peer.connection->mounted(name)) text += textOf(*root);
    }
    return text;
  }

  Bytes stream;
  std::vector<std::size_t> ends;  // of the frames
  std::string expected;
};

TEST_F(RecordedSession, nothingOfAMessageIsAppliedBeforeItsLastByte) {
  RawPeer whole;
  std::size_t at = 0;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    if (i % 16 == 5) {
      std::uint64_t const before = digestOf(whole);
      while (at + 1 < ends[i]) {
        // A long text's bytes in the middle are all alike.
        std::size_t const step = ends[i] - at > 2000 ? 500 : 1;
        whole.send(part(at, at + step));
        at += step;
      }
      ASSERT_EQ(digestOf(whole), before) << "frame that ends at " << ends[i];
      if (i % 112 == 5) {
        RawPeer cut;
        cut.send(part(0, ends[i - 1] + 3));
        cut.hangUp();
        EXPECT_EQ(cut.connection->error(), "the peer has gone inside a frame");
        EXPECT_EQ(digestOf(cut), before);
      }
    }
    whole.send(part(at, ends[i]));
    at = ends[i];
    ASSERT_TRUE(whole.connection->isOpen()) << whole.connection->error();
  }
  EXPECT_EQ(textAt(whole), expected);
  EXPECT_EQ(whole.connection->counters().refused + whole.connection->counters().unknown, 0U);
}

TEST_F(RecordedSession, aChangedByteClosesWithAReasonOrChangesValues) {
  std::size_t closed = 0;
  std::size_t at = 0;
  for (int round = 0; round < 150; ++round) {
    // The next place, near the begin of a frame.
    std::size_t const frame = static_cast<std::size_t>(round) * ends.size() / 150;
    std::size_t const start = frame == 0 ? 0 : ends[frame - 1];
    at = start +
         static_cast<std::size_t>(round) * 7 % std::min<std::size_t>(60, ends[frame] - start);
    Bytes changed = stream;
    changed[at] = static_cast<std::uint8_t>(round % 3 == 0   ? changed[at] ^ 1U
                                            : round % 3 == 1 ? changed[at] + 0x7fU
                                                             : 0xffU - changed[at]);
    RawPeer peer;
    peer.send(changed);
    ASSERT_EQ(peer.connection->isOpen(), peer.connection->error().empty()) << "byte " << at;
    if (!peer.connection->isOpen()) ++closed;
    peer.hangUp();
    ASSERT_NE(peer.connection->error(), "") << "byte " << at;
    (void)textAt(peer);
  }
  EXPECT_GT(closed, 20U);
  EXPECT_LT(closed, 140U);
}

}  // namespace
