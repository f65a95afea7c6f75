// A connection whose peer is the test itself: it writes bytes and looks at what comes back.
#pragma once

#include <hwrailseq.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace test {

using Bytes = std::vector<std::uint8_t>;

// Builds frames field by field, all numbers big-endian.
class Frame {
 public:
  explicit Frame(unsigned int kind) { u8(kind); }
  Frame& u8(std::uint64_t value) { return number(value, 1); }
  Frame& u16(std::uint64_t value) { return number(value, 2); }
  Frame& u32(std::uint64_t value) { return number(value, 4); }
  Frame& u64(std::uint64_t value) { return number(value, 8); }
  Frame& text(std::string_view value) {
    u32(value.size());
    body_ += value;
    return *this;
  }
  // With the length in front.
  [[nodiscard]] Bytes bytes() const {
    Frame const whole = fields().text(body_);
    return {whole.body_.begin(), whole.body_.end()};
  }

  static Frame hello(unsigned int version = 1, unsigned int oldest = 1,
                     std::uint32_t magic = 0x5a4f4c31) {
    Frame frame(1);
    frame.u32(magic).u16(version).u16(oldest).u32(0).u32(262144).u32(16777216).u64(0).text("raw");
    return frame;
  }
  static Frame mount(std::uint64_t id, std::string_view name, unsigned int access = 0) {
    return Frame(2).u64(id).u8(access).text(name);
  }
  // A message without a fixed size.
  static Frame data(std::uint64_t id, std::int32_t attribute) {
    return Frame(3).u64(id).u32(static_cast<std::uint32_t>(attribute)).u8(1);
  }
  static Frame orphan(std::uint64_t id, std::string_view type, std::string_view name) {
    return data(std::uint64_t{1} << 32, 136)
        .section(1, fields().text(type))
        .section(3, fields().text(name))
        .section(4, fields().u64(id));
  }
  // The content of a section.
  static Frame fields() { return {}; }
  Frame& section(unsigned int number, Frame const& content) {
    return u8(number).text(content.body_);
  }

 private:
  Frame() = default;
  Frame& number(std::uint64_t value, unsigned int size) {
    while (size-- > 0) body_ += static_cast<char>(value >> (8 * size));
    return *this;
  }

  std::string body_;
};

class RawPeer {
 public:
  explicit RawPeer(Zol::NboAttrLog::ConnectionOptions options = {})
      : wire_(std::make_shared<Wire>()),
        connection(
            Zol::NboAttrLog::Connection::over(std::make_unique<Ends>(wire_), std::move(options))) {}

  // No test finds what another one has received.
  ~RawPeer() {
    connection->close();
    if (!keeps) Zol::NboAttrLog::forgetPeer("raw");
  }

  // Hands bytes to the connection and lets it take them in.
  void send(Bytes const& bytes) {
    wire_->toConnection.insert(wire_->toConnection.end(), bytes.begin(), bytes.end());
    while (connection->pump()) {
    }
  }
  void send(Frame const& frame) { send(frame.bytes()); }
  void hangUp() {
    wire_->ended = true;
    while (connection->pump()) {
    }
  }
  // What the connection has written so far.
  [[nodiscard]] Bytes const& received() const { return wire_->fromConnection; }

 private:
  struct Wire {
    Bytes toConnection;
    std::size_t read = 0;
    Bytes fromConnection;
    bool ended = false;
  };
  class Ends final : public Zol::NboAttrLog::Transport {
   public:
    explicit Ends(std::shared_ptr<Wire> wire) : wire_(std::move(wire)) {}
    Result read(std::span<std::uint8_t> to) override {
      std::size_t const count = std::min(to.size(), wire_->toConnection.size() - wire_->read);
      if (count == 0) {
        return {wire_->ended ? Result::State::ended : Result::State::wouldBlock, 0, {}};
      }
      std::copy_n(wire_->toConnection.begin() + static_cast<std::ptrdiff_t>(wire_->read), count,
                  to.begin());
      wire_->read += count;
      return {Result::State::moved, count, {}};
    }
    Result write(std::span<std::uint8_t const> from) override {
      wire_->fromConnection.insert(wire_->fromConnection.end(), from.begin(), from.end());
      return {Result::State::moved, from.size(), {}};
    }
    [[nodiscard]] int fd() const override { return -1; }
    void close() override {}

   private:
    std::shared_ptr<Wire> wire_;
  };

  std::shared_ptr<Wire> wire_;

 public:
  Zol::Ptr<Zol::NboAttrLog::Connection> connection;
  // What has been received from this peer stays for the next one.
  bool keeps = false;
};

}  // namespace test
