// A stream between two ends that breaks its bytes anywhere.
#pragma once

#include <hwrailseq.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <random>

namespace test {

// One end of a stream that moves a few bytes at a time, and now and then none.
class Trickle final : public Zol::NboAttrLog::Transport {
 public:
  using Bytes = std::shared_ptr<std::deque<std::uint8_t>>;

  Trickle(Bytes in, Bytes out, std::mt19937& random)
      : in_(std::move(in)), out_(std::move(out)), random_(random) {}
  Result read(std::span<std::uint8_t> to) override {
    std::size_t const count = some(std::min(to.size(), in_->size()));
    std::copy_n(in_->begin(), count, to.begin());
    in_->erase(in_->begin(), in_->begin() + static_cast<std::ptrdiff_t>(count));
    return moved(count);
  }
  Result write(std::span<std::uint8_t const> from) override {
    std::size_t const count = some(from.size());
    out_->insert(out_->end(), from.begin(), from.begin() + static_cast<std::ptrdiff_t>(count));
    return moved(count);
  }
  [[nodiscard]] int fd() const override { return -1; }
  void close() override {}

 private:
  static Result moved(std::size_t count) {
    return {count ? Result::State::moved : Result::State::wouldBlock, count, {}};
  }
  std::size_t some(std::size_t most) {
    auto const size = random_() % 8;
    return size == 0 ? 0 : std::min<std::size_t>(most, 1 + random_() % (size == 1 ? 8 : 20000));
  }

  Bytes in_;
  Bytes out_;
  std::mt19937& random_;
};

}  // namespace test
