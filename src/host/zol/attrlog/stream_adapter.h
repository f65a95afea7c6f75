// The part that every stream adapter has in common: the place of one entity on one log.
#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <memory>
#include <vector>

#include "host/zol/attrlog/demuxer.h"
#include "host/zol/attrlog/message_order.h"
#include "host/zol/attrlog/msg_channel.h"
#include "host/zol/entity.h"

namespace Zol {

// Bits of an adapter's flag word.
enum StreamFlag : unsigned int {
  flagOutReadOnly = 0x4,     // outbound changes are refused
  flagInReadOnly = 0x8,      // inbound updates are refused
  flagApplying = 0x10,       // an inbound message is being applied: its reaction is silent
  flagStale = 0x20,          // awaits confirmation in a resynchronisation
  flagWeak = 0x40,           // does not keep its entity alive
  flagMuted = 0x100,         // no output
  flagQuiet = 0x2000,        // reactions return at once
  flagNoFlowOut = 0x100000,  // has no `FlowOut`
  flagScheduledFlowOut = 0x400000,
  flagAnnounced = 0x2000000,    // of a parent: its children need no announcement
  flagStreaming = 0x4000000,    // output is wanted
  flagDeferOutput = 0x8000000,  // send through a `FlowOut` even when there is room
};

// What an adapter keeps to itself when flags pass between adapters.
inline constexpr unsigned int kNotificationBitMask = 0xfa8fffff;
// What a child does not take over from the adapter that makes its own.
inline constexpr unsigned int kChildFlagMask = 0xffffc3cf;

[[nodiscard]] constexpr unsigned int notificationBitMask() { return kNotificationBitMask; }

// What all adapters of one mounted tree share.
class ZOL_EXPORT MountContext : public MsgChannel::Constrainer::ZolEntry {
 public:
  MountContext(bool owner, bool writable) : owner_(owner), writable_(writable) {}
  ~MountContext() override;
  // The mount keeps no modes.
  void modeIs(MsgChannel::Mode) override {}

  // This end announced the root.
  [[nodiscard]] bool owner() const noexcept { return owner_; }
  // The other end of the mount may write.
  [[nodiscard]] bool writable() const noexcept { return writable_; }
  [[nodiscard]] bool synced() const noexcept { return synced_; }
  void syncedIs(bool value) noexcept { synced_ = value; }

 private:
  bool const owner_;
  bool const writable_;
  bool synced_ = false;
};

class ZOL_EXPORT StreamAdapter : public PtrInterface::NotifieeConst {
 public:
  enum class AttrTransactionType : std::uint8_t { begin = 0, abort = 1, end = 2 };
  enum class SyncMode : std::uint8_t { off = 0, settle = 1, mark = 2 };
  struct DeserializationOptions {
    // The payload goes on behind what the message reads.
    bool prefixOnly = false;
  };

  // Throws `RangeException` "SyncMode" for a number above 2.
  static SyncMode SyncModeInstance(unsigned int number);

  ~StreamAdapter() override;

  void hasNotificationActiveIs(bool value) override;
  [[nodiscard]] NotifieeConst* zolReactor() const override;
  [[nodiscard]] NotifieeConst* zolRawReactor() const override;
  [[nodiscard]] bool isStreamAdapter() const override;

  virtual void handleSyncMode(SyncMode mode);
  // Pays what is owed from attribute `id` on. Gives the id at which to go on, 0 when all is paid.
  virtual AttributeId handleAttrFlowOut(AttributeId id);
  // Frees what a flow holds for the attribute that it stands at.
  virtual void freeResyncState(Ptr<NboAttrLog::FlowOut> const& flow);
  virtual void zolOnInit();
  virtual void zolInstantiateSerialize();
  [[nodiscard]] virtual Ptr<NboAttrLog::Demuxer> streamDemuxer();
  [[nodiscard]] virtual Ptr<NboAttrLog::Demuxer const> streamDemuxer() const;
  [[nodiscard]] virtual Ptr<Entity> zolNotifierEntity();
  [[nodiscard]] virtual Ptr<Entity const> zolNotifierEntity() const;
  // Announces the entity as one without a parent on this connection.
  virtual void doSerializeOrphan();
  // Applies a message about attribute `id`; negative: a removal. `size`: the payload's bytes. With
  // `in` not null nothing is applied: the fields are read from `in`, and the reaction runs.
  virtual void handleAttrDeserialization(AttributeId id, DeserializationOptions options,
                                         unsigned int size, Ptr<NboAttrLog::In> const& in);
  virtual void handleAttrTransaction(AttributeId id, AttrTransactionType type, unsigned int n);
  virtual void doAssignEntityId(EntityId const& id);
  // Makes the flow of the adapter's class; called by the demuxer only.
  virtual Ptr<NboAttrLog::FlowOut> flowOutIs(Ptr<NboAttrLog::Out> const& out,
                                             ConnectDesc const& desc, bool flag, AttributeId start);
  [[nodiscard]] virtual EntityId realEntityId() const;
  // Runs the reaction of one attribute; `key` points to a key of the attribute's key type.
  virtual void doNotification(AttributeId id, void* key);
  virtual void audit();
  [[nodiscard]] virtual bool entityIdInitializedIs() const;
  virtual void syncModeIs(SyncMode mode);
  virtual void entityIdIs(EntityId const& id);
  virtual void streamDemuxerIs(Ptr<NboAttrLog::Demuxer> const& demuxer);
  virtual void filterDel();
  virtual void filterIs(Ptr<PtrInterface> const& filter);
  virtual void msgChannelIs(MsgChannel::Constrainer::ZolEntry* entry);
  virtual void notificationDisabledDueToMsgChannelIs(bool value);
  virtual void zolDoZombieReactors(bool value);
  // The adapter's stream has been replaced; a null `out` takes it off its stream.
  virtual void doRemountSelf(Ptr<NboAttrLog::Out> const& out);
  virtual void setFilter(Ptr<PtrInterface> const& filter);

