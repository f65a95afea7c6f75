#include "host/zol/attrlog/stream_adapter.h"

#include "host/zol/attrlog/entity_adapter.h"
#include "host/zol/dir.h"
#include "host/zol/registry/zol_attr.h"
#include "host/zol/registry/zol_type.h"

namespace Zol {

MountContext::~MountContext() = default;

StreamAdapter::SyncMode StreamAdapter::SyncModeInstance(unsigned int number) {
  if (number > 2) throwRangeException("SyncMode");
  return static_cast<SyncMode>(number);
}

StreamAdapter::StreamAdapter(Zol_BitSet flags, Ptr<NboAttrLog::Out> const& out,
                             PtrInterface* msgChannelEntry)
    : out_(out), channel_(dynamic_cast<MsgChannel::Constrainer::ZolEntry*>(msgChannelEntry)) {
  bits_ = Zol_BitSet(flags.word() | flagNoFlowOut);
}

StreamAdapter::~StreamAdapter() = default;

void StreamAdapter::hasNotificationActiveIs(bool value) { bitIs(kNotificationActive, value); }

PtrInterface::NotifieeConst* StreamAdapter::zolReactor() const {
  return const_cast<StreamAdapter*>(this);
}

PtrInterface::NotifieeConst* StreamAdapter::zolRawReactor() const { return zolReactor(); }

bool StreamAdapter::isStreamAdapter() const { return true; }

void StreamAdapter::handleSyncMode(SyncMode) {}

AttributeId StreamAdapter::handleAttrFlowOut(AttributeId) { return 0; }

void StreamAdapter::freeResyncState(Ptr<NboAttrLog::FlowOut> const&) {}

void StreamAdapter::zolOnInit() {}

void StreamAdapter::zolInstantiateSerialize() {}

Ptr<NboAttrLog::Demuxer> StreamAdapter::streamDemuxer() { return out_ ? out_->demuxer() : nullptr; }

Ptr<NboAttrLog::Demuxer const> StreamAdapter::streamDemuxer() const {
  return out_ ? out_->demuxer() : nullptr;
}

Ptr<Entity> StreamAdapter::zolNotifierEntity() { return nullptr; }

Ptr<Entity const> StreamAdapter::zolNotifierEntity() const { return nullptr; }

void StreamAdapter::doSerializeOrphan() {}

void StreamAdapter::handleAttrDeserialization(AttributeId, DeserializationOptions, unsigned int,
                                              Ptr<NboAttrLog::In> const&) {}

void StreamAdapter::handleAttrTransaction(AttributeId, AttrTransactionType, unsigned int) {}

void StreamAdapter::doAssignEntityId(EntityId const& id) { entityId_ = id; }

Ptr<NboAttrLog::FlowOut> StreamAdapter::flowOutIs(Ptr<NboAttrLog::Out> const& out,
                                                  ConnectDesc const& desc, bool flag,
                                                  AttributeId start) {
  return new NboAttrLog::FlowOut(out, this, desc, flag, start);
}

EntityId StreamAdapter::realEntityId() const { return entityId_; }

void StreamAdapter::doNotification(AttributeId, void*) {}

void StreamAdapter::audit() {}

bool StreamAdapter::entityIdInitializedIs() const { return entityId_.value != 0; }

void StreamAdapter::syncModeIs(SyncMode mode) { syncMode_ = mode; }

void StreamAdapter::entityIdIs(EntityId const& id) { entityId_ = id; }

void StreamAdapter::streamDemuxerIs(Ptr<NboAttrLog::Demuxer> const&) {}

void StreamAdapter::filterDel() {}

void StreamAdapter::filterIs(Ptr<PtrInterface> const&) {}

void StreamAdapter::msgChannelIs(MsgChannel::Constrainer::ZolEntry* entry) { channel_ = entry; }

void StreamAdapter::notificationDisabledDueToMsgChannelIs(bool) {}

void StreamAdapter::zolDoZombieReactors(bool value) { zolMarkedForDeletionIs(value); }

void StreamAdapter::doRemountSelf(Ptr<NboAttrLog::Out> const& out) { out_ = out; }

void StreamAdapter::setFilter(Ptr<PtrInterface> const&) {}

void StreamAdapter::notificationFlagsIs(Zol_BitSet flags) noexcept {
  bits_ =
      Zol_BitSet((bits_.word() & ~kNotificationBitMask) | (flags.word() & kNotificationBitMask));
}

bool StreamAdapter::continueFlowOut() const {
  return out_ && out_->demuxer() && out_->demuxer()->continueFlowOut();
}

void StreamAdapter::doThrowReadOnly(ZolAttr const* attr) const {
  throwInternalException(String8("attempting to modify read-only attribute ") +
                         (attr ? String8(attr->name()) : String8("(unregistered)")) + " of " +
                         String8(name()));
}

Entity::ZolNboAttrLogSa::ZolNboAttrLogSa(Zol_BitSet flags, unsigned int,
                                         Ptr<NboAttrLog::Out> const& out,
                                         PtrInterface* msgChannelEntry)
    : StreamAdapter(flags, out, msgChannelEntry) {}

Entity::ZolNboAttrLogSa::~ZolNboAttrLogSa() {
  isWeakReferenceIs(false);
  detachLevels();
}

// The most derived level goes first.
void Entity::ZolNboAttrLogSa::detachLevels() {
  while (levelCount_ > 0) {
    Level level = std::move(levels_[--levelCount_]);
    level.listener->isRegisteredNotifieeIs(false);
    level.listener->notifierIs(nullptr);
    level.detach(*level.listener);
  }
}

void Entity::ZolNboAttrLogSa::levelAttached(Entity* entity, Level level) {
  level.listener->hasNotificationActiveIs(true);
  levels_[levelCount_++] = std::move(level);
  if (has(flagWeak)) isWeakReferenceIs(true);
  PtrInterface::NotifieeConst::isRegisteredNotifieeIs(false);
  storeNotifier(entity);
}

void Entity::ZolNboAttrLogSa::hasNotificationActiveIs(bool value) {
  if (hasNotificationActive() == value) return;
  StreamAdapter::hasNotificationActiveIs(value);
  for (std::size_t i = 0; i < levelCount_; ++i) {
    levels_[i].listener->hasNotificationActiveIs(value);
  }
  // An adapter that hears nothing would not hear of its entity's end, so it holds it meanwhile.
  if (has(flagWeak)) isWeakReferenceIs(value);
}

void Entity::ZolNboAttrLogSa::zolDoZombieReactors(bool value) {
  if (zolMarkedForDeletion() == value) return;
  Ptr<ZolNboAttrLogSa> const hold(this);
  if (levelCount_ > 0) levels_[levelCount_ - 1].zombie(*ownListener(), value);
  zolMarkedForDeletionIs(value);
}

void Entity::ZolNboAttrLogSa::notifierIs(Ptr<PtrInterface const> const& notifier) {
  if (levelCount_ > 0) ownListener()->notifierIs(notifier);
  storeNotifier(dynamic_cast<Entity const*>(notifier.get()));
  PtrInterface::NotifieeConst::isRegisteredNotifieeIs(false);
}

Name Entity::ZolNboAttrLogSa::name() const { return entity() ? entity()->name() : Name(); }

void Entity::ZolNboAttrLogSa::onNotificationException(AttributeId) {
  if (Ptr<NboAttrLog::Demuxer> const demuxer = streamDemuxer()) demuxer->listenerFailuresInc();
}

void Entity::ZolNboAttrLogSa::onZeroReferences() {
  Ptr<ZolNboAttrLogSa> const hold(this);
  hasNotificationActiveIs(false);
  if (Ptr<NboAttrLog::Demuxer> const demuxer = streamDemuxer()) {
    if (!demuxer->orphanDel(*this)) demuxer->reactorDel(entityId());
  }
  // Whoever still holds the adapter must not reach the entity through it.
  detachLevels();
  storeNotifier(nullptr);
}

void Entity::ZolNboAttrLogSa::zolOnInit() {
  Ptr<NboAttrLog::Demuxer> const demuxer = streamDemuxer();
  if (!demuxer || entityIdInitializedIs()) return;
  entityIdIs(demuxer->idAllocate());
  demuxer->reactorIs(entityId(), this);
}

Ptr<Entity> Entity::ZolNboAttrLogSa::zolNotifierEntity() { return entity(); }

Ptr<Entity const> Entity::ZolNboAttrLogSa::zolNotifierEntity() const { return entity(); }

// An abort drops the text under way of its attribute, which begins anew. The end of a transaction
// drops none: the last member of a keyed text may be under way still.
void Entity::ZolNboAttrLogSa::handleAttrTransaction(AttributeId id, AttrTransactionType type,
                                                    unsigned int) {
  if (type == AttrTransactionType::begin) return;
  Ptr<NboAttrLog::Demuxer> const demuxer = streamDemuxer();
  Ptr<NboAttrLog::FlowIn> const flow = demuxer ? demuxer->flowIn(entityId()) : nullptr;
  if (!flow) return;
  if (type == AttrTransactionType::end) flow->handlingTransactionIs(false);
  if (type == AttrTransactionType::abort && flow->aid() == id) flow->iterDel();
  if (!flow->hasIter()) demuxer->flowInDel(entityId());
}

void Entity::ZolNboAttrLogSa::doThis() {
  Ptr<NboAttrLog::Demuxer> const demuxer = streamDemuxer();
  if (!demuxer || !announced_ || !needsWalk_) return;
  needsWalk_ = false;
  bool const textUnderWay = flowOut() && flowOut()->hasValueIter();
  AttributeId const textId = textUnderWay ? flowOut()->attrId() : 0;
  demuxer->flowOutDel(*this);
  demuxer->createFlowOut(*this, {}, false, 0);
  if (textUnderWay) flowOut()->pendingAbortIs(textId, true);
}

void Entity::ZolNboAttrLogSa::walkAgain() {
  needsWalk_ = true;
  if (!flowOut()) doThis();
}

MessageOrder& Entity::ZolNboAttrLogSa::messageOrder() {
  if (!messageOrder_) messageOrder_ = std::make_unique<MessageOrder>();
  return *messageOrder_;
}

void Entity::ZolNboAttrLogSa::doFixChildFlags(ZolNboAttrLogSa& child) {
  child.flagsIs(flagApplying | flagStale | flagQuiet, false);
  child.recomputeBits();
  if (!child.needsWalk_ || has(flagScheduledFlowOut)) return;
  if (child.entity()->mutationCounter() != 0) {
    child.doThis();
  } else {
    child.needsWalk_ = false;
    child.walkDone_ = true;
    child.recomputeBits();
  }
}

void Entity::ZolNboAttrLogSa::doEntityIdIs(EntityId const& id, NboAttrLog::Demuxer& demuxer, bool) {
  demuxer.bind(*this, id);
}

void Entity::ZolNboAttrLogSa::sendTransactionMarker(AttributeId id, AttrTransactionType type,
                                                    unsigned int n) {
  Ptr<NboAttrLog::Out> const& out = nboAttrLogOut();
  if (!out || !announced_) return;
  out->frameIs(NboAttrLog::FrameKind::mark, [&] {
    out->u64Is(entityId().value);
    out->u32Is(static_cast<std::uint32_t>(id));
    out->u8Is(static_cast<std::uint8_t>(type));
    out->u32Is(out->numbersMessages() && out->reverseLog() ? out->reverseLog()->framesTaken() : n);
  });
  if (out->numbersMessages()) messageOrder().sent(id, out->framesCommitted());
}

void Entity::ZolNboAttrLogSa::sendLacks(AttributeId id, EntityId referred) {
  Ptr<NboAttrLog::Out> const& out = nboAttrLogOut();
  out->frameIs(NboAttrLog::FrameKind::lacks, [&] {
    out->u64Is(entityId().value);
    out->u32Is(static_cast<std::uint32_t>(id));
    out->u64Is(referred.value);
  });
}

bool Entity::ZolNboAttrLogSa::handlingFlowInFor(AttributeId) const {
  NboAttrLog::Demuxer const* const demuxer = nboAttrLogOut() ? nboAttrLogOut()->demuxer() : nullptr;
  return demuxer && entity() && demuxer->dispatchConcerns(*entity());
}

bool Entity::ZolNboAttrLogSa::prepareImmediateTransmission(AttributeId, bool) {
  if (has(flagScheduledFlowOut)) return true;
  if (parked_ && nboAttrLogOut() && nboAttrLogOut()->demuxer()) {
    resume_ = 0;
    idleRounds_ = 0;
    nboAttrLogOut()->demuxer()->enqueue(*this);
  }
  return false;
}

void Entity::ZolNboAttrLogSa::createFlowOutOnDemand() {
  if (Ptr<NboAttrLog::Demuxer> const demuxer = streamDemuxer()) {
    demuxer->createFlowOut(*this, ConnectDesc{}, false, NboAttrLog::kOwesOnlyMarks);
  }
}

namespace {

template <class Visit>
void eachAdapter(Entity const& entity, Visit const& visit) {
  for (auto const* at = entity.zolNotifiees().head(); at; at = ListRawGeneric::next(*at)) {
    PtrInterface::NotifieeConst* const reactor = at->zolRawReactor();
    if (reactor && reactor->isStreamAdapter())
      visit(static_cast<Entity::ZolNboAttrLogSa&>(*reactor));
  }
}

}  // namespace

// What has been announced once goes on streaming: the peer may hold it by other ways.
void Entity::ZolNboAttrLogSa::withdrawAnnouncements(Entity const& entity, Entity const& holder) {
  eachAdapter(entity, [](ZolNboAttrLogSa& adapter) { adapter.announced_ = false; });
  eachAdapter(holder, [](ZolNboAttrLogSa& adapter) {
    if (Ptr<NboAttrLog::Demuxer> const demuxer = adapter.streamDemuxer()) demuxer->wakeAll();
  });
}

void Entity::ZolNboAttrLogSa::doBaseZolNboAttrLogSaMsg(AttributeId, DeserializationOptions,
                                                       unsigned int, Ptr<NboAttrLog::In> const&) {
  if (Ptr<NboAttrLog::Demuxer> const demuxer = streamDemuxer()) demuxer->unknownAttributesInc();
}

void Entity::ZolNboAttrLogSa::recomputeBits() {
  auto const* const context = dynamic_cast<MountContext const*>(msgChannelEntry());
  bool const bound = entityId().value != 0;
  flagsIs(flagNoFlowOut, flowOut() == nullptr);
  flagsIs(flagAnnounced, walkDone_ && !flowOut());
  flagsIs(flagStreaming, isReplica() ? context->writable() && bound : streams_);
}

void Entity::ZolNboAttrLogSa::announcementCommitted() {
  announced_ = true;
  streams_ = true;
  needsWalk_ = !isReplica() || !entityId().fromPeer();
  recomputeBits();
}

bool Entity::ZolNboAttrLogSa::isReplica() const noexcept {
  auto const* const context = dynamic_cast<MountContext const*>(msgChannelEntry());
  return context && !context->owner();
}

bool Entity::ZolNboAttrLogSa::isReadOnlyReplica(Entity const& entity) {
  bool found = false;
  eachAdapter(entity, [&](ZolNboAttrLogSa const& adapter) {
    found |= adapter.nboAttrLogOut() && adapter.has(flagOutReadOnly);
  });
  return found;
}

// The adapter of an entity on a stream.

namespace {

Entity::ZolNboAttrLogSa* findAdapter(Entity const& entity, NboAttrLog::Out const* out) {
  for (auto const* at = entity.zolNotifiees().head(); at; at = ListRawGeneric::next(*at)) {
    PtrInterface::NotifieeConst* const reactor = at->zolRawReactor();
    if (!reactor || !reactor->isStreamAdapter()) continue;
    auto* const adapter = static_cast<Entity::ZolNboAttrLogSa*>(reactor);
    if (out && adapter->nboAttrLogOut() == out) return adapter;
    if (out && !demuxFor(out->reverseLog())) return nullptr;
  }
  return nullptr;
}

}  // namespace

Ptr<Entity::ZolNboAttrLogSa const> Entity::zolNboAttrLogSa(
    Ptr<NboAttrLog::Out const> const& out) const {
  return findAdapter(*this, out.get());
}

Ptr<Entity::ZolNboAttrLogSa> Entity::zolNboAttrLogSa(Ptr<NboAttrLog::Out const> const& out) {
  return findAdapter(*this, out.get());
}

// Ids of this runtime belong to one connection, so no adapter has a twin on another.
Ptr<Entity::ZolNboAttrLogSa> Entity::zolNboAttrLogSaForMsgChannel(
    Ptr<ZolNboAttrLogSa> const&) const {
  return nullptr;
}

Ptr<Entity::ZolNboAttrLogSa> Entity::zolNboAttrLogSaIs(Zol_BitSet, unsigned int,
                                                       Ptr<NboAttrLog::Out> const& out,
                                                       PtrInterface*) {
  if (!out) throwRangeException("null ValidPtr");
  throwInternalException(fwkType()->fullName() + " has no stream adapter");
}

Ptr<Entity::ZolNboAttrLogSa> Entity::zolNboAttrLogSaDel(Ptr<NboAttrLog::Out const> const& out) {
  NboAttrLog::Demuxer* const demuxer = out ? demuxFor(out->reverseLog()) : nullptr;
  if (!demuxer) return nullptr;
  Ptr<ZolNboAttrLogSa> adapter = zolNboAttrLogSa(out);
  if (adapter) demuxer->reactorDel(adapter->entityId());
  return adapter;
}

namespace {

// By way of the holder's type object, or of its adapter in a process that registers no attributes.
void announceHeld(Entity& holder, Entity& child, Ptr<NboAttrLog::Out> const& out) {
  if (ZolAttr const* const attr = holder.fwkType()->attr(child.parentAttrId())) {
    holder.fwkType()->childAttrLogIs(attr, Ptr<PtrInterface>(&child), out);
  } else {
    Entity::ZolNboAttrLogSa& adapter = *findAdapter(holder, out.get());
    NboAttrLog::announceHeldChild(adapter, child.parentAttrId(), adapter.zol_bitSet(), child);
  }
}

}  // namespace

// An entity is known when it and all its holders have been announced, up to a root or to one that
// was announced without its holder. What stands below such a one can be announced as a child, and
// what stands below nothing that the log knows, as an orphan.
std::uint64_t Entity::entityId(Ptr<NboAttrLog::Out const> const& out, bool announce, bool,
                               bool raise) {
  Ptr<NboAttrLog::Out> const stream(const_cast<NboAttrLog::Out*>(out.get()));
  NboAttrLog::Demuxer* const demuxer = stream ? stream->demuxer() : nullptr;
  if (!zolHasAttrLogInterface() || !demuxer) {
    if (demuxer) demuxer->unreplicatedInc();
    return 0;
  }
  std::vector<Entity*> chain;
  for (Entity* at = this; at; at = at->zolParent()) {
    chain.push_back(at);
    ZolNboAttrLogSa const* const adapter = findAdapter(*at, out.get());
    if (adapter && adapter->announcedAsOrphan()) break;
  }
  Entity* holder = nullptr;
  while (!chain.empty()) {
    ZolNboAttrLogSa const* const adapter = findAdapter(*chain.back(), out.get());
    bool const announced = adapter && adapter->announced();
    if (!announced && !dynamic_cast<Dir const*>(chain.back())) break;
    if (announced) holder = chain.back();
    chain.pop_back();
  }
  if (chain.empty()) return findAdapter(*this, out.get())->entityId().value;
  if (!holder) {
    demuxer->announceOrphan(*this);
  } else if (announce) {
    for (; !chain.empty(); chain.pop_back()) {
      Entity* const child = chain.back();
      NboAttrLog::Out::NestedMessage const nested(*stream);
      announceHeld(*holder, *child, stream);
      ZolNboAttrLogSa* const childAdapter = findAdapter(*child, out.get());
      if (!childAdapter) break;
      findAdapter(*holder, out.get())->doFixChildFlags(*childAdapter);
      childAdapter->doThis();
      holder = child;
    }
  }
  ZolNboAttrLogSa const* const adapter = findAdapter(*this, out.get());
  if (adapter && adapter->announced()) return adapter->entityId().value;
  demuxer->awaitedIs(*this);
  if (raise) throw EntityIdUnavailableException(fullName() + " has no id on this log yet");
  return 0;
}

}  // namespace Zol
