// Attributes of the kind text. A long text goes as a run of messages, and one run is under way at a
// time.
#pragma once

#include "host/zol/attrlog/entity_adapter.h"

namespace Zol::NboAttrLog {

// The reaction to a change of a text, and its part of a flow-out. `current` reads the text. True
// when all of it has left, or nothing was to send.
ZOL_EXPORT bool textChanged(EntityAdapter& adapter, LogRow const& row,
                            String8 (*current)(Entity const&));
// Takes in one message of a text's run; `set` assigns the text once it is complete.
ZOL_EXPORT void textArrived(EntityAdapter& adapter, Inbound& message, LogRow const& row,
                            void (*set)(Entity&, String8));
// Drops a text under way when its transaction ends; false when there is none of this attribute.
ZOL_EXPORT bool textTransaction(EntityAdapter& adapter, AttributeId id,
                                LogRow::TransactionType type, FlowIn* flow);
// Reads a chunk of `message`, whose payload ends behind it.
ZOL_EXPORT void chunkRead(Inbound& message, String8::Iterator& text);

template <class A>
struct Text {
  // The text left whole.
  static bool changed(EntityAdapter& adapter) { return textChanged(adapter, kRow, &current); }

  static void react(EntityAdapter& adapter, void*) { A::react(A::adapter(adapter)); }
  static bool serialize(EntityAdapter& adapter) { return A::serialize(A::adapter(adapter)); }
  static void apply(EntityAdapter& adapter, Inbound& message) {
    textArrived(adapter, message, kRow, &set);
  }
  static bool transact(EntityAdapter& adapter, LogRow::TransactionType type, FlowIn* flow) {
    return textTransaction(adapter, A::kId, type, flow);
  }
  static void freeState(FlowOut& flow) { flow.valueDeq(); }

  static constexpr LogRow kRow{.id = A::kId,
                               .kind = LogRow::Kind::text,
                               .bit = A::kBit,
                               .attr = A::kCached,
                               .react = &react,
                               .apply = &apply,
                               .serialize = &serialize,
                               .transact = &transact,
                               .freeState = &freeState};

 private:
  static String8 current(Entity const& entity) {
    return A::get(static_cast<typename A::Holder const&>(entity));
  }
  static void set(Entity& entity, String8 text) {
    A::set(static_cast<typename A::Holder&>(entity), std::move(text));
  }
};

}  // namespace Zol::NboAttrLog
