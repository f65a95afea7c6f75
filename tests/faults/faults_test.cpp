// What the faulty stream does to the bytes that go through it.
#include "faults/faults.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

using namespace Zol::Faults;
using Zol::NboAttrLog::Transport;
using Bytes = std::vector<std::uint8_t>;
using State = Transport::Result::State;

// A faulty end and a plain one.
class FaultyStream {
 public:
  explicit FaultyStream(Plan in, Plan out = {})
      : in_(std::make_shared<Direction>(in)), out_(std::make_shared<Direction>(out)) {
    auto [faulty, plain] = Zol::NboAttrLog::memoryTransports(100000);
    end_ = std::make_unique<FaultyTransport>(std::move(faulty), in_, out_);
    plain_ = std::move(plain);
  }
  static Bytes counted(std::size_t size) {
    Bytes bytes(size);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    return bytes;
  }
  // What is read of what the other end has sent.
  Bytes received(Bytes const& sent) {
    plain_->write(sent);
    return all(*end_);
  }
  // What the other end reads of what is written.
  Bytes written(Bytes const& sent) {
    std::size_t at = 0;
    for (int calls = 0; calls < 10000 && at < sent.size(); ++calls) {
      auto const result = end_->write(std::span(sent).subspan(at));
      at += result.bytes;
      if (result.state == State::ended) break;
    }
    return all(*plain_);
  }

  [[nodiscard]] Direction& in() { return *in_; }
  [[nodiscard]] Direction& out() { return *out_; }
  [[nodiscard]] Transport& end() { return *end_; }
  [[nodiscard]] Transport& plain() { return *plain_; }

 private:
  static Bytes all(Transport& from) {
    Bytes read;
    Bytes room(64);
    for (int calls = 0; calls < 10000; ++calls) {
      auto const result = from.read(room);
      if (result.state == State::ended) break;
      read.insert(read.end(), room.begin(),
                  room.begin() + static_cast<std::ptrdiff_t>(result.bytes));
    }
    return read;
  }

  std::shared_ptr<Direction> in_;
  std::shared_ptr<Direction> out_;
  std::unique_ptr<Transport> end_;
  std::unique_ptr<Transport> plain_;
};

TEST(FaultyStream, delaysAndSplitsChangeNothing) {
  Plan plan;
  plan.maxPiece = 3;
  plan.delay = 300;
  plan.stall = 20;
  FaultyStream stream(plan, plan);
  Bytes const sent = FaultyStream::counted(1000);
  EXPECT_EQ(stream.received(sent), sent);
  EXPECT_EQ(stream.written(sent), sent);
  EXPECT_EQ(stream.in().bytes(), 1000U);
  EXPECT_GT(stream.in().delayed(), 100U);
  EXPECT_FALSE(stream.in().corrupted() || stream.out().corrupted());
}

TEST(FaultyStream, breaksBehindTheGivenByteInBothDirections) {
  Plan plan;
  plan.cutAfter = 77;
  Bytes const sent = FaultyStream::counted(200);
  Bytes const expected(sent.begin(), sent.begin() + 77);
  FaultyStream reading(plan);
  EXPECT_EQ(reading.received(sent), expected);
  EXPECT_EQ(reading.end().write(sent).state, State::ended);
  EXPECT_EQ(reading.plain().write(sent).state, State::ended);
  FaultyStream writing({}, plan);
  EXPECT_EQ(writing.written(sent), expected);
  EXPECT_TRUE(writing.out().isCut());
  Bytes room(10);
  EXPECT_EQ(writing.end().read(room).state, State::ended);
}

TEST(FaultyStream, garblesAndDoublesAndIsTheSameForTheSameSeed) {
  Plan garbles;
  garbles.maxPiece = 10;
  garbles.garble = 500;
  Plan doubles = garbles;
  doubles.garble = 0;
  doubles.duplicate = 500;
  Bytes const sent = FaultyStream::counted(500);
  FaultyStream stream(garbles, doubles);
  Bytes const garbled = stream.received(sent);
  Bytes const doubled = stream.written(sent);
  EXPECT_EQ(garbled.size(), sent.size());
  EXPECT_NE(garbled, sent);
  EXPECT_GT(doubled.size(), sent.size());
  EXPECT_TRUE(stream.in().corrupted() && stream.out().corrupted());
  FaultyStream again(garbles, doubles);
  EXPECT_EQ(again.received(sent), garbled);
  garbles.seed = 2;
  FaultyStream other(garbles);
  EXPECT_NE(other.received(sent), garbled);
}

TEST(FaultyStream, obeysTheTest) {
  FaultyStream stream({});
  Bytes const sent = FaultyStream::counted(20);
  stream.in().stalledIs(true);
  EXPECT_TRUE(stream.received(sent).empty());
  EXPECT_FALSE(stream.in().holdsBack());
  stream.in().stalledIs(false);
  EXPECT_EQ(stream.received({}), sent);
  stream.out().cut();
  EXPECT_EQ(stream.end().write(sent).state, State::ended);
}

}  // namespace
