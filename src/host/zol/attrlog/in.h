// The receiving side of a log: a ring of bytes, from which whole frames are read field by field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/zol/attrlog/msg_header.h"
#include "host/zol/entity.h"

namespace Zol {

// A message that does not read as its form says. It closes the connection that brought it.
class ZOL_EXPORT MalformedMessageException : public Exception {
 public:
  using Exception::Exception;
  ~MalformedMessageException() override;
};

namespace Connection {

// A ring of received bytes. Reading is bounded to the present frame; positions count all bytes
// since the start, so that they can be noted and put back while the frame is in the ring.
class ZOL_EXPORT In : public PtrInterface {
 public:
  // Room for at least `capacity` bytes.
  explicit In(std::size_t capacity);
  ~In() override;

  using Position = std::uint64_t;

  // The contiguous room behind the received bytes, and how much of it has been filled.
  [[nodiscard]] std::span<std::uint8_t> room() noexcept;
  void received(std::size_t bytes) noexcept { end_ += bytes; }
  [[nodiscard]] std::size_t available() const noexcept {
    return static_cast<std::size_t>(end_ - position_);
  }
  [[nodiscard]] std::size_t capacity() const noexcept { return ring_.size(); }

  [[nodiscard]] Position position() const noexcept { return position_; }
  void positionIs(Position position) noexcept { position_ = position; }
  // Reading stops in front of the bound.
  [[nodiscard]] Position bound() const noexcept { return bound_; }
  void boundIs(Position bound) noexcept { bound_ = bound; }
  [[nodiscard]] std::size_t left() const noexcept {
    return static_cast<std::size_t>(bound_ - position_);
  }

  // Reads bytes into `to`, or skips them when `to` is null. Throws `MalformedMessageException` when
  // the bound is nearer than that.
  void nextBytes(void* to, std::size_t count);
  // Writes the bytes of a number over those at a position, around the end of the ring where it
  // falls.
  void overwrite(Position position, std::uint64_t value) noexcept;
  // The number of four bytes at the read position, which stays; the bytes must have been received.
  [[nodiscard]] std::uint32_t peekU32() const noexcept;

  // The text of the first malformed read, which outlasts the exception: a notification pass
  // swallows those. Empty while all went well.
  [[nodiscard]] std::string const& error() const noexcept { return error_; }
  [[noreturn]] void malformed(std::string const& text);

  // Longest text in one piece, and longest text made of chunks, in bytes.
  void textLimitsAre(std::size_t unchunked, std::size_t whole) noexcept;
  [[nodiscard]] std::size_t maxUnchunkedText() const noexcept { return maxUnchunkedText_; }
  [[nodiscard]] std::size_t maxText() const noexcept { return maxText_; }

 protected:
  [[nodiscard]] std::uint64_t nextNumber(unsigned int size);

 private:
  // Where the byte at a position stands: the ring's size is a power of two.
  [[nodiscard]] std::size_t place(Position position) const noexcept {
    return static_cast<std::size_t>(position) & (ring_.size() - 1);
  }

  std::vector<std::uint8_t> ring_;
  Position position_ = 0;
  Position end_ = 0;
  Position bound_ = 0;
  std::string error_;
  std::size_t maxUnchunkedText_ = 65535;
  std::size_t maxText_ = std::size_t{16} << 20;
};

}  // namespace Connection

namespace ByteConnection {

// Reads the primitive fields. Each throws `MalformedMessageException` when the frame is too short.
class ZOL_EXPORT In : public Zol::Connection::In {
 public:
  using Zol::Connection::In::In;
  ~In() override;

  // A byte 0 or 1; any other is malformed.
  bool nextbool();
  std::uint8_t nextU8() { return static_cast<std::uint8_t>(nextNumber(1)); }
  std::uint16_t nextU16() { return static_cast<std::uint16_t>(nextNumber(2)); }
  std::uint32_t nextU32() { return static_cast<std::uint32_t>(nextNumber(4)); }
  std::uint64_t nextU64() { return nextNumber(8); }
  double nextdouble();
  // A text in one piece.
  String8 nextString();
};

}  // namespace ByteConnection

namespace NboAttrLog {

class ZOL_EXPORT In final : public Zol::ByteConnection::In {
 public:
  using Zol::ByteConnection::In::In;
  ~In() override;

  // An entity id, as this end stores it.
  EntityId nextEntityId() { return EntityId(nextU64()).seenFromOtherEnd(); }
  // The entity that a reference names; null for the id 0. Throws `AttrLogEntityException` for an id
  // that this end does not know.
  Ptr<Entity> nextEntity();
  // The same, narrowed. Throws `AttrLogEntityException` "Entity is the wrong type".
  template <class T>
  Ptr<T> nextEntity() {
    Ptr<Entity> const entity = nextEntity();
    if (!entity) return nullptr;
    if (T* const narrowed = dynamic_cast<T*>(entity.get())) return Ptr<T>(narrowed);
    throwWrongType();
  }

  // Frames taken in whole since the start, of all kinds.
  [[nodiscard]] std::uint32_t framesTaken() const noexcept { return framesTaken_; }
  // The present frame has been taken in; again for the same one: nothing.
  void frameTaken() noexcept {
    framesTaken_ += taken_ ? 0 : 1;
    taken_ = true;
  }
  // An id in the present frame that does not name here what it names there: nothing, or an entity
  // in another place; 0: none.
  [[nodiscard]] EntityId strangeId() const noexcept { return strangeId_; }
  void strangeIdIs(EntityId id) noexcept { strangeId_ = id; }
  // How many frames of this end the writer of the present frame had taken in, where it says so.
  [[nodiscard]] std::optional<std::uint32_t> seen() const noexcept { return seen_; }
  void seenIs(std::uint32_t frames) noexcept { seen_ = frames; }
  void frameBegins() noexcept {
    strangeId_ = {};
    seen_.reset();
    taken_ = false;
  }

  // An enumeration has had a number without an enumerator.
  void unknownEnumsInc();

  [[nodiscard]] Demuxer* demuxer() const noexcept { return demuxer_; }
  void demuxerIs(Demuxer* demuxer) noexcept { demuxer_ = demuxer; }

 private:
  [[noreturn]] static void throwWrongType();

  Demuxer* demuxer_ = nullptr;
  std::uint32_t framesTaken_ = 0;
  bool taken_ = false;
  EntityId strangeId_;
  std::optional<std::uint32_t> seen_;
};

}  // namespace NboAttrLog

// Limits reading to the next `size` bytes for its life time.
class ConnectionInSizeAnchor {
 public:
  ConnectionInSizeAnchor(Ptr<Connection::In> const& in, unsigned int size)
      : in_(in), bound_(in->bound()) {
    if (size < in_->left()) in_->boundIs(in_->position() + size);
  }
  ~ConnectionInSizeAnchor() { in_->boundIs(bound_); }
  ConnectionInSizeAnchor(ConnectionInSizeAnchor const&) = delete;
  ConnectionInSizeAnchor& operator=(ConnectionInSizeAnchor const&) = delete;

 private:
  Ptr<Connection::In> in_;
  Connection::In::Position bound_;
};

// Reads one text chunk. The iterator stands at 0 when it was the last one.
ZOL_EXPORT void operator>>(Ptr<Connection::In> const& in, String8::Iterator& text);

}  // namespace Zol
