// What stands at the head of an attribute message, and the ids that it carries.
#pragma once

#include <cstdint>

#include "host/zol/forward.h"
#include "host/zol/text.h"

namespace Zol {

// The number by which one connection knows an entity: two words, the first one written first. The
// top bit is set in ids that the other end allocated. An id with the low bit clear belongs to one
// connection.
struct EntityId {
  static constexpr std::uint64_t kTopBit = std::uint64_t{1} << 63;

  constexpr EntityId() = default;
  constexpr explicit EntityId(std::uint64_t number) : value(number) {}
  constexpr EntityId(std::uint32_t first, std::uint32_t second)
      : value((std::uint64_t{first} << 32) | second) {}

  [[nodiscard]] constexpr bool fromPeer() const { return (value & kTopBit) != 0; }
  [[nodiscard]] constexpr bool unified() const { return (value & 1) != 0; }
  // 0 and the pair of an orphan message, in either word order, name no entity.
  [[nodiscard]] constexpr bool reserved() const {
    return value == 0 || value == 1 || value == std::uint64_t{1} << 32;
  }
  // The id as the reader of it has to store it.
  [[nodiscard]] constexpr EntityId seenFromOtherEnd() const {
    return reserved() ? *this : EntityId(value ^ kTopBit);
  }
  friend constexpr bool operator==(EntityId, EntityId) = default;

  std::uint64_t value = 0;
};

inline constexpr EntityId kOrphanEntityId{1, 0};

// The full name of a type, as it stands in a message.
struct TypeId {
  String8 name;
};

namespace NboAttrLog {

// Reserved attribute ids, besides that of an orphan: a sync mode, and a child's message in a
// wrapper, whose negated id wraps a removal.
inline constexpr AttributeId kSyncModeAttr = 135;
inline constexpr AttributeId kWrappedAttr = 144;

// Marks the announcement of a child.
inline constexpr std::uint32_t kChildMark = 151;

struct MsgHeader {
  EntityId entityId;
  AttributeId attrId = 0;  // negative: removes
  bool isVariable = true;
  std::uint32_t fixedSize = 0;  // payload bytes when `isVariable` is false
  std::uint32_t childMark = 0;
  bool trailer = false;
};

// The sections of an orphan announcement.
enum class PayloadSection : std::uint8_t { types = 1, constructorParameters = 3, entityId = 4 };

}  // namespace NboAttrLog

}  // namespace Zol
