// The transport between two connections of one process.
#include <algorithm>
#include <vector>

#include "host/zol/attrlog/transport.h"

namespace Zol::NboAttrLog {

namespace {

// One direction: bytes written and not yet read.
struct Pipe {
  std::size_t capacity;
  std::vector<std::uint8_t> bytes;
  std::size_t head = 0;
  bool ended = false;

  [[nodiscard]] std::size_t size() const { return bytes.size() - head; }
  // A reader that never empties the pipe must not let it grow.
  void compact() {
    if (head <= capacity) return;
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(head));
    head = 0;
  }
};

class MemoryTransport final : public Transport {
 public:
  MemoryTransport(std::shared_ptr<Pipe> in, std::shared_ptr<Pipe> out)
      : in_(std::move(in)), out_(std::move(out)) {}
  MemoryTransport(MemoryTransport const&) = delete;
  MemoryTransport& operator=(MemoryTransport const&) = delete;
  ~MemoryTransport() override { close(); }

  Result read(std::span<std::uint8_t> to) override {
    std::size_t const count = std::min(to.size(), in_->size());
    if (count == 0) return {in_->ended ? Result::State::ended : Result::State::wouldBlock, 0, {}};
    std::copy_n(in_->bytes.begin() + static_cast<std::ptrdiff_t>(in_->head), count, to.begin());
    in_->head += count;
    if (in_->size() == 0) {
      in_->bytes.clear();
      in_->head = 0;
    }
    return {Result::State::moved, count, {}};
  }

  Result write(std::span<std::uint8_t const> from) override {
    if (out_->ended) return {Result::State::ended, 0, {}};
    std::size_t const count = std::min(from.size(), out_->capacity - out_->size());
    if (count == 0) return {};
    out_->compact();
    out_->bytes.insert(out_->bytes.end(), from.begin(),
                       from.begin() + static_cast<std::ptrdiff_t>(count));
    return {Result::State::moved, count, {}};
  }

  [[nodiscard]] int fd() const override { return -1; }

  void close() override {
    in_->ended = true;
    out_->ended = true;
  }

 private:
  std::shared_ptr<Pipe> in_;
  std::shared_ptr<Pipe> out_;
};

}  // namespace

std::pair<std::unique_ptr<Transport>, std::unique_ptr<Transport>> memoryTransports(
    std::size_t capacity) {
  auto const there = std::make_shared<Pipe>(Pipe{capacity, {}, 0, false});
  auto const back = std::make_shared<Pipe>(Pipe{capacity, {}, 0, false});
  return {std::make_unique<MemoryTransport>(back, there),
          std::make_unique<MemoryTransport>(there, back)};
}

}  // namespace Zol::NboAttrLog
