#include "host/zol/attrlog/entity_adapter.h"

#include "host/zol/dir.h"
#include "host/zol/registry/zol_type.h"

namespace Zol::NboAttrLog {

namespace {

using Token = Zol::Connection::Out::TransactToken;

// Says for the time of a flow-out that the reactions come from it, and puts back what was said
// before.
class HandlingScheduledFlowOutAnchor {
 public:
  explicit HandlingScheduledFlowOutAnchor(EntityAdapter& adapter)
      : adapter_(adapter), former_(adapter.has(flagScheduledFlowOut)) {
    adapter_.flagsIs(flagScheduledFlowOut, adapter_.flowOut() != nullptr);
  }
  ~HandlingScheduledFlowOutAnchor() { adapter_.flagsIs(flagScheduledFlowOut, former_); }
  HandlingScheduledFlowOutAnchor(HandlingScheduledFlowOutAnchor const&) = delete;
  HandlingScheduledFlowOutAnchor& operator=(HandlingScheduledFlowOutAnchor const&) = delete;

 private:
  EntityAdapter& adapter_;
  bool former_;
};

template <class Visit>
void eachRow(LogLevel const& level, Visit const& visit) {
  if (level.base) eachRow(*level.base, visit);
  for (LogRow const& row : level.rows) visit(row);
}

}  // namespace

void requireEnd(Inbound& message) {
  if (!message.prefixOnly && message.in.left() != 0) {
    message.in.malformed("message about attribute " + std::to_string(message.id) + " with " +
                         std::to_string(message.in.left()) + " bytes too many");
  }
}

EntityAdapter::~EntityAdapter() = default;

Hearing EntityAdapter::hearing(LogRow const& row) const {
  if (has(flagQuiet)) return Hearing::ignores;
  if (!has(flagApplying) && handlingFlowInFor(row.id)) return Hearing::ignores;
  if (!has(flagApplying) && isSilent()) return Hearing::silent;
  if (!nboAttrLogOut()) return Hearing::silent;
  if (has(flagApplying)) return Hearing::adopts;
  if (has(flagOutReadOnly) && !convertedToWritable(false)) doThrowReadOnly(row.attr(row.id));
  return Hearing::sends;
}

bool EntityAdapter::mayLeaveDirectly(AttributeId id, Out const& out) {
  if (has(flagScheduledFlowOut)) return true;
  if (out.hasSufficientBuffer() && !has(flagDeferOutput)) return true;
  flowFor(id);
  return false;
}

LevelFlowOut* EntityAdapter::flowFor(AttributeId id) {
  if (!levelFlow()) createFlowOutOnDemand();
  LevelFlowOut* const flow = levelFlow();
  if (flow) flow->attrIdIs(id);
  return flow;
}

// An adapter of several levels hears of a change once through each of them: it counts once.
void EntityAdapter::attributeOwed(LogRow const& row) {
  LevelFlowOut* const flow = levelFlow();
  if (!flow) return;
  bool const heardBefore = owedAt_ == entity()->mutationCounter();
  if (flow->bit(row.bit) && !heardBefore) streamDemuxer()->coalescedInc();
  flow->bitIs(row.bit, true);
  owedAt_ = entity()->mutationCounter();
}

bool EntityAdapter::mayLeave(LogRow const& row, Out const& out) {
  if (has(flagNoFlowOut)) {
    if (mayLeaveDirectly(row.id, out)) return true;
  } else if (prepareImmediateTransmission(row.id, !out.hasSufficientBuffer())) {
    levelFlow()->bitIs(row.bit, false);
    return true;
  }
  attributeOwed(row);
  return false;
}

void EntityAdapter::orphanIs(void (*write)(OutPtr const&, Entity const&)) {
  Ptr<Out> const out = nboAttrLogOut();
  out->nextHeaderIs({kOrphanEntityId, kOrphanAttrId, true, 0, 0, false});
  out << Token::open;
  out->currentPayloadSectionIs(PayloadSection::types);
  for (ZolType const* type = entity()->fwkType(); type && type != Entity::_fwkType();
       type = type->baseType()) {
    out << TypeId{type->fullName()};
  }
  out->currentPayloadSectionIs(PayloadSection::constructorParameters);
  write(out, *entity());
  out->currentPayloadSectionIs(PayloadSection::entityId);
  out << entityId() << Token::close;
  doThis();
}

AttributeId EntityAdapter::handleAttrFlowOut(AttributeId id) { return flowOutFrom(*level_, id); }

AttributeId EntityAdapter::flowOutFrom(LogLevel const& level, AttributeId id) {
  HandlingScheduledFlowOutAnchor const anchor(*this);
  Ptr<LevelFlowOut> const flow(levelFlow());
  if (!flow) return 0;
  flow->blockedIs(false);
  while (!flow->pendingAborts().empty()) {
    AttributeId const aborted = *flow->pendingAborts().begin();
    sendTransactionMarker(aborted, AttrTransactionType::abort, 0);
    flow->pendingAbortDel(aborted);
  }
  if (level.rows.empty()) return level.base ? flowOutFrom(*level.base, id) : 0;
  AttributeId const first = level.rows.front().id;
  if (id < first) {
    AttributeId const next = level.base ? flowOutFrom(*level.base, id) : 0;
    if (next != 0) return next;
    if (!continueFlowOut()) return first;
  }
  for (std::size_t i = 0; i < level.rows.size(); ++i) {
    LogRow const& row = level.rows[i];
    if (row.id < id) continue;
    bool const last = i + 1 == level.rows.size();
    flow->attrIdIs(row.id);
    bool finished = true;
    switch (row.kind) {
      case LogRow::Kind::scalar:
        if (flow->bit(row.bit)) row.react(*this, nullptr);
        break;
      case LogRow::Kind::text:
        if (flow->hasValueIter() || flow->bit(row.bit)) {
          finished = row.serialize(*this);
          flow->bitIs(row.bit, !finished);
        }
        break;
      case LogRow::Kind::collection:
        finished = row.serialize(*this);
        break;
    }
    if (flow->blocked()) return row.id;
    if (last) return finished ? 0 : row.id;
    if (continueFlowOut()) continue;
    if (!finished) return row.id;
    AttributeId const next = level.rows[i + 1].id;
    bool const owesMore = row.kind == LogRow::Kind::scalar || flow->hasDirtyAttributes();
    return owesMore ? next : 0;
  }
  return 0;
}

void EntityAdapter::freeResyncState(Ptr<NboAttrLog::FlowOut> const& flow) {
  LogRow const* const row = flow->attrId() == 0 ? nullptr : level_->find(flow->attrId());
  if (row && row->freeState) row->freeState(*flow);
}

void EntityAdapter::zolInstantiateSerialize() {
  StreamAdapter::zolInstantiateSerialize();
  eachRow(*level_, [this](LogRow const& row) {
    if (!row.hasChildren()) return;
    if (row.kind == LogRow::Kind::collection) {
      row.serialize(*this);
    } else {
      row.react(*this, nullptr);
    }
  });
}

void EntityAdapter::handleAttrDeserialization(AttributeId id, DeserializationOptions options,
                                              unsigned int size, Ptr<In> const& in) {
  Ptr<In> const input(in ? in.get() : nboAttrLogOut() ? nboAttrLogOut()->reverseLog() : nullptr);
  Ptr<Demuxer> const demuxer = streamDemuxer();
  if (!input || !demuxer || !entity()) return;
  std::optional<ApplyingEnd> end;
  if (!in) {
    if (has(flagApplying)) throwInternalException("entity reactor is already active");
    flagsIs(flagApplying, true);
    end.emplace(*this);
    if (has(flagInReadOnly) && !readOnlyRemoteOk(id) && !convertedToWritable(false)) {
      throwInternalException(String8("write-update from readonly proxy: ") + entity()->fullName() +
                             " peerName: " + String8(nboAttrLogOut()->peerName()));
    }
  }
  if (id == kSyncModeAttr) return syncModeArrived(*input);
  In::Position childIdAt = 0;
  if (id == kWrappedAttr || id == -kWrappedAttr) id = unwrapped(*input, id, childIdAt);
  LogRow const* const row = level_->find(id);
  auto* const read = !row ? nullptr : id > 0 ? row->apply : row->remove;
  if (!read) return doBaseZolNboAttrLogSaMsg(id, options, size, in);
  Inbound message{*input,   row->id, size, !in, options.prefixOnly, demuxer->flowIn(entityId()),
                  childIdAt};
  read(*this, message);
}

// A wrapper begins with two offsets from its start: where the child's message begins, and, unless
// 0, where the child's entity id stands. In between stand attribute ids; the first that is a child
// attribute of this class says what the message is.
AttributeId EntityAdapter::unwrapped(In& input, AttributeId id, In::Position& childIdAt) const {
  auto const isChild = [this](AttributeId candidate) {
    LogRow const* const row = level_->find(candidate);
    return row && row->hasChildren();
  };
  bool hasChildren = false;
  eachRow(*level_, [&](LogRow const& row) { hasChildren |= row.hasChildren(); });
  if (!hasChildren) return id;

  In::Position const start = input.position();
  std::uint16_t const message = input.nextU16();
  std::uint16_t const childId = input.nextU16();
  if (start + message > input.bound() || start + childId > input.bound()) {
    input.malformed("wrapper that points behind its end");
  }
  while (input.position() - start < message) {
    auto const candidate = static_cast<AttributeId>(input.nextU32());
    if (!isChild(candidate)) continue;
    if (start + message < input.position()) input.malformed("wrapper that points into itself");
    id = candidate;
    input.positionIs(start + message);
  }
  if (id > 0) input.nextU32();
  if (childId != 0) childIdAt = start + childId;
  return id;
}

void EntityAdapter::skipToChildId(Inbound& message) {
  if (message.childIdAt == 0) return;
  if (message.childIdAt < message.in.position()) message.in.malformed("wrapper that points back");
  message.in.nextBytes(nullptr,
                       static_cast<std::size_t>(message.childIdAt - message.in.position()));
}

// Reaches the adapters of this entity on all streams that know it by the same id, which is one that
// streams share. A connection allocates none; they come from whoever binds them.
void EntityAdapter::syncModeArrived(In& input) {
  SyncMode const mode = SyncModeInstance(input.nextU32());
  for (auto it = globalNboAttrLogDemuxerManager()->nboDemuxerIterator(); it; ++it) {
    Ptr<Entity::ZolNboAttrLogSa> const twin(it->reactor(entityId()));
    if (!twin || twin->zolNotifierEntity() != zolNotifierEntity() || !entityId().unified()) {
      continue;
    }
    struct Quiet {
      explicit Quiet(StreamAdapter& of) : adapter(of) { adapter.flagsIs(flagQuiet, true); }
      ~Quiet() { adapter.flagsIs(flagQuiet, false); }
      StreamAdapter& adapter;
    } const quiet(*twin);
    twin->syncModeIs(mode);
  }
  channelModeIs(MsgChannel::Mode::settled);
  auto* const dir = dynamic_cast<Dir*>(entity()->zolParent());
  if (mode != SyncMode::settle || !dir) return;
  flagsIs(flagApplying, false);
  Ptr<Dir::Entry> const entry = dir->entry(entity()->name());
  if (entry && entry->entity().get() == entity()) entry->settledIs(true);
}

void EntityAdapter::handleAttrTransaction(AttributeId id, AttrTransactionType type,
                                          unsigned int n) {
  Ptr<Demuxer> const demuxer = streamDemuxer();
  if (!demuxer) return;
  Ptr<FlowIn> flow = demuxer->flowIn(entityId());
  if (flow) {
    if (type == AttrTransactionType::end && flow->aid() == id) flow->handlingTransactionIs(true);
  } else if (!has(flagQuiet) && type == AttrTransactionType::begin) {
    flow = demuxer->flowInIs(entityId());
    flow->aidIs(id);
  }
  LogRow const* const row = id > 0 ? level_->find(id) : nullptr;
  if (row && row->transact && !row->transact(*this, type, flow.get())) return;
  Entity::ZolNboAttrLogSa::handleAttrTransaction(id, type, n);
}

Ptr<FlowOut> EntityAdapter::flowOutIs(Ptr<Out> const& out, ConnectDesc const& desc, bool flag,
                                      AttributeId start) {
  return new LevelFlowOut(*level_, out, this, desc, flag, start);
}

void EntityAdapter::doNotification(AttributeId id, void* key) {
  LogRow const* const row = level_->find(id);
  bool const keyed = row && row->kind == LogRow::Kind::collection;
  if (!row || !entity() || (id < 0 && !keyed)) return;
  row->react(*this, key);
}

void EntityAdapter::syncModeIs(SyncMode mode) {
  Entity::ZolNboAttrLogSa::syncModeIs(mode);
  syncTransaction();
}

// Where the sync mode and not the markers brackets a resynchronisation, a mode marks or sweeps all
// that a transaction would.
void EntityAdapter::syncTransaction() {
  Ptr<Demuxer> const demuxer = streamDemuxer();
  if (!demuxer || demuxer->syncLevel() >= 2 || !has(flagApplying)) return;
  auto const type =
      syncMode() == SyncMode::mark ? AttrTransactionType::begin : AttrTransactionType::end;
  for (LogRow const& row : level_->rows) {
    if (row.transact && row.kind != LogRow::Kind::text) handleAttrTransaction(row.id, type, 0);
  }
}

// Children first: they are looked up by the stream that this adapter is on.
void EntityAdapter::doRemountSelf(Ptr<Out> const& out) {
  if (entity()) {
    eachRow(*level_, [this](LogRow const& row) {
      if (row.dropAdapters) row.dropAdapters(*this);
    });
  }
  Entity::ZolNboAttrLogSa::doRemountSelf(out);
}

void EntityAdapter::adopt(Ptr<Entity> const& child) {
  if (!child) return;
  Ptr<Out> const out = nboAttrLogOut();
  Ptr<In> const in(out->reverseLog());
  // This end has made the child too and could not say so yet, nor what it has put into it since.
  bool const madeHereToo = isReplica() && has(flagStreaming) && levelFlow() &&
                           child->mutationCounter() != 0 && !child->zolNboAttrLogSa(out);
  Ptr<Entity::ZolNboAttrLogSa> const adapter =
      child->zolNboAttrLogSaIs(childFlags(), 1, out, msgChannelEntry());
  In::Position const at = in->position();
  EntityId const id = in->nextEntityId();
  adapter->doEntityIdIs(id, *demuxFor(in.get()), true);
  if (!entityId().unified()) in->overwrite(at, entityId().value);
  adapter->flagsIs(flagStale, false);
  if (adapter->flowOut()) demuxFor(in.get())->enqueue(*adapter);
  if (madeHereToo) adapter->sendLacks(child->parentAttrId(), {});
}

Ptr<Entity::ZolNboAttrLogSa> EntityAdapter::announceChild(
    AttributeId id, Zol_BitSet flags, Entity& child, unsigned int n, OutPtr const& out,
    PtrInterface* msgChannelEntry, void (*write)(OutPtr const&, Entity const&)) {
  Ptr<Entity::ZolNboAttrLogSa> const present = child.zolNboAttrLogSa(nboAttrLogOut());
  // What the peer knows as an entity without a parent becomes a child under another id.
  if (present) streamDemuxer()->orphanDel(*present);
  Ptr<Entity::ZolNboAttrLogSa> const adapter =
      child.zolNboAttrLogSaIs(flags, n, out, msgChannelEntry);
  if (adapter == present && adapter->has(flagAnnounced)) return adapter;
  adapter->zolOnInit();
  Expect const scope(48);
  for (;;) {
    try {
      out->nextHeaderIs({entityId(), id, true, 0, kChildMark, false});
      out << Token::open;
      write(out, child);
      out << adapter->entityId() << Token::close;
      return adapter;
    } catch (AttrLogRecordException const&) {
      continue;
    }
  }
}

void EntityAdapter::childLeaves(LogRow const& row, Entity& child) {
  Ptr<Entity::ZolNboAttrLogSa> const adapter = row.announce(*this, childFlags(), child);
  doFixChildFlags(*adapter);
  if (syncMode() == SyncMode::mark || has(flagScheduledFlowOut)) adapter->doThis();
  // The peer may hold more of the child than this end does.
  if (answers_ && !adapter->flowOut()) adapter->walkAgain();
}

void EntityAdapter::heldChildLeaves(AttributeId id, Zol_BitSet flags, Entity& child) {
  LogRow const* const row = level_->find(id);
  if (row && row->hasChildren()) row->announce(*this, flags, child);
}

Ptr<Entity::ZolNboAttrLogSa> EntityAdapter::childAdapterDel(Entity* child) {
  if (!child) return nullptr;
  Ptr<Entity::ZolNboAttrLogSa> adapter = child->zolNboAttrLogSa(nboAttrLogOut());
  if (adapter) adapter->doRemountSelf(nullptr);
  return adapter;
}

// What the source does not know yet is no part of its bracket: it goes on streaming.
void EntityAdapter::childStale(Entity* child) const {
  if (!child || isUnknownToSource(child)) return;
  if (Ptr<Entity::ZolNboAttrLogSa> const adapter = child->zolNboAttrLogSa(nboAttrLogOut())) {
    adapter->flagsIs(flagStale, true);
  }
}

bool EntityAdapter::isUnconfirmed(Entity& child) const {
  Ptr<Entity::ZolNboAttrLogSa> const adapter = child.zolNboAttrLogSa(nboAttrLogOut());
  return !adapter || adapter->has(flagStale);
}

bool EntityAdapter::isUnknownToSource(Entity* child) const {
  Ptr<In> const in(nboAttrLogOut()->reverseLog());
  if (!child || !isReplica() || !in || !in->seen()) return false;
  Ptr<Entity::ZolNboAttrLogSa> const adapter = child->zolNboAttrLogSa(nboAttrLogOut());
  return adapter && !adapter->entityId().fromPeer() &&
         adapter->messageOrder().announcedBehind(*in->seen());
}

bool EntityAdapter::isRemovalOfTwin(Entity* child) const {
  if (!isUnknownToSource(child)) return false;
  demuxFor(nboAttrLogOut()->reverseLog())->twinDel(*child->zolNboAttrLogSa(nboAttrLogOut()));
  return true;
}

EntityId EntityAdapter::peekEntityId(Inbound& message) {
  In::Position const at = message.in.position();
  EntityId const id = message.in.nextEntityId();
  if (message.in.left() != 0) {
    message.in.malformed("announcement with " + std::to_string(message.in.left()) +
                         " bytes too many");
  }
  message.in.positionIs(at);
  return id;
}

void EntityAdapter::answer(AttributeId id, In& in) {
  LogRow const* const row = level_->find(id);
  if (!row) return;
  struct Anew {
    explicit Anew(EntityAdapter& of) : adapter(of) {
      adapter.answers_ = true;
      adapter.flagsIs(flagAnnounced, false);
    }
    ~Anew() {
      adapter.answers_ = false;
      adapter.recomputeBits();
    }
    EntityAdapter& adapter;
  } const anew(*this);
  if (!row->answer) return row->react(*this, nullptr);
  Inbound message{in, id, static_cast<unsigned int>(in.left()), false, false, nullptr};
  row->answer(*this, message);
}

void answerPeer(Entity::ZolNboAttrLogSa& adapter, AttributeId id, In& in) {
  auto* const rows = dynamic_cast<EntityAdapter*>(&adapter);
  if (rows && rows->entity()) rows->answer(id, in);
}

void announceHeldChild(Entity::ZolNboAttrLogSa& holder, AttributeId id, Entity::Zol_BitSet flags,
                       Entity& child) {
  auto* const adapter = dynamic_cast<EntityAdapter*>(&holder);
  if (adapter) adapter->heldChildLeaves(id, flags, child);
}

}  // namespace Zol::NboAttrLog
