// The sending side of a log: messages are staged field by field, committed whole, and wait for the
// transport in one byte queue.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/zol/attrlog/msg_header.h"
#include "host/zol/attrlog/wire.h"
#include "host/zol/ptr.h"
#include "host/zol/ptr_interface.h"

namespace Zol {

namespace Connection {

// Writes the primitive fields of a message.
class ZOL_EXPORT Out : public PtrInterface {
 public:
  // Opens the payload and closes the message.
  enum class TransactToken : std::uint8_t { open = 1, close = 3 };

  ~Out() override;

  virtual void tokenIs(TransactToken token) = 0;
  void u8Is(std::uint8_t value) { staged().push_back(value); }
  void u16Is(std::uint16_t value) { numberIs(value, 2); }
  void u32Is(std::uint32_t value) { numberIs(value, 4); }
  void u64Is(std::uint64_t value) { numberIs(value, 8); }
  void doubleIs(double value);
  // A text in one piece: its length and its bytes.
  virtual void textIs(std::string_view text);
  // A piece of the text, at most `chunkLimit` bytes; moves the position behind it.
  virtual void chunkIs(String8::IteratorConst& position);

  // The most text that one chunk holds.
  [[nodiscard]] std::size_t chunkLimit() const noexcept { return chunkLimit_; }
  void chunkLimitIs(std::size_t limit) noexcept { chunkLimit_ = limit; }

 protected:
  using Bytes = std::vector<std::uint8_t>;
  [[nodiscard]] virtual Bytes& staged() = 0;
  void numberIs(std::uint64_t value, unsigned int size);

 private:
  std::size_t chunkLimit_ = NboAttrLog::kMaxChunk;
};

}  // namespace Connection

namespace NboAttrLog {

// One end's outgoing messages. Its capacity is soft: a write never fails and never loses anything;
// flow control looks at the free space. A message that an exception left open is dropped when the
// next one begins, so the byte stream holds whole messages only.
class ZOL_EXPORT Out final : public Zol::Connection::Out {
 public:
  // Stages another whole message while one is open, for what must stand before it.
  class NestedMessage;

  Out(std::size_t capacity, std::size_t maxUnchunkedText);
  ~Out() override;

  // Begins a message; throws nothing here, but callers repeat a message on
  // `AttrLogRecordException`.
  void nextHeaderIs(MsgHeader const& header);
  void currentPayloadSectionIs(PayloadSection section);
  void tokenIs(TransactToken token) override;
  void textIs(std::string_view text) override;
  void chunkIs(String8::IteratorConst& position) override;
  void entityIdFieldIs(EntityId id);

  // Drops a message that an exception left open, so that it takes up no room until the next one.
  void openMessageDel() noexcept;

  // Writes a frame of another kind than DATA, whole and at once.
  template <class Body>
  void frameIs(FrameKind kind, Body&& body) {
    std::size_t const start = beginFrame(kind);
    body();
    endFrame(start);
  }

  // The input of the same connection; null once the connection has ended.
  [[nodiscard]] In* reverseLog() const noexcept { return in_; }
  [[nodiscard]] Demuxer* demuxer() const noexcept { return demuxer_; }
  [[nodiscard]] Name const& peerName() const noexcept { return peerName_; }
  // The largest message that a text is cut into.
  [[nodiscard]] std::size_t maxMessageSize() const noexcept { return kMaxMessageSize; }
  [[nodiscard]] std::size_t capacity() const noexcept { return capacity_; }
  // Capacity less what is staged and what waits for the transport; not below 0.
  [[nodiscard]] std::size_t freeSpace() const noexcept;
  // Whether a small message fits now. Always true inside a scheduled flow-out, which stops by
  // itself.
  [[nodiscard]] bool hasSufficientBuffer() const noexcept {
    return scheduled_ || freeSpace() >= kSmallMessageRoom;
  }

