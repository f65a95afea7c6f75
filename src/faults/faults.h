// A stream that misbehaves on purpose, for tests of programs that live on an attribute log: bytes
// come late, in pieces, twice, changed, or not at all, and the stream breaks. What happens is drawn
// from a seed, so that each run can be repeated.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "host/zol/attrlog/connection.h"

namespace Zol::Faults {

// What goes wrong in one direction of a stream. Chances are in thousandths, for each call of the
// transport that reads or writes.
struct Plan {
  // Of all that is drawn.
  std::uint64_t seed = 1;
  // One call moves from 1 to so many bytes; 0: as many as there are.
  std::size_t maxPiece = 0;
  // That a call moves nothing.
  unsigned int delay = 0;
  // That it and the next `stallCalls` move nothing.
  unsigned int stall = 0;
  // See above.
  unsigned int stallCalls = 50;
  // That one bit of what a call moves is changed.
  unsigned int garble = 0;
  // That what a call moves arrives twice.
  unsigned int duplicate = 0;
  // That the stream breaks.
  unsigned int cut = 0;
  // The stream breaks when so many bytes have come through.
  std::optional<std::uint64_t> cutAfter = std::nullopt;
};

// One direction while it runs: what has happened, and what the test decides by itself.
class ZOL_EXPORT Direction {
 public:
  // Runs by the plan from its first byte on.
  explicit Direction(Plan plan);

  // Bytes that came through, duplicates not counted.
  [[nodiscard]] std::uint64_t bytes() const noexcept { return bytes_; }
  // How often a call moved nothing although it might have.
  [[nodiscard]] std::uint64_t delayed() const noexcept { return delayed_; }
  // How many bits were changed.
  [[nodiscard]] std::uint64_t garbled() const noexcept { return garbled_; }
  // How many pieces arrived twice.
  [[nodiscard]] std::uint64_t duplicated() const noexcept { return duplicated_; }
  // Whether bytes have been changed or doubled: what has arrived is no longer what was sent.
  [[nodiscard]] bool corrupted() const noexcept { return garbled_ + duplicated_ != 0; }
  // True while the last call moved nothing by the plan, so that the next one may move something.
  [[nodiscard]] bool holdsBack() const noexcept { return holdsBack_ && !stalled_ && !isCut_; }
  // Nothing moves until it is called with false.
  void stalledIs(bool value) noexcept { stalled_ = value; }
  // Breaks the stream at the next call.
  void cut() noexcept { isCut_ = true; }
  // Whether it has broken.
  [[nodiscard]] bool isCut() const noexcept { return isCut_; }

 private:
  friend class FaultyTransport;

  [[nodiscard]] bool draws(unsigned int chance);
  // How many of `most` bytes the next call may move; 0: none now.
  [[nodiscard]] std::size_t allowed(std::size_t most);
  void moved(std::size_t bytes);

  Plan const plan_;
  std::mt19937_64 random_;
  std::uint64_t bytes_ = 0;
  std::uint64_t delayed_ = 0;
  std::uint64_t garbled_ = 0;
  std::uint64_t duplicated_ = 0;
  unsigned int stallLeft_ = 0;
  bool holdsBack_ = false;
  bool stalled_ = false;
  bool isCut_ = false;
};

// A transport whose bytes go through another one, and suffer on the way. When one direction breaks,
// both end.
class ZOL_EXPORT FaultyTransport final : public NboAttrLog::Transport {
 public:
  // `in`: what is read; `out`: what is written.
  FaultyTransport(std::unique_ptr<NboAttrLog::Transport> inner, std::shared_ptr<Direction> in,
                  std::shared_ptr<Direction> out);
  ~FaultyTransport() override;
  Result read(std::span<std::uint8_t> to) override;
  Result write(std::span<std::uint8_t const> from) override;
  [[nodiscard]] int fd() const override { return inner_->fd(); }
  void close() override { inner_->close(); }

 private:
  using Bytes = std::vector<std::uint8_t>;

  [[nodiscard]] bool ended() const { return in_->isCut() || out_->isCut(); }
  Result cutOff();
  bool sendAgain();
  static void garble(Direction& direction, std::span<std::uint8_t> piece);

  std::unique_ptr<NboAttrLog::Transport> inner_;
  std::shared_ptr<Direction> in_;
  std::shared_ptr<Direction> out_;
  Bytes readAgain_;
  Bytes writeAgain_;
};

// Two connections inside the process, joined by such a stream.
//
//   Zol::Faults::Link link( { .ownName = "board" }, { .ownName = "agent" }, { .cutAfter = 500 } );
//   link.left->mountIs( config );
//   link.settle();                       // the stream has broken by now
struct ZOL_EXPORT Link {
  // `there`: what goes wrong from left to right; `back`: the other way.
  Link(NboAttrLog::ConnectionOptions leftOptions, NboAttrLog::ConnectionOptions rightOptions,
       Plan there = {}, Plan back = {});

  // One turn of each end; false when neither did anything and nothing is held back.
  bool pump();
  // Turns until there is nothing left to do, at most so many. False when there still is.
  bool settle(unsigned int turns = 1000000);
  // Breaks the stream, and lets both ends find out.
  void cut();

  // From left to right.
  std::shared_ptr<Direction> there;
  // From right to left.
  std::shared_ptr<Direction> back;
  // The end that the faulty stream belongs to.
  Ptr<NboAttrLog::Connection> left;
  // The other end.
  Ptr<NboAttrLog::Connection> right;
};

}  // namespace Zol::Faults
