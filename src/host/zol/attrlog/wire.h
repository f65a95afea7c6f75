// The numbers that both ends of a log share. All numbers travel big-endian.
//
//   frame   u32 length of what follows, u8 kind, body
//   HELLO   u32 magic, u16 version, u16 oldest version, u32 features, u32 maxFrame, u32 maxText,
//           u64 schema hash, text own name
//   MOUNT   u64 root id, u8 access, text name
//   DATA    u64 entity id, i32 attribute id, u8 bits, u32 fixedSize?, u32 childMark?, u32 seen?,
//           payload
//   MARK    u64 entity id, i32 attribute id, u8 type, u32 n (seen, where both ends write)
//   SYNCED  u64 root id
//   FORGET  u64 entity id
//   BYE     text reason
//   LACKS   u64 entity id, i32 attribute id, u64 id that the message referred to, or 0
//   ALIVE   nothing: sent when nothing else has been, so that the peer knows that this end is there
//
// A text is a u32 length and the bytes; a text chunk is a u8 "more follows", a u32 length and the
// bytes. An id's top bit says that the end which reads it allocated it; the reader flips the bit.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Zol::NboAttrLog {

// Do not change: the numbers are on the wire. A reader skips unknown kinds with bit 7 and closes on
// others.
enum class FrameKind : std::uint8_t {
  hello = 1,
  mount = 2,
  data = 3,
  mark = 4,
  synced = 5,
  forget = 6,
  bye = 7,
  alive = 0xa1,
  lacks = 0xa2,
};

inline constexpr std::uint8_t kSkippableKind = 0x80;

// The bits of a DATA header.
inline constexpr std::uint8_t kDataVariable = 1;
inline constexpr std::uint8_t kDataTrailer = 2;
inline constexpr std::uint8_t kDataFixedSize = 4;
inline constexpr std::uint8_t kDataChildMark = 8;
inline constexpr std::uint8_t kDataSeen = 16;

inline constexpr std::uint32_t kMagic = 0x5a4f4c31;
inline constexpr std::uint16_t kVersion = 1;
inline constexpr std::uint16_t kOldestVersion = 1;

inline constexpr std::size_t kLengthSize = 4;

// A message is kept below this size where the sender can cut it.
inline constexpr std::size_t kMaxMessageSize = 32768;
// The most text that one chunk holds.
inline constexpr std::size_t kMaxChunk = 32735;
// Free space that a small message asks for, and a first direct text.
inline constexpr std::size_t kSmallMessageRoom = 4096;
inline constexpr std::size_t kDirectTextRoom = 49152;
// Below this capacity a long text could never leave.
inline constexpr std::size_t kMinOutCapacity = 65536;

}  // namespace Zol::NboAttrLog
