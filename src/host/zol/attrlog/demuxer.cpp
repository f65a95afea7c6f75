#include "host/zol/attrlog/demuxer.h"

#include <algorithm>

#include "host/zol/attrlog/dispatching.h"
#include "host/zol/attrlog/stream_adapter.h"
#include "host/zol/expect.h"

namespace Zol {

GiveWayException::~GiveWayException() = default;

namespace NboAttrLog {

namespace {

thread_local Demuxer* currentDemuxer = nullptr;

[[noreturn]] void refuseId(EntityId id, char const* reason) {
  throw AttrLogEntityException(
      format("entity id %#llx refused: %s", static_cast<unsigned long long>(id.value), reason));
}

}  // namespace

Demuxer* dispatchingDemuxer() noexcept { return currentDemuxer; }

Demuxer::DispatchScope::DispatchScope(Demuxer& demuxer, Entity const* entity)
    : demuxer_(demuxer), former_(currentDemuxer) {
  currentDemuxer = &demuxer;
  demuxer_.dispatch_ = entity;
  demuxer_.dispatchDepth_ = Expect::depth();
}

Demuxer::DispatchScope::~DispatchScope() {
  demuxer_.dispatch_ = nullptr;
  currentDemuxer = former_;
}

Demuxer::Demuxer(Ptr<Out> out, Ptr<In> in, std::size_t maxEntities, std::size_t maxPartialTexts,
                 std::size_t turnBudget)
    : out_(std::move(out)),
      in_(std::move(in)),
      maxEntities_(maxEntities),
      maxPartialTexts_(maxPartialTexts),
      turnBudget_(turnBudget) {
  out_->ownerIs(in_.get(), this);
  in_->demuxerIs(this);
  globalNboAttrLogDemuxerManager()->demuxerIs(*this);
}

Demuxer::~Demuxer() { shutDown(); }

EntityId Demuxer::idAllocate() {
  do {
    nextId_ += 2;
  } while (EntityId(nextId_ - 2).reserved());
  return EntityId(nextId_ - 2);
}

bool Demuxer::allocatedHere(EntityId id) const noexcept {
  return !id.fromPeer() && id.value >= kFirstId && id.value < nextId_;
}

void Demuxer::reactorIs(EntityId id, Entity::ZolNboAttrLogSa* adapter) {
  reactors_[id.value] = adapter;
}

Entity::ZolNboAttrLogSa* Demuxer::reactor(EntityId id) const {
  auto const found = reactors_.find(id.value);
  return found == reactors_.end() ? nullptr : found->second.get();
}

Entity* Demuxer::entity(EntityId id) const {
  Entity::ZolNboAttrLogSa const* const adapter = reactor(id);
  return adapter ? adapter->entity() : nullptr;
}

std::vector<Ptr<Entity>> Demuxer::receivedWithoutHolder() const {
  std::map<std::uint64_t, Ptr<Entity>> byId;
  for (auto const& [id, adapter] : reactors_) {
    Entity* const entity = adapter->isReplica() ? adapter->entity() : nullptr;
    if (entity && !entity->zolParent()) byId.emplace(adapter->entityId().value, entity);
  }
  std::vector<Ptr<Entity>> found;
  for (auto const& [id, entity] : byId) found.push_back(entity);
  return found;
}

void Demuxer::sweptIs(Ptr<Entity> const& child) {
  if (!child->zolParent() && !child->zolNboAttrLogSa(out_)) swept_.push_back(child);
}

void Demuxer::sweepEnds() {
  std::vector<Ptr<Entity>> ending;
  std::erase_if(swept_, [&](Ptr<Entity> const& child) {
    if (child->references() > 1) return false;
    ending.push_back(child);
    return true;
  });
}

std::map<std::string, std::size_t> Demuxer::owed() const {
  std::map<std::string, std::size_t> owed;
  for (auto const& [id, adapter] : reactors_) {
    FlowOut const* const flow = id == adapter->entityId().value ? adapter->flowOut() : nullptr;
    if (!flow) continue;
    for (Name const& name : flow->owedAttributes()) ++owed[std::string(name.view())];
  }
  return owed;
}

void Demuxer::idDel(EntityId id) {
  if (reactors_.erase(id.value) != 0 && id.fromPeer()) --boundByPeer_;
  flowIns_.erase(id.value);
}

void Demuxer::reactorDel(EntityId id) {
  Ptr<Entity::ZolNboAttrLogSa> const adapter(reactor(id));
  if (!adapter) return;
  flowOutDel(*adapter);
  dequeue(*adapter);
  for (EntityId const other : adapter->otherIds_) idDel(other);
  adapter->otherIds_.clear();
  idDel(adapter->entityId_);
}

void Demuxer::bind(Entity::ZolNboAttrLogSa& adapter, EntityId id) {
  Entity::ZolNboAttrLogSa const* const known = reactor(id);
  if (known && known != &adapter) in_->malformed("entity id announced for two entities");
  if (!known) {
    if (adapter.entityId_.value == 0) {
      adapter.entityId_ = id;
    } else if (adapter.entityId_.fromPeer() == id.fromPeer() || isGivenUp(adapter)) {
      idDel(adapter.entityId_);
      adapter.entityId_ = id;
    } else {
      // Both ends have made the child at once: messages come under either id, and go under the
      // first.
      for (EntityId const other : adapter.otherIds_) idDel(other);
      adapter.otherIds_.assign(1, id);
    }
    reactorIs(id, &adapter);
    if (id.fromPeer()) ++boundByPeer_;
  }
  // The peer knows the entity from now on, as if it had been announced to it.
  adapter.announced_ = true;
  adapter.streams_ = true;
  adapter.walkDone_ = true;
  adapter.recomputeBits();
}

Entity* Demuxer::named(EntityId id) {
  Entity::ZolNboAttrLogSa* const adapter = reactor(id);
  if (!adapter) return nullptr;
  if (id != adapter->entityId_ && dispatch_ && adapter->isReplica()) {
    Ptr<Entity::ZolNboAttrLogSa const> const namer = dispatch_->zolNboAttrLogSa(out_);
    if (namer && namer->isReplica()) adapter->messageOrder().namedBy(namer->entityId());
  }
  return adapter->entity();
}

void Demuxer::twinDel(Entity::ZolNboAttrLogSa& adapter) {
  for (EntityId const other : adapter.otherIds_) idDel(other);
  adapter.otherIds_.clear();
  for (std::uint64_t const id : adapter.messageOrder().namersDel()) {
    if (Entity::ZolNboAttrLogSa* const namer = reactor(EntityId(id))) namer->sendLacks(0, {});
  }
}

void Demuxer::requireAnnounceable(EntityId id, Entity const* parent) const {
  if (id.reserved()) refuseId(id, "reserved");
  if (id.unified()) refuseId(id, "ids shared between connections are not used");
  if (!id.fromPeer() && !allocatedHere(id)) refuseId(id, "never allocated");
  if (Entity const* const bound = entity(id)) {
    if (bound->zolParent() == parent) return;
    in_->strangeIdIs(id);
    refuseId(id, "names an entity with another parent");
  } else if (boundByPeer_ >= maxEntities_) {
    refuseId(id, "too many entities");
  }
}

// The peer knew this end's announcement when it announced the entity under an id of its own.
bool Demuxer::isGivenUp(Entity::ZolNboAttrLogSa& adapter) const {
  return in_->seen() && adapter.messageOrder().announcedUpTo(*in_->seen());
}

void Demuxer::requireNotAnother(EntityId id, Entity const* present) const {
  Entity const* const bound = entity(id);
  if (!bound || bound == present) return;
  in_->strangeIdIs(id);
  refuseId(id, "names another entity");
}

bool Demuxer::checkEphemeralEntityDeletion(Entity* present, EntityId const& id, bool keyed) {
  requireNotAnother(id, present);
  if (!present) return false;
  Ptr<Entity::ZolNboAttrLogSa> const adapter = present->zolNboAttrLogSa(out_);
  if (!adapter || reactor(id) == adapter.get()) return false;
  auto const sameEnd = [&](EntityId known) {
    return known.value != 0 && known.fromPeer() == id.fromPeer();
  };
  if (!sameEnd(adapter->entityId_) && std::ranges::none_of(adapter->otherIds_, sameEnd)) {
    return false;
  }
  if (keyed) throw GiveWayException("replaced by its source");
  return true;
}

void Demuxer::createFlowOut(StreamAdapter& adapter, ConnectDesc const& desc, bool flag,
                            AttributeId start) {
  auto& entityAdapter = static_cast<Entity::ZolNboAttrLogSa&>(adapter);
  if (!adapter.flowOut_) {
    adapter.flowOut_ = adapter.flowOutIs(out_, desc, flag, start);
    entityAdapter.resume_ = 0;
    entityAdapter.recomputeBits();
  }
  enqueue(entityAdapter);
}

void Demuxer::flowOutDel(Entity::ZolNboAttrLogSa& adapter) {
  if (!adapter.flowOut_) return;
  adapter.freeResyncState(adapter.flowOut_);
  adapter.flowOut_ = nullptr;
  adapter.resume_ = 0;
  adapter.parked_ = false;
  adapter.idleRounds_ = 0;
  adapter.recomputeBits();
}

void Demuxer::enqueue(Entity::ZolNboAttrLogSa& adapter) {
  adapter.parked_ = false;
  if (adapter.queued_) return;
  adapter.queued_ = true;
  adapter.queuedAt_ = queue_.emplace(queue_.end(), &adapter);
}

void Demuxer::dequeue(Entity::ZolNboAttrLogSa& adapter) {
  if (!adapter.queued_) return;
  adapter.queued_ = false;
  queue_.erase(adapter.queuedAt_);
}

void Demuxer::messageCommitted(EntityId id, AttributeId attribute) {
  if (Entity::ZolNboAttrLogSa* const adapter = reactor(id)) {
    adapter->messageOrder().sent(attribute, out_->framesCommitted());
  }
}

// What the peer says that it lacks is announced again under a fresh id, by the holder or as an
// entity without one. A peer that refuses it each time does not keep both ends busy.
void Demuxer::peerLacks(Entity::ZolNboAttrLogSa& adapter, EntityId referred) {
  Ptr<Entity::ZolNboAttrLogSa> const hold(&adapter);
  if (Ptr<Entity::ZolNboAttrLogSa> const lacked = reactor(referred)) {
    Ptr<Entity> const entity(lacked->entity());
    if (lacked_.size() > kMostCounted) lacked_.clear();
    if (!entity || ++lacked_[entity.get()] > kMostLacks) return;
    Entity* const holder = entity->zolParent();
    Ptr<Entity::ZolNboAttrLogSa> const above = holder ? holder->zolNboAttrLogSa(out_) : nullptr;
    if (above || lacked->orphan_) retire(*lacked);
    if (above) above->walkAgain();
  }
  if (adapter.entity() && adapter.nboAttrLogOut()) adapter.walkAgain();
}

void Demuxer::announcementCommitted(EntityId id) {
  Entity::ZolNboAttrLogSa* const adapter = reactor(id);
  if (!adapter) return;
  adapter->announcementCommitted();
  if (out_->numbersMessages()) adapter->messageOrder().announced(out_->framesCommitted());
  auto const [first, last] = waiters_.equal_range(adapter->entity());
  wake(first, last);
}

void Demuxer::waitsFor(Entity::ZolNboAttrLogSa& adapter, Entity const& entity) {
  auto const [first, last] = waiters_.equal_range(&entity);
  auto const isKnown = [&](auto const& waiter) { return waiter.second == adapter.entityId_; };
  if (std::none_of(first, last, isKnown)) waiters_.emplace(&entity, adapter.entityId_);
}

void Demuxer::wakeAll() { wake(waiters_.begin(), waiters_.end()); }

void Demuxer::wake(Waiters::const_iterator first, Waiters::const_iterator last) {
  for (auto it = first; it != last; ++it) {
    Entity::ZolNboAttrLogSa* const waiter = reactor(it->second);
    if (waiter && waiter->parked_) {
      waiter->idleRounds_ = 0;
      enqueue(*waiter);
    }
  }
  waiters_.erase(first, last);
}

void Demuxer::refuseMember() const {
  throwRangeException(format("more than %zu members in a collection", maxMembers_));
}

void Demuxer::announceOrphan(Entity& entity) {
  if (!orphanContext_) orphanContext_ = new MountContext(true, false);
  Out::NestedMessage const nested(*out_);
  Ptr<Entity::ZolNboAttrLogSa> const adapter =
      entity.zolNboAttrLogSaIs({flagInReadOnly | flagWeak}, 1, out_, orphanContext_.get());
  adapter->zolOnInit();
  adapter->orphan_ = true;
  adapter->doSerializeOrphan();
}

bool Demuxer::orphanDel(Entity::ZolNboAttrLogSa& adapter) {
  if (!adapter.orphan_) return false;
  Ptr<Entity::ZolNboAttrLogSa> const hold(&adapter);
  adapter.orphan_ = false;
  if (adapter.announced_) {
    out_->frameIs(FrameKind::forget, [&] { out_->u64Is(adapter.entityId_.value); });
  }
  retire(adapter);
  return true;
}

void Demuxer::retire(Entity::ZolNboAttrLogSa& adapter) {
  adapter.hasNotificationActiveIs(false);
  reactorDel(adapter.entityId_);
  adapter.outDel();
}

bool Demuxer::continueFlowOut() {
  if (out_->freeSpace() < out_->maxMessageSize() || out_->bytesCommitted() >= turnEnd_) {
    stopped_ = true;
  }
  return !stopped_;
}

bool Demuxer::turn() {
  out_->openMessageDel();
  turnEnd_ = out_->bytesCommitted() + turnBudget_;
  std::size_t const round = queue_.size();
  bool worked = false;
  for (std::size_t i = 0; i < round && !queue_.empty(); ++i) {
    stopped_ = false;
    if (!continueFlowOut()) break;
    Ptr<Entity::ZolNboAttrLogSa> const adapter = std::move(queue_.front());
    queue_.pop_front();
    adapter->queued_ = false;
    Ptr<Entity> const entity(adapter->entity());
    if (entity && adapter->nboAttrLogOut()) {
      run(*adapter);
    } else {
      flowOutDel(*adapter);
    }
    worked = true;
  }
  return worked;
}

void Demuxer::run(Entity::ZolNboAttrLogSa& adapter) {
  Ptr<FlowOut> const flow = adapter.flowOut_;
  if (!flow) return;
  // An adapter that awaits confirmation is silent: what it owes would count as paid.
  if (adapter.has(flagStale)) {
    adapter.parked_ = true;
    return;
  }
  AttributeId start = adapter.resume_;
  if (start == 0 && flow->hasValueIter() && flow->start() == kOwesOnlyMarks) {
    start = flow->attrId();
  }
  std::uint64_t const before = out_->bytesCommitted();
  struct Scheduled {
    explicit Scheduled(Out& out) : out_(out) { out_.scheduledIs(true); }
    ~Scheduled() { out_.scheduledIs(false); }
    Out& out_;
  };
  AttributeId next = 0;
  {
    Scheduled const scope(*out_);
    awaited_ = nullptr;
    next = adapter.handleAttrFlowOut(start);
  }
  stopped_ = false;
  if (adapter.flowOut_ != flow) return;
  bool const blocked = next != 0 && flow->blocked();
  if (blocked && awaited_) waitsFor(adapter, *awaited_);
  bool const wrote = out_->bytesCommitted() != before;
  adapter.idleRounds_ = wrote ? 0 : adapter.idleRounds_ + 1;
  if (next == 0 && !flow->hasDirtyAttributes()) {
    adapter.flowOut_ = nullptr;
    adapter.resume_ = 0;
    adapter.idleRounds_ = 0;
    adapter.walkDone_ = true;
    adapter.recomputeBits();
    adapter.doThis();
    return;
  }
  // What stands behind a reference that waits goes on without it; a walk or a text does not. What
  // has come to be owed in front of that is paid first.
  bool const holdsPlace = flow->hasBookmark() || flow->hasValueIter();
  bool const waits = blocked && holdsPlace;
  bool const fromTheStart = adapter.resume_ == 0;
  adapter.resume_ = waits ? 0 : blocked ? next + 1 : next;
  if (waits ? fromTheStart : next == 0 && adapter.idleRounds_ >= kIdleRounds) {
    adapter.parked_ = true;
  } else {
    enqueue(adapter);
  }
}

Ptr<FlowIn> Demuxer::flowIn(EntityId const& id) const {
  auto const found = flowIns_.find(id.value);
  return found == flowIns_.end() ? nullptr : found->second;
}

Ptr<FlowIn> Demuxer::flowInIs(EntityId const& id) {
  Ptr<FlowIn>& flow = flowIns_[id.value];
  if (!flow) flow = new FlowIn(partialBytes_);
  return flow;
}

void Demuxer::partialTextGrew(FlowIn& flow) {
  if (flow.accounted() > maxPartialTexts_) {
    in_->malformed("partial texts of more than " + std::to_string(maxPartialTexts_) + " bytes");
  }
}

bool Demuxer::dispatchConcerns(Entity const& entity) const noexcept {
  return dispatch_ && Expect::depth() == dispatchDepth_ + 1 &&
         (&entity == dispatch_ || entity.zolParent() == dispatch_);
}

void Demuxer::shutDown() {
  globalNboAttrLogDemuxerManager()->demuxerDel(*this);
  queue_.clear();
  flowIns_.clear();
  auto const reactors = std::move(reactors_);
  reactors_.clear();
  for (auto const& [id, adapter] : reactors) {
    adapter->queued_ = false;
    flowOutDel(*adapter);
    adapter->hasNotificationActiveIs(false);
    adapter->outDel();
    adapter->entityId_ = {};
  }
  out_->ownerIs(nullptr, nullptr);
  in_->demuxerIs(nullptr);
}

DemuxerManager::Iterator DemuxerManager::nboDemuxerIterator() const {
  std::scoped_lock const lock(mutex_);
  std::vector<Ptr<Demuxer>> all;
  for (Demuxer* const demuxer : demuxers_) all.emplace_back(demuxer);
  return Iterator(std::move(all));
}

void DemuxerManager::demuxerIs(Demuxer& demuxer) {
  std::scoped_lock const lock(mutex_);
  demuxers_.push_back(&demuxer);
}

void DemuxerManager::demuxerDel(Demuxer& demuxer) {
  std::scoped_lock const lock(mutex_);
  std::erase(demuxers_, &demuxer);
}

}  // namespace NboAttrLog

// Never destroyed: connections may outlive what is destroyed at the end of the process.
NboAttrLog::DemuxerManager* globalNboAttrLogDemuxerManager() {
  static auto* const manager = new NboAttrLog::DemuxerManager;
  return manager;
}

}  // namespace Zol