  [[nodiscard]] Ptr<NboAttrLog::Out> const& nboAttrLogOut() const noexcept { return out_; }
  [[nodiscard]] EntityId entityId() const noexcept { return entityId_; }
  [[nodiscard]] bool hasUnifiedEntityId() const noexcept { return false; }
  [[nodiscard]] NboAttrLog::FlowOut* flowOut() const noexcept { return flowOut_.get(); }
  [[nodiscard]] MsgChannel::Constrainer::ZolEntry* msgChannelEntry() const noexcept {
    return channel_.get();
  }
  [[nodiscard]] SyncMode syncMode() const noexcept { return syncMode_; }
  [[nodiscard]] bool has(unsigned int flags) const noexcept { return bits_.has(flags); }
  void flagsIs(unsigned int flags, bool value) noexcept { bits_.flagsIs(flags, value); }
  // Takes `flags` on the bits of `notificationBitMask()`; the others stay.
  void notificationFlagsIs(Zol_BitSet flags) noexcept;

 protected:
  StreamAdapter(Zol_BitSet flags, Ptr<NboAttrLog::Out> const& out, PtrInterface* msgChannelEntry);

  [[nodiscard]] bool continueFlowOut() const;
  // Refuses an outbound change. `attr` may be null. Throws `InternalException`.
  [[noreturn]] void doThrowReadOnly(ZolAttr const* attr) const;
  [[nodiscard]] bool convertedToWritable(bool) const noexcept { return false; }
  [[nodiscard]] bool readOnlyRemoteOk(AttributeId) const noexcept { return false; }
  void channelModeIs(MsgChannel::Mode mode) const {
    if (channel_) channel_->modeIs(mode);
  }
  void outDel() noexcept { out_ = nullptr; }

 private:
  friend class NboAttrLog::Demuxer;

  Ptr<NboAttrLog::Out> out_;
  EntityId entityId_;
  SyncMode syncMode_ = SyncMode::off;
  Ptr<MsgChannel::Constrainer::ZolEntry> channel_;
  Ptr<NboAttrLog::FlowOut> flowOut_;
};

// The stream adapter of an entity: it hears its entity through one listener per level of the class,
// and carries what the log has to remember about the entity.
class ZOL_EXPORT Entity::ZolNboAttrLogSa : public StreamAdapter {
 public:
  ~ZolNboAttrLogSa() override;

  void hasNotificationActiveIs(bool value) override;
  void zolDoZombieReactors(bool value) override;
  void notifierIs(Ptr<PtrInterface const> const& notifier) override;
  [[nodiscard]] Name name() const override;
  using StreamAdapter::onNotificationException;
  void onNotificationException(AttributeId id) override;
  // The entity is at its end: the adapter leaves its log.
  void onZeroReferences() override;
  void zolOnInit() override;
  [[nodiscard]] Ptr<Entity> zolNotifierEntity() override;
  [[nodiscard]] Ptr<Entity const> zolNotifierEntity() const override;
  void handleAttrTransaction(AttributeId id, AttrTransactionType type, unsigned int n) override;

