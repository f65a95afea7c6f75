// The adapters whose attributes are told by rows: what a reaction may do, the flow-out, the
// dispatch of a message, transactions.
#pragma once

#include "host/zol/attrlog/level_flow_out.h"
#include "host/zol/expect.h"

namespace Zol::NboAttrLog {

// What a reaction of an adapter may do about a change.
enum class Hearing : std::uint8_t {
  ignores,  // nothing, nor touch the flag word
  silent,   // nothing
  adopts,   // the change is an inbound message: take over the child that it announces
  sends,
};

// The base of the stream adapters. An adapter's class has the reactions of its attributes, stamped
// from its list, and hands its rows to `levelIs`; all operations of the stream work over the rows.
// What the kinds of attributes do (scalar.h, text.h, children.h, ...) is built of the operations
// below.
class ZOL_EXPORT EntityAdapter : public Entity::ZolNboAttrLogSa {
 public:
  ~EntityAdapter() override;

  AttributeId handleAttrFlowOut(AttributeId id) override;
  void freeResyncState(Ptr<NboAttrLog::FlowOut> const& flow) override;
  void zolInstantiateSerialize() override;
  void handleAttrDeserialization(AttributeId id, DeserializationOptions options, unsigned int size,
                                 Ptr<In> const& in) override;
  void handleAttrTransaction(AttributeId id, AttrTransactionType type, unsigned int n) override;
  Ptr<NboAttrLog::FlowOut> flowOutIs(Ptr<Out> const& out, ConnectDesc const& desc, bool flag,
                                     AttributeId start) override;
  void doNotification(AttributeId id, void* key) override;
  void syncModeIs(SyncMode mode) override;
  void doRemountSelf(Ptr<Out> const& out) override;

  // Clears the applying bit on every way out of a reaction.
  class ApplyingEnd {
   public:
    explicit ApplyingEnd(EntityAdapter& adapter) : adapter_(adapter) {}
    ~ApplyingEnd() { adapter_.flagsIs(flagApplying, false); }
    ApplyingEnd(ApplyingEnd const&) = delete;
    ApplyingEnd& operator=(ApplyingEnd const&) = delete;

   private:
    EntityAdapter& adapter_;
  };

  // What a reaction to a change of the attribute may do. Throws through `doThrowReadOnly` when
  // outbound changes are refused.
  [[nodiscard]] Hearing hearing(LogRow const& row) const;
  // The flow that owes something, or null in direct mode.
  [[nodiscard]] LevelFlowOut* levelFlow() const noexcept {
    return static_cast<LevelFlowOut*>(StreamAdapter::flowOut());
  }
  // Whether a message about an attribute without a key may leave now; when not, it is owed.
  [[nodiscard]] bool mayLeave(LogRow const& row, Out const& out);
  // Whether a message may leave now without a look at what is owed; makes a flow where it may not.
  [[nodiscard]] bool mayLeaveDirectly(AttributeId id, Out const& out);
  void attributeOwed(LogRow const& row);
  // Gives the flow for something of the attribute that could not leave, made if there is none; null
  // on a closed log.
  LevelFlowOut* flowFor(AttributeId id);
  // The child that the peer announces next in the stream takes its id from there. `child` may be
  // null.
  void adopt(Ptr<Entity> const& child);
  // Makes or finds the adapter of the child, and writes the announcement unless it needs none.
  // `write` writes the constructor parameters.
  Ptr<Entity::ZolNboAttrLogSa> announceChild(AttributeId id, Zol_BitSet flags, Entity& child,
                                             unsigned int n, OutPtr const& out,
                                             PtrInterface* msgChannelEntry,
                                             void (*write)(OutPtr const&, Entity const&));
  // Takes the child's adapter off its stream; gives it, or null.
  Ptr<Entity::ZolNboAttrLogSa> childAdapterDel(Entity* child);
  // Sends an announcement by way of the row, and what the child owes.
  void childLeaves(LogRow const& row, Entity& child);
  // Announces a child held under the attribute, with these flags; nothing for an attribute without
  // children.
  void heldChildLeaves(AttributeId id, Zol_BitSet flags, Entity& child);
  // Marks the child's adapter on this stream as awaiting confirmation.
  void childStale(Entity* child) const;
  // Whether a sweep takes the child: nothing on this stream has confirmed it.
  [[nodiscard]] bool isUnconfirmed(Entity& child) const;
  // Whether the owner did not know yet that this end has made the child when it wrote the present
  // message: what it takes out is an earlier one. It will answer the announcement.
  [[nodiscard]] bool isUnknownToSource(Entity* child) const;
  // The owner has taken out a child of its own and does not know this one yet, which stays. False
  // when it means this one.
  [[nodiscard]] bool isRemovalOfTwin(Entity* child) const;
  // Sends what there is now of what a message of the peer was about. A child is announced anew.
  void answer(AttributeId id, In& in);
  // Takes out one member that the source does not have, unheard by the peer.
  template <class Del>
  void sweep(Del&& del) {
    ApplyingEnd const end(*this);
    flagsIs(flagApplying, true);
    del();
  }
  // The id that a message announces, which stays in the stream.
  [[nodiscard]] static EntityId peekEntityId(Inbound& message);
  // Moves on to where a wrapped child's id stands.
  static void skipToChildId(Inbound& message);

  using Entity::ZolNboAttrLogSa::childFlags;
  using StreamAdapter::channelModeIs;
  using StreamAdapter::continueFlowOut;

 protected:
  using Entity::ZolNboAttrLogSa::ZolNboAttrLogSa;

  // For the constructor of each level, last: takes the level's listener and its rows.
  template <class Half>
  void levelIs(Entity* entity, Half* listener, LogLevel const& level) {
    Entity::ZolNboAttrLogSa::levelIs(entity, listener);
    // A chip's level has the rows of its base, which has seen to them.
    if (level_ == &level) return;
    level_ = &level;
    syncTransaction();
  }
  // Announces the entity as one without a parent here; `write` writes the constructor parameters.
  void orphanIs(void (*write)(OutPtr const&, Entity const&));

 private:
  AttributeId flowOutFrom(LogLevel const& level, AttributeId id);
  [[nodiscard]] AttributeId unwrapped(In& input, AttributeId id, In::Position& childIdAt) const;
  void syncModeArrived(In& input);
  void syncTransaction();
  [[nodiscard]] bool isSilent() const noexcept {
    return has(flagStale | flagMuted) || !has(flagStreaming);
  }

  LogLevel const* level_ = nullptr;
  // What leaves is an answer to the peer.
  bool answers_ = false;
  // The change of the entity at which something was owed last.
  std::uint32_t owedAt_ = 0;
};

// Sends the peer what there is now of what its message about attribute `id` was about; `in` stands
// at the start of the payload.
ZOL_EXPORT void answerPeer(Entity::ZolNboAttrLogSa& adapter, AttributeId id, In& in);

// Asks the adapter of the child's holder, which exists, to announce the child; does nothing when
// the holder's class has no such child attribute.
ZOL_EXPORT void announceHeldChild(Entity::ZolNboAttrLogSa& holder, AttributeId id,
                                  Entity::Zol_BitSet flags, Entity& child);

// An extra byte behind the last field is malformed, and found before anything is applied.
ZOL_EXPORT void requireEnd(Inbound& message);

}  // namespace Zol::NboAttrLog
