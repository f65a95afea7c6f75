#include "host/zol/attrlog/in.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "host/zol/attrlog/demuxer.h"
#include "host/zol/attrlog/stream_adapter.h"

namespace Zol {

MalformedMessageException::~MalformedMessageException() = default;

Connection::In::In(std::size_t capacity)
    : ring_(std::bit_ceil(std::max<std::size_t>(capacity, 1))) {}

Connection::In::~In() = default;

std::span<std::uint8_t> Connection::In::room() noexcept {
  std::size_t const used = available();
  std::size_t const at = place(end_);
  std::size_t const length = std::min(ring_.size() - used, ring_.size() - at);
  return std::span(ring_).subspan(at, length);
}

void Connection::In::nextBytes(void* to, std::size_t count) {
  if (count > left()) {
    malformed("message too short: " + std::to_string(count) + " bytes wanted, " +
              std::to_string(left()) + " left");
  }
  std::size_t const at = place(position_);
  position_ += count;
  if (!to || count == 0) return;
  std::size_t const first = std::min(count, ring_.size() - at);
  std::memcpy(to, ring_.data() + at, first);
  std::memcpy(static_cast<std::uint8_t*>(to) + first, ring_.data(), count - first);
}

void Connection::In::overwrite(Position position, std::uint64_t value) noexcept {
  for (unsigned int i = 0; i < 8; ++i) {
    ring_[place(position + i)] = static_cast<std::uint8_t>(value >> (8 * (7 - i)));
  }
}

std::uint32_t Connection::In::peekU32() const noexcept {
  std::uint32_t value = 0;
  for (unsigned int i = 0; i < 4; ++i) {
    value = (value << 8) | ring_[place(position_ + i)];
  }
  return value;
}

void Connection::In::malformed(std::string const& text) {
  if (error_.empty()) error_ = text;
  throw MalformedMessageException(text);
}

void Connection::In::textLimitsAre(std::size_t unchunked, std::size_t whole) noexcept {
  maxUnchunkedText_ = unchunked;
  maxText_ = whole;
}

std::uint64_t Connection::In::nextNumber(unsigned int size) {
  std::uint8_t bytes[8];
  nextBytes(bytes, size);
  std::uint64_t value = 0;
  for (unsigned int i = 0; i < size; ++i) value = (value << 8) | bytes[i];
  return value;
}

ByteConnection::In::~In() = default;

bool ByteConnection::In::nextbool() {
  std::uint8_t const value = nextU8();
  if (value > 1) malformed("malformed bool: " + std::to_string(value) + ", expected 0 or 1");
  return value == 1;
}

double ByteConnection::In::nextdouble() { return std::bit_cast<double>(nextU64()); }

String8 ByteConnection::In::nextString() {
  std::uint32_t const length = nextU32();
  if (length > maxUnchunkedText()) {
    malformed("text of " + std::to_string(length) + " bytes, at most " +
              std::to_string(maxUnchunkedText()) + " allowed");
  }
  if (length > left()) {
    malformed("text of " + std::to_string(length) + " bytes in a message with " +
              std::to_string(left()) + " left");
  }
  std::string text(length, '\0');
  nextBytes(text.data(), length);
  return text;
}

NboAttrLog::In::~In() = default;

Ptr<Entity> NboAttrLog::In::nextEntity() {
  EntityId const id = nextEntityId();
  if (id.value == 0) return nullptr;
  Entity* const entity = demuxer_ ? demuxer_->named(id) : nullptr;
  if (!entity) {
    strangeId_ = id;
    throw AttrLogEntityException(
        format("unknown entity id %#llx", static_cast<unsigned long long>(id.value)));
  }
  return entity;
}

void NboAttrLog::In::unknownEnumsInc() {
  if (demuxer_) demuxer_->unknownEnumsInc(1);
}

void NboAttrLog::In::throwWrongType() {
  throw AttrLogEntityException("Entity is the wrong type", Exception::IdBitArray());
}

void operator>>(Ptr<Connection::In> const& in, String8::Iterator& text) {
  auto& bytes = static_cast<ByteConnection::In&>(*in);
  bool const more = bytes.nextbool();
  std::uint32_t const length = bytes.nextU32();
  if (length > bytes.left()) {
    bytes.malformed("text chunk of " + std::to_string(length) + " bytes in a message with " +
                    std::to_string(bytes.left()) + " left");
  }
  if (more && length == 0) bytes.malformed("empty text chunk that is not the last one");
  if (length > bytes.maxText() - std::min(text.size(), bytes.maxText())) {
    bytes.malformed("text longer than " + std::to_string(bytes.maxText()) + " bytes");
  }
  std::string piece(length, '\0');
  bytes.nextBytes(piece.data(), length);
  text.pieceIs(piece, !more);
}

}  // namespace Zol
