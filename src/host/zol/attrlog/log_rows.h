// What a class's attributes are to its stream adapter: one row of functions per attribute.
#pragma once

#include <cstdint>
#include <span>

#include "host/zol/attrlog/dirty_keys.h"
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
  // Where the announced id of a wrapped child stands; 0: behind the constructor parameters.
  In::Position childIdAt = 0;
};

// An attribute that has children has `announce`; one that has keys has `remove` and is a
// collection.
struct LogRow {
  using TransactionType = StreamAdapter::AttrTransactionType;
  using AdapterPtr = Ptr<Entity::ZolNboAttrLogSa>;
  enum class Kind : std::uint8_t { scalar, text, collection };

  AttributeId id;
  // A reference or a child without a key goes out as a scalar does.
  Kind kind;
  DirtyBit bit;
  // The registered attribute, to name it in a refusal; null when it was not registered.
  ZolAttr const* (*attr)(AttributeId);
  // The reaction, by way of the virtual slot. `key` points to a key of the attribute's key type.
  void (*react)(EntityAdapter&, void* key);
  // Reads a message about the attribute.
  void (*apply)(EntityAdapter&, Inbound&);
  // Sends the peer what there is now of what its message was about, which is read from its start
  // for the key; null: the reaction does it.
  void (*answer)(EntityAdapter&, Inbound&) = nullptr;
  // Reads one that removes a member, or clears a child.
  void (*remove)(EntityAdapter&, Inbound&) = nullptr;
  // Sends what is owed of a text or collection; true when nothing more is.
  bool (*serialize)(EntityAdapter&) = nullptr;
  // What a transaction does to the attribute; false when the host has nothing to do behind it.
  bool (*transact)(EntityAdapter&, TransactionType, FlowIn*) = nullptr;
  // What frees the state of a walk or of a text under way in a flow that is given up.
  void (*freeState)(FlowOut&) = nullptr;
  // Makes or finds the adapter of a child, and announces the child.
  AdapterPtr (*announce)(EntityAdapter&, PtrInterface::NotifieeConst::Zol_BitSet,
                         Entity& child) = nullptr;
  // Takes the adapters of all children off their stream.
  void (*dropAdapters)(EntityAdapter&) = nullptr;

  [[nodiscard]] constexpr bool hasChildren() const { return announce != nullptr; }
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

// How a kind of attribute reaches one attribute: the base of what is stamped from a class's list.
template <class AdapterClass, class HolderClass, AttributeId attributeId, DirtyBit dirty,
          ZolAttr const* (*cached)(AttributeId)>
struct AttributeAccess {
  using Adapter = AdapterClass;
  using Holder = HolderClass;
  static constexpr AttributeId kId = attributeId;
  static constexpr DirtyBit kBit = dirty;
  static constexpr auto kCached = cached;

  static Adapter& adapter(EntityAdapter& of) { return static_cast<Adapter&>(of); }
};

}  // namespace Zol::NboAttrLog