  // For the connection.
  void ownerIs(In* in, Demuxer* demuxer) noexcept;
  void peerNameIs(Name name) { peerName_ = std::move(name); }
  // The largest frame that the peer takes in, without its length field. A message beyond it is
  // dropped and counted.
  void maxFrameIs(std::size_t bytes) noexcept { maxFrame_ = bytes; }
  void scheduledIs(bool value) noexcept { scheduled_ = value; }
  // From now on each message says how many frames of the peer had been taken in when it was made,
  // and is noted with its own number, so that both ends can tell which messages have crossed.
  void numbersMessagesIs(bool value) noexcept { numbersMessages_ = value; }
  [[nodiscard]] bool numbersMessages() const noexcept { return numbersMessages_; }
  // Frames committed since the start, of all kinds.
  [[nodiscard]] std::uint32_t framesCommitted() const noexcept { return framesCommitted_; }
  [[nodiscard]] std::span<std::uint8_t const> pending() const noexcept;
  void sent(std::size_t bytes) noexcept;
  // Bytes and attribute messages committed since the start.
  [[nodiscard]] std::uint64_t bytesCommitted() const noexcept { return bytesCommitted_; }
  [[nodiscard]] std::uint64_t messagesCommitted() const noexcept { return messagesCommitted_; }
  // Messages that were dropped: an unchunked text was longer than allowed, or the whole was longer
  // than the peer takes in.
  [[nodiscard]] std::uint64_t dropped() const noexcept { return dropped_; }

 private:
  struct Message {
    Bytes bytes;
    EntityId entityId;
    AttributeId attrId = 0;
    std::size_t sectionStart = 0;
    EntityId announced;
    bool hasChunk = false;
    bool open = false;
    bool overlong = false;
  };

  [[nodiscard]] Bytes& staged() override;
  [[nodiscard]] Message& message() noexcept { return *messages_[depth_]; }
  void closeSection();
  void commit();
  // Whether the message is the one that was committed last and waits for the transport as a whole.
  [[nodiscard]] bool isRepetition(Message const& message) const noexcept;
  std::size_t beginFrame(FrameKind kind);
  void endFrame(std::size_t start);

  In* in_ = nullptr;
  Demuxer* demuxer_ = nullptr;
  Name peerName_;
  std::size_t const capacity_;
  std::size_t const maxUnchunkedText_;
  std::size_t maxFrame_ = SIZE_MAX;
  std::vector<std::unique_ptr<Message>> messages_;
  std::size_t depth_ = 0;
  Bytes* direct_ = nullptr;
  Bytes queue_;
  std::size_t head_ = 0;
  // Of the last message that may be left out when it comes again at once; 0: the last frame is
  // none.
  std::size_t repeatableSize_ = 0;
  bool scheduled_ = false;
  bool numbersMessages_ = false;
  std::uint32_t framesCommitted_ = 0;
  std::uint64_t bytesCommitted_ = 0;
  std::uint64_t messagesCommitted_ = 0;
  std::uint64_t dropped_ = 0;
};

class ZOL_EXPORT Out::NestedMessage {
 public:
  explicit NestedMessage(Out& out);
  ~NestedMessage();
  NestedMessage(NestedMessage const&) = delete;
  NestedMessage& operator=(NestedMessage const&) = delete;

 private:
  Out& out_;
};

}  // namespace NboAttrLog

using OutPtr = Ptr<NboAttrLog::Out>;

inline OutPtr const& operator<<(OutPtr const& out, Connection::Out::TransactToken token) {
  out->tokenIs(token);
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, bool value) {
  out->u8Is(value ? 1 : 0);
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, unsigned char value) {
  out->u8Is(value);
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, unsigned short value) {
  out->u16Is(value);
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, unsigned int value) {
  out->u32Is(value);
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, int value) {
  out->u32Is(static_cast<std::uint32_t>(value));
  return out;
}
// The id of an entity, or 0 for none.
inline OutPtr const& operator<<(OutPtr const& out, unsigned long long const& value) {
  out->u64Is(value);
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, double value) {
  out->doubleIs(value);
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, String8 const& text) {
  out->textIs(text.view());
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, EntityId const& id) {
  out->entityIdFieldIs(id);
  return out;
}
inline OutPtr const& operator<<(OutPtr const& out, TypeId const& type) {
  out->textIs(type.name.view());
  return out;
}
inline Ptr<Connection::Out> operator<<(Ptr<Connection::Out> const& out,
                                       String8::IteratorConst& position) {
  out->chunkIs(position);
  return out;
}

}  // namespace Zol