  [[nodiscard]] Entity* entity() const noexcept {
    return static_cast<Entity*>(const_cast<PtrInterface*>(zolNotifier()));
  }
  // The peer knows the entity by an id: this end has announced it, or the peer has.
  [[nodiscard]] bool announced() const noexcept { return announced_; }
  // It was this end, and as an entity without a parent.
  [[nodiscard]] bool announcedAsOrphan() const noexcept { return announced_ && orphan_; }
  // The other end of the log owns the tree that the entity belongs to.
  [[nodiscard]] bool isReplica() const noexcept;
  // Whether changes of the entity reach no owner, because it is a replica that may not be written.
  [[nodiscard]] static bool isReadOnlyReplica(Entity const& entity);

  // Asks for all that is owed since the announcement: gives the adapter a full flow.
  void doThis();
  // All of the entity is owed once more, behind what is owed now.
  void walkAgain();
  // When messages of this end about the entity have gone out; kept where both ends may write.
  [[nodiscard]] MessageOrder& messageOrder();
  // Sets right what a child adapter must not have from its parent, and starts its walk if one is
  // due.
  void doFixChildFlags(ZolNboAttrLogSa& child);
  // The peer names this adapter's entity by `id`. `fromPeer` is always true.
  void doEntityIdIs(EntityId const& id, NboAttrLog::Demuxer& demuxer, bool fromPeer);
  void sendTransactionMarker(AttributeId id, AttrTransactionType type, unsigned int n);
  // Asks the owner to send all of the entity once more, from a replica that may write. `referred`:
  // what a message about attribute `id` named and is strange here; 0: nothing is.
  void sendLacks(AttributeId id, EntityId referred);
  // Whether a change of this entity right now is the stream's own doing.
  [[nodiscard]] bool handlingFlowInFor(AttributeId id) const;
  // Whether a message may pass ahead of what is owed: only in the scheduled flow-out. From a
  // mutator it also puts a flow that waits back into the queue.
  bool prepareImmediateTransmission(AttributeId id, bool shortOfRoom);
  // A flow that owes only marks.
  void createFlowOutOnDemand();

  // The entity has left its holder: its adapters forget that it has been announced, and what waits
  // for an announcement by way of the holder waits no longer.
  static void withdrawAnnouncements(Entity const& entity, Entity const& holder);

 protected:
  ZolNboAttrLogSa(Zol_BitSet flags, unsigned int n, Ptr<NboAttrLog::Out> const& out,
                  PtrInterface* msgChannelEntry);

  // For the constructor of each level, last: takes the level's listener and attaches it to the
  // entity.
  template <class Adapter>
  void levelIs(Entity* entity, Adapter* listener);
  // Handles every id that the class does not know: counts it.
  void doBaseZolNboAttrLogSaMsg(AttributeId id, DeserializationOptions options, unsigned int size,
                                Ptr<NboAttrLog::In> const& in);
  // The adapter's flags for a child of the entity.
  [[nodiscard]] Zol_BitSet childFlags() const noexcept {
    return {kNotificationBitMask & kChildFlagMask & bits_.word()};
  }
  // The listener half of the most derived level.
  [[nodiscard]] PtrInterface::NotifieeConst* ownListener() const noexcept {
    return levels_[levelCount_ - 1].listener.get();
  }
  // Derives the bits of the flag word that follow from the rest of the state.
  void recomputeBits();

 private:
  friend class NboAttrLog::Demuxer;

  struct Level {
    Ptr<PtrInterface::NotifieeConst> listener;
    void (*zombie)(PtrInterface::NotifieeConst&, bool);
    void (*detach)(PtrInterface::NotifieeConst&);
  };
  static constexpr std::size_t kMaxLevels = 3;

  void levelAttached(Entity* entity, Level level);
  void detachLevels();
  void announcementCommitted();

  std::array<Level, kMaxLevels> levels_{};
  std::size_t levelCount_ = 0;
  std::vector<EntityId> otherIds_;
  std::unique_ptr<MessageOrder> messageOrder_;
  AttributeId resume_ = 0;
  unsigned int idleRounds_ = 0;
  bool announced_ = false;
  bool orphan_ = false;
  bool streams_ = false;
  bool needsWalk_ = false;
  bool walkDone_ = false;
  bool queued_ = false;
  std::list<Ptr<ZolNboAttrLogSa>>::iterator queuedAt_;
  bool parked_ = false;
};

template <class Adapter>
void Entity::ZolNboAttrLogSa::levelIs(Entity* entity, Adapter* listener) {
  using Listener = PtrInterface::NotifieeConst;
  levelAttached(
      entity,
      {Ptr<Listener>(listener),
       [](Listener& half, bool value) { static_cast<Adapter&>(half).zolDoZombieReactors(value); },
       [](Listener& half) { static_cast<Adapter&>(half).zolReactorAdapterIs(nullptr); }});
}

}  // namespace Zol
