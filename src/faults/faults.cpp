#include "faults/faults.h"

#include <algorithm>

namespace Zol::Faults {

namespace {

using Result = NboAttrLog::Transport::Result;

constexpr std::size_t kPipe = 64 * 1024;

}  // namespace

Direction::Direction(Plan plan) : plan_(plan), random_(plan.seed) {}

bool Direction::draws(unsigned int chance) { return chance != 0 && random_() % 1000 < chance; }

std::size_t Direction::allowed(std::size_t most) {
  holdsBack_ = false;
  if (stalled_ || most == 0) return 0;
  if (draws(plan_.cut) || (plan_.cutAfter && bytes_ >= *plan_.cutAfter)) {
    isCut_ = true;
    return 0;
  }
  if (stallLeft_ == 0 && draws(plan_.stall)) stallLeft_ = plan_.stallCalls + 1;
  if (stallLeft_ != 0 || draws(plan_.delay)) {
    if (stallLeft_ != 0) --stallLeft_;
    ++delayed_;
    holdsBack_ = true;
    return 0;
  }
  if (plan_.maxPiece != 0) most = std::min<std::size_t>(most, 1 + random_() % plan_.maxPiece);
  if (plan_.cutAfter) most = std::min<std::uint64_t>(most, *plan_.cutAfter - bytes_);
  return most;
}

void Direction::moved(std::size_t bytes) {
  bytes_ += bytes;
  if (plan_.cutAfter && bytes_ >= *plan_.cutAfter) isCut_ = true;
}

FaultyTransport::FaultyTransport(std::unique_ptr<NboAttrLog::Transport> inner,
                                 std::shared_ptr<Direction> in, std::shared_ptr<Direction> out)
    : inner_(std::move(inner)), in_(std::move(in)), out_(std::move(out)) {}

FaultyTransport::~FaultyTransport() = default;

Result FaultyTransport::cutOff() {
  inner_->close();
  return {Result::State::ended, 0, "cut on purpose"};
}

void FaultyTransport::garble(Direction& direction, std::span<std::uint8_t> piece) {
  if (piece.empty() || !direction.draws(direction.plan_.garble)) return;
  auto const bit = static_cast<unsigned int>(direction.random_() % 8);
  std::uint8_t& victim = piece[direction.random_() % piece.size()];
  victim = static_cast<std::uint8_t>(victim ^ (1U << bit));
  ++direction.garbled_;
}

Result FaultyTransport::read(std::span<std::uint8_t> to) {
  if (ended()) return cutOff();
  if (!readAgain_.empty()) {
    std::size_t const count = std::min(to.size(), readAgain_.size());
    std::copy_n(readAgain_.begin(), count, to.begin());
    readAgain_.erase(readAgain_.begin(), readAgain_.begin() + static_cast<std::ptrdiff_t>(count));
    return {Result::State::moved, count, {}};
  }
  std::size_t const count = in_->allowed(to.size());
  if (ended()) return cutOff();
  if (count == 0) return {};
  Result result = inner_->read(to.first(count));
  if (result.state != Result::State::moved) return result;
  in_->moved(result.bytes);
  auto const piece = to.first(result.bytes);
  garble(*in_, piece);
  if (in_->draws(in_->plan_.duplicate)) {
    readAgain_.assign(piece.begin(), piece.end());
    ++in_->duplicated_;
  }
  return result;
}

// What is to arrive twice goes before anything else; true when all of it has gone.
bool FaultyTransport::sendAgain() {
  while (!writeAgain_.empty()) {
    Result const result = inner_->write(writeAgain_);
    if (result.state != Result::State::moved) return false;
    writeAgain_.erase(writeAgain_.begin(),
                      writeAgain_.begin() + static_cast<std::ptrdiff_t>(result.bytes));
  }
  return true;
}

Result FaultyTransport::write(std::span<std::uint8_t const> from) {
  if (ended()) return cutOff();
  if (!sendAgain()) return {};
  std::size_t const count = out_->allowed(from.size());
  if (ended()) return cutOff();
  if (count == 0) return {};
  auto const part = from.first(count);
  Bytes piece(part.begin(), part.end());
  garble(*out_, piece);
  Result result = inner_->write(piece);
  if (result.state != Result::State::moved) return result;
  out_->moved(result.bytes);
  if (out_->draws(out_->plan_.duplicate)) {
    writeAgain_.assign(piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(result.bytes));
    ++out_->duplicated_;
  }
  return result;
}

Link::Link(NboAttrLog::ConnectionOptions leftOptions, NboAttrLog::ConnectionOptions rightOptions,
           Plan toRight, Plan toLeft)
    : there(std::make_shared<Direction>(toRight)), back(std::make_shared<Direction>(toLeft)) {
  auto [first, second] = NboAttrLog::memoryTransports(kPipe);
  left = NboAttrLog::Connection::over(
      std::make_unique<FaultyTransport>(std::move(first), back, there), std::move(leftOptions));
  right = NboAttrLog::Connection::over(std::move(second), std::move(rightOptions));
}

bool Link::pump() {
  bool const one = left->pump();
  bool const other = right->pump();
  return one || other || (left->isOpen() && (there->holdsBack() || back->holdsBack()));
}

bool Link::settle(unsigned int turns) {
  for (unsigned int turn = 0; turn < turns; ++turn) {
    if (!pump()) return true;
  }
  return false;
}

void Link::cut() {
  there->cut();
  while (left->pump()) {
  }
  while (right->pump()) {
  }
}

}  // namespace Zol::Faults
