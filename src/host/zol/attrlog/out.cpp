#include "host/zol/attrlog/out.h"

#include <algorithm>
#include <bit>

#include "host/zol/attrlog/demuxer.h"
#include "host/zol/attrlog/in.h"

namespace Zol {

Connection::Out::~Out() = default;

void Connection::Out::numberIs(std::uint64_t value, unsigned int size) {
  std::uint8_t field[8];
  for (unsigned int i = 0; i < size; ++i) {
    field[i] = static_cast<std::uint8_t>(value >> (8 * (size - 1 - i)));
  }
  Bytes& bytes = staged();
  bytes.insert(bytes.end(), field, field + size);
}

void Connection::Out::doubleIs(double value) { u64Is(std::bit_cast<std::uint64_t>(value)); }

void Connection::Out::textIs(std::string_view text) {
  u32Is(static_cast<std::uint32_t>(text.size()));
  Bytes& bytes = staged();
  bytes.insert(bytes.end(), text.begin(), text.end());
}

void Connection::Out::chunkIs(String8::IteratorConst& position) {
  std::string_view const rest = position.rest();
  std::string_view const piece = rest.substr(0, chunkLimit_);
  u8Is(piece.size() < rest.size() ? 1 : 0);
  u32Is(static_cast<std::uint32_t>(piece.size()));
  Bytes& bytes = staged();
  bytes.insert(bytes.end(), piece.begin(), piece.end());
  position.positionIs(position.position() + piece.size());
}

namespace NboAttrLog {

namespace {

void patchLength(std::vector<std::uint8_t>& bytes, std::size_t at, std::size_t length) {
  for (unsigned int i = 0; i < 4; ++i) {
    bytes[at + i] = static_cast<std::uint8_t>(length >> (8 * (3 - i)));
  }
}

}  // namespace

Out::Out(std::size_t capacity, std::size_t maxUnchunkedText)
    : capacity_(std::max(capacity, kMinOutCapacity)), maxUnchunkedText_(maxUnchunkedText) {
  messages_.push_back(std::make_unique<Message>());
}

Out::~Out() = default;

void Out::ownerIs(In* in, Demuxer* demuxer) noexcept {
  in_ = in;
  demuxer_ = demuxer;
}

Out::Bytes& Out::staged() { return direct_ ? *direct_ : message().bytes; }

void Out::nextHeaderIs(MsgHeader const& header) {
  Message& message = this->message();
  message.bytes.clear();
  message.entityId = header.entityId;
  message.attrId = header.attrId;
  message.sectionStart = 0;
  message.announced = {};
  message.hasChunk = false;
  message.overlong = false;
  message.open = true;
  u32Is(0);
  u8Is(static_cast<std::uint8_t>(FrameKind::data));
  u64Is(header.entityId.value);
  u32Is(static_cast<std::uint32_t>(header.attrId));
  bool const sized = !header.isVariable && header.fixedSize != 0;
  unsigned int const bits = (header.isVariable ? kDataVariable : 0U) |
                            (header.trailer ? kDataTrailer : 0U) | (sized ? kDataFixedSize : 0U) |
                            (header.childMark != 0 ? kDataChildMark : 0U) |
                            (numbersMessages_ ? kDataSeen : 0U);
  u8Is(static_cast<std::uint8_t>(bits));
  if (sized) u32Is(header.fixedSize);
  if (header.childMark != 0) u32Is(header.childMark);
  if (numbersMessages_) u32Is(in_ ? in_->framesTaken() : 0);
}

void Out::currentPayloadSectionIs(PayloadSection section) {
  closeSection();
  u8Is(static_cast<std::uint8_t>(section));
  u32Is(0);
  message().sectionStart = message().bytes.size();
}

void Out::closeSection() {
  Message& message = this->message();
  if (message.sectionStart == 0) return;
  patchLength(message.bytes, message.sectionStart - 4, message.bytes.size() - message.sectionStart);
  message.sectionStart = 0;
}

void Out::tokenIs(TransactToken token) {
  if (token == TransactToken::close) commit();
}

void Out::textIs(std::string_view text) {
  if (text.size() > maxUnchunkedText_) {
    message().overlong = true;
    return;
  }
  Zol::Connection::Out::textIs(text);
}

void Out::chunkIs(String8::IteratorConst& position) {
  message().hasChunk = true;
  Zol::Connection::Out::chunkIs(position);
}

void Out::entityIdFieldIs(EntityId id) {
  u64Is(id.value);
  message().announced = id;
}

void Out::commit() {
  Message& message = this->message();
  if (!message.open) return;
  message.open = false;
  closeSection();
  if (message.overlong || message.bytes.size() - kLengthSize > maxFrame_) {
    ++dropped_;
    message.bytes.clear();
    return;
  }
  patchLength(message.bytes, 0, message.bytes.size() - kLengthSize);
  if (isRepetition(message)) {
    message.bytes.clear();
    return;
  }
  bool const isRepeatable = !message.hasChunk && message.announced.value == 0;
  repeatableSize_ = isRepeatable ? message.bytes.size() : 0;
  queue_.insert(queue_.end(), message.bytes.begin(), message.bytes.end());
  bytesCommitted_ += message.bytes.size();
  ++messagesCommitted_;
  ++framesCommitted_;
  message.bytes.clear();
  if (!demuxer_) return;
  if (numbersMessages_) demuxer_->messageCommitted(message.entityId, message.attrId);
  if (message.announced.value != 0) demuxer_->announcementCommitted(message.announced);
}

// An adapter of several levels writes a change once through each. A chunk counts each time that it
// comes, and an announcement is heard of.
bool Out::isRepetition(Message const& message) const noexcept {
  std::size_t const size = message.bytes.size();
  if (size != repeatableSize_ || queue_.size() - head_ < size) return false;
  return std::equal(message.bytes.begin(), message.bytes.end(),
                    queue_.end() - static_cast<std::ptrdiff_t>(size));
}

void Out::openMessageDel() noexcept {
  message().open = false;
  message().bytes.clear();
}

std::size_t Out::beginFrame(FrameKind kind) {
  repeatableSize_ = 0;
  direct_ = &queue_;
  std::size_t const start = queue_.size();
  u32Is(0);
  u8Is(static_cast<std::uint8_t>(kind));
  return start;
}

void Out::endFrame(std::size_t start) {
  patchLength(queue_, start, queue_.size() - start - kLengthSize);
  bytesCommitted_ += queue_.size() - start;
  ++framesCommitted_;
  direct_ = nullptr;
}

std::size_t Out::freeSpace() const noexcept {
  std::size_t used = queue_.size() - head_;
  for (std::size_t i = 0; i <= depth_; ++i) used += messages_[i]->bytes.size();
  return used < capacity_ ? capacity_ - used : 0;
}

std::span<std::uint8_t const> Out::pending() const noexcept {
  return std::span<std::uint8_t const>(queue_).subspan(head_);
}

// Sent bytes are cut off when they are all, or when they are most of the queue, so that each byte
// moves at most once on average.
void Out::sent(std::size_t bytes) noexcept {
  head_ += bytes;
  if (head_ == queue_.size()) {
    queue_.clear();
    head_ = 0;
    if (queue_.capacity() > 4 * capacity_) Bytes().swap(queue_);
  } else if (head_ > queue_.size() / 2 && head_ > kMaxMessageSize) {
    queue_.erase(queue_.begin(), queue_.begin() + static_cast<std::ptrdiff_t>(head_));
    head_ = 0;
  }
}

Out::NestedMessage::NestedMessage(Out& out) : out_(out) {
  if (++out_.depth_ == out_.messages_.size()) {
    out_.messages_.push_back(std::make_unique<Message>());
  }
  out_.message().open = false;
}

Out::NestedMessage::~NestedMessage() {
  out_.message().open = false;
  out_.message().bytes.clear();
  --out_.depth_;
}

}  // namespace NboAttrLog

}  // namespace Zol
