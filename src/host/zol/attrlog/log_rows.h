// What a class's attributes are to its stream adapter: one row of functions per attribute.
#pragma once

#include <cstdint>
#include <span>

#include "host/zol/attrlog/stream_adapter.h"

namespace Zol::NboAttrLog {

class EntityAdapter;

// One message about an attribute, while it is read.
struct Inbound {
  In& in;
  AttributeId id;
  // Bytes of the payload.
  unsigned int size;
  // False: nothing is applied; the fields are read, and the reaction runs.
  bool applies;
  // True: the payload goes on behind what this message reads.
  bool prefixOnly;
  Ptr<FlowIn> flow;
};

struct LogRow {
  enum class Kind : std::uint8_t { scalar, text, collection };

  AttributeId id;
  Kind kind;
  DirtyBit bit;
  // The registered attribute, to name it in a refusal; null when it was not registered.
  ZolAttr const* (*attr)(AttributeId);
  // The reaction, by way of the virtual slot. `key` points to a key of the attribute's key type.
  void (*react)(EntityAdapter&, void* key);
  // Sends what is owed of a text or collection; true when nothing more is.
  bool (*serialize)(EntityAdapter&);
  // Reads a message about the attribute, and one that removes a member; null where there is none.
  void (*apply)(EntityAdapter&, Inbound&);
  void (*remove)(EntityAdapter&, Inbound&);
};

// The rows of one class, in the order of the ids, and those of the class that it derives from.
struct LogLevel {
  std::span<LogRow const> rows;
  LogLevel const* base = nullptr;

  // The row of the attribute, whether the id stands for the attribute or for a removal; null if
  // none.
  [[nodiscard]] constexpr LogRow const* find(AttributeId id) const {
    for (LogRow const& row : rows) {
      if (row.id == id || -row.id == id) return &row;
    }
    return base ? base->find(id) : nullptr;
  }
};

}  // namespace Zol::NboAttrLog
