// What a connection does with the frames of its peer.
#include <algorithm>
#include <cstdlib>

#include "host/zol/attrlog/connection.h"
#include "host/zol/attrlog/entity_adapter.h"
#include "host/zol/registry/zol_type.h"

namespace Zol::NboAttrLog {

namespace {

// A peer must take in what a text is cut into.
constexpr std::uint32_t kMinPeerFrame = kMaxMessageSize;

// Wrapped messages and sync modes are for peers that announce them as a feature; no version does.
bool isFeature(AttributeId id) { return id == kSyncModeAttr || std::abs(id) == kWrappedAttr; }

}  // namespace

void Connection::frameArrived() {
  in_->frameBegins();
  std::uint8_t const number = in_->nextU8();
  auto const kind = static_cast<FrameKind>(number);
  if ((phase_ == Phase::hello) != (kind == FrameKind::hello)) {
    in_->malformed(phase_ == Phase::hello ? "the peer sent no hello: is it an attribute log?"
                                          : "second hello");
  }
  switch (kind) {
    case FrameKind::hello:
      return helloArrived();
    case FrameKind::mount:
      return mountArrived();
    case FrameKind::data:
      return dataArrived();
    case FrameKind::mark:
      return markArrived();
    case FrameKind::synced:
      return syncedArrived();
    case FrameKind::forget:
      return forgetArrived();
    case FrameKind::lacks:
      return lacksArrived();
    case FrameKind::bye:
      return byeArrived();
    case FrameKind::alive:
      return requireFrameEnd("alive frame");
  }
  if ((number & kSkippableKind) == 0) {
    in_->malformed("frame of unknown kind " + std::to_string(number));
  }
  ++counters_.unknown;
}

void Connection::requireFrameEnd(char const* what) {
  if (in_->left() != 0) {
    in_->malformed(std::string(what) + " with " + std::to_string(in_->left()) + " bytes too many");
  }
}

Name Connection::nameArrived(char const* what) {
  Name name = in_->nextString();
  if (name.size() > options_.maxNameLength) {
    in_->malformed(std::string(what) + " of " + std::to_string(name.size()) + " bytes, at most " +
                   std::to_string(options_.maxNameLength) + " allowed");
  }
  return name;
}

void Connection::helloArrived() {
  if (in_->nextU32() != kMagic) in_->malformed("wrong magic in hello: is it an attribute log?");
  std::uint16_t const version = in_->nextU16();
  std::uint16_t const oldest = in_->nextU16();
  if (version < kOldestVersion || kVersion < oldest) {
    in_->malformed("no common version: the peer speaks " + std::to_string(oldest) + " to " +
                   std::to_string(version) + ", this end " + std::to_string(kOldestVersion) +
                   " to " + std::to_string(kVersion));
  }
  in_->nextU32();  // features: none yet
  std::uint32_t const maxFrame = in_->nextU32();
  if (maxFrame < kMinPeerFrame) {
    in_->malformed("the peer takes frames of " + std::to_string(maxFrame) +
                   " bytes, this end needs " + std::to_string(kMinPeerFrame));
  }
  in_->nextU32();  // longest text; ours are cut by our own limit
  in_->nextU64();  // schema hash: a difference is no error
  Name const name = nameArrived("name of the peer");
  requireFrameEnd("hello frame");
  out_->maxFrameIs(maxFrame);
  if (options_.peerName.empty()) options_.peerName = name;
  out_->peerNameIs(options_.peerName);
  store_ = PeerStore::of(options_.peerName);
  phase_ = Phase::live;
  for (OwnMount& mount : ownMounts_) announce(mount);
}

void Connection::mountArrived() {
  EntityId const id = in_->nextEntityId();
  std::uint8_t const access = in_->nextU8();
  if (access > 1) in_->malformed("mount with access " + std::to_string(access));
  Name const name = nameArrived("name of a root");
  requireFrameEnd("mount frame");
  if (id.reserved() || id.unified() || !id.fromPeer()) in_->malformed("mount with a reserved id");
  for (PeerMount const& mount : peerMounts_) {
    if (mount.id == id || mount.name == name) {
      ++counters_.refused;
      return;
    }
  }
  if (peerMounts_.size() >= options_.maxMounts) {
    ++counters_.refused;
    return;
  }
  peerMounts_.push_back({id, name, new MountContext(false, access == 1), nullptr});
  if (access == 1) out_->numbersMessagesIs(true);
}

Connection::PeerMount* Connection::peerMount(EntityId id) {
  for (PeerMount& mount : peerMounts_) {
    if (mount.id == id) return &mount;
  }
  return nullptr;
}

template <class Call>
bool Connection::apply(Entity::ZolNboAttrLogSa& adapter, AttributeId id, Call&& call) {
  Ptr<Entity::ZolNboAttrLogSa> const holdAdapter(&adapter);
  Ptr<Entity> const holdEntity(adapter.entity());
  auto const dropPartialText = [&] {
    Ptr<FlowIn> const flow = demuxer_->flowIn(adapter.entityId());
    if (flow && flow->aid() == id) demuxer_->flowInDel(adapter.entityId());
  };
  bool applied = false;
  try {
    Demuxer::DispatchScope const scope(*demuxer_, holdEntity.get());
    call();
    applied = true;
  } catch (MalformedMessageException const&) {
    throw;
  } catch (Exception const&) {
    ++counters_.refused;
    dropPartialText();
  } catch (...) {
    ++counters_.listenerFailures;
    dropPartialText();
  }
  // A notification pass swallows what is thrown inside it, but not this.
  if (!in_->error().empty()) throw MalformedMessageException(in_->error());
  return applied;
}

void Connection::dataArrived() {
  EntityId const id = in_->nextEntityId();
  auto const attrId = static_cast<AttributeId>(in_->nextU32());
  std::uint8_t const bits = in_->nextU8();
  std::uint32_t const fixedSize = (bits & kDataFixedSize) != 0 ? in_->nextU32() : 0;
  if ((bits & kDataChildMark) != 0) in_->nextU32();
  if ((bits & kDataSeen) != 0) in_->seenIs(in_->nextU32());
  auto const size = static_cast<unsigned int>(in_->left());
  if ((bits & kDataVariable) == 0 && size != fixedSize) {
    in_->malformed("payload of " + std::to_string(size) + " bytes, " + std::to_string(fixedSize) +
                   " announced");
  }
  ++counters_.messagesIn;
  if (id == kOrphanEntityId) {
    if (attrId == kOrphanAttrId) return orphanArrived();
    ++counters_.unknown;
    return;
  }
  Entity::ZolNboAttrLogSa* const adapter = demuxer_->reactor(id);
  if (!adapter || isFeature(attrId)) {
    ++counters_.unknown;
    return;
  }
  In::Position const payload = in_->position();
  auto const dispatch = [&](AttributeId what, bool prefixOnly = false) {
    in_->positionIs(payload);
    adapter->handleAttrDeserialization(what, {prefixOnly}, size, nullptr);
  };
  // The source has another entity under the key than this replica: the member here goes first. An
  // announcement begins with the key, as a removal does.
  auto const replace = [&] {
    dispatch(-attrId, true);
    dispatch(attrId);
  };
  if (in_->seen()) {
    // A text in pieces was written when its first piece was.
    Ptr<FlowIn> const begun = demuxer_->flowIn(adapter->entityId());
    if (begun && begun->aid() == attrId && begun->hasIter() && begun->seen()) {
      in_->seenIs(*begun->seen());
    }
  }
  bool const replica = adapter->isReplica();
  Ptr<Entity::ZolNboAttrLogSa> const hold(adapter);
  bool const applied = apply(*adapter, attrId, [&] {
    try {
      dispatch(attrId);
    } catch (GiveWayException const&) {
      replace();
    } catch (NameInUseException const&) {
      if (!replica || attrId < 0) throw;
      replace();
    }
  });
  if (out_->numbersMessages()) settle(*adapter, attrId, applied, payload);
}

bool Connection::ownsForBoth(Entity::ZolNboAttrLogSa const& adapter) {
  return !adapter.isReplica() && !adapter.has(flagInReadOnly);
}

// The owner's order decides. It applies what the peer has written, and when the peer had not seen
// the last that the owner said of the attribute, or the owner is still saying it, it says once more
// what holds now: that is the last that either end hears. What it refused it answers too.
//
// A replica that does not know what a message names has taken that out itself, or has put another
// in its place, and its word is on the way: the owner is told what is strange here.
void Connection::settle(Entity::ZolNboAttrLogSa& adapter, AttributeId id, bool applied,
                        In::Position payload) {
  if (!adapter.entity() || !adapter.nboAttrLogOut()) return;
  bool answers = false;
  if (ownsForBoth(adapter)) {
    Ptr<FlowIn> const flow = demuxer_->flowIn(adapter.entityId());
    bool const underWay = flow && flow->aid() == id && flow->hasIter();
    if (underWay) flow->seenIs(in_->seen());
    bool const crossed =
        adapter.flowOut() || (in_->seen() && adapter.messageOrder().sentBehind(id, *in_->seen()));
    answers = !applied || (crossed && !underWay);
  } else if (adapter.has(flagStreaming) && !applied && in_->strangeId().value != 0) {
    adapter.sendLacks(id, in_->strangeId());
  }
  if (!answers) return;
  in_->frameTaken();
  in_->positionIs(payload);
  try {
    answerPeer(adapter, id, *in_);
  } catch (MalformedMessageException const&) {
    throw;
  } catch (Exception const&) {
    ++counters_.listenerFailures;
  }
}

void Connection::orphanArrived() {
  std::vector<String8> typeNames;
  In::Position parameters = 0;
  In::Position parametersEnd = 0;
  EntityId id;
  In::Position const messageEnd = in_->bound();
  for (std::size_t sections = 0; in_->left() != 0; ++sections) {
    if (sections == options_.maxOrphanSections) in_->malformed("too many sections in an orphan");
    std::uint8_t const section = in_->nextU8();
    std::uint32_t const length = in_->nextU32();
    if (length > in_->left()) {
      in_->malformed("section of " + std::to_string(length) + " bytes in an orphan with " +
                     std::to_string(in_->left()) + " left");
    }
    In::Position const end = in_->position() + length;
    in_->boundIs(end);
    if (section == static_cast<std::uint8_t>(PayloadSection::types)) {
      while (in_->left() != 0) {
        if (typeNames.size() == options_.maxTypeNames)
          in_->malformed("too many types in an orphan");
        typeNames.push_back(nameArrived("name of a type"));
      }
    } else if (section == static_cast<std::uint8_t>(PayloadSection::constructorParameters)) {
      parameters = in_->position();
      parametersEnd = end;
    } else if (section == static_cast<std::uint8_t>(PayloadSection::entityId)) {
      id = in_->nextEntityId();
      requireFrameEnd("entity id of an orphan");
    }
    in_->boundIs(messageEnd);
    in_->positionIs(end);
  }
  if (id.reserved()) in_->malformed("orphan without an entity id");

  ZolType const* type = nullptr;
  for (String8 const& name : typeNames) {
    if ((type = ZolType::typeNode(name))) break;
  }
  PeerMount* const mount = peerMount(id);
  if (!type || (!mount && orphans_.size() >= options_.maxOrphans)) {
    ++counters_.refused;
    return;
  }
  if (Entity* const known = demuxer_->entity(id)) {
    if (known->fwkType() != type) {
      ++counters_.refused;
    } else if (!mount && !known->zolParent()) {
      orphans_[id.value] = known;  // taken out of its holder, and kept until the peer forgets it
      store_->keptIs(known, this);
    }
    return;
  }
  Ptr<Entity> entity;
  try {
    demuxer_->requireAnnounceable(id, nullptr);
    in_->positionIs(parameters);
    in_->boundIs(parametersEnd);
    entity = type->newEntity(in_, {}, 0, nullptr);
    // A class that this end knows only by its base may have parameters behind those of the base.
    if (type->fullName() == typeNames.front()) requireFrameEnd("parameters of an orphan");
    in_->boundIs(messageEnd);
  } catch (MalformedMessageException const&) {
    throw;
  } catch (Exception const&) {
    ++counters_.refused;
    return;
  }
  if (mount && entity->name() != mount->name)
    in_->malformed("root under another name than mounted");
  if (mount && peerNamed_) {
    Ptr<Connection> const older(store_->userOf(type, mount->name));
    if (older && older != this) {
      older->fail("the peer has come back over another connection");
      older->stateIs();
    }
  }
  // A peer that comes back with other entities each time is not kept without end.
  if (store_->count() >= options_.maxOrphans + options_.maxMounts) store_->settled();
  keepSwept();
  entity = store_->taken(entity, this);
  Ptr<MountContext> const context = mount ? mount->context : Ptr(new MountContext(false, false));
  unsigned int const access = context->writable() ? 0U : unsigned{flagOutReadOnly};
  Ptr<Entity::ZolNboAttrLogSa> const adapter =
      entity->zolNboAttrLogSaIs({flagWeak | access}, 1, out_, context.get());
  adapter->doEntityIdIs(id, *demuxer_, true);
  if (mount) {
    mount->root = entity;
  } else {
    orphans_[id.value] = entity;
  }
}

void Connection::keepSwept() {
  for (Ptr<Entity> const& entity : demuxer_->sweptDel()) store_->keptIs(entity, nullptr);
}

void Connection::markArrived() {
  EntityId const id = in_->nextEntityId();
  auto const attrId = static_cast<AttributeId>(in_->nextU32());
  std::uint8_t const type = in_->nextU8();
  std::uint32_t const n = in_->nextU32();
  if (type > 2) in_->malformed("mark of type " + std::to_string(type));
  if (out_->numbersMessages()) in_->seenIs(n);
  requireFrameEnd("mark frame");
  Entity::ZolNboAttrLogSa* const adapter = demuxer_->reactor(id);
  if (!adapter) {
    ++counters_.unknown;
    return;
  }
  if (adapter->has(flagInReadOnly)) {
    ++counters_.refused;
    return;
  }
  // Only the owner of a mount may mark and sweep: a peer must not empty the owner's tree. The
  // brackets of a peer that may write mean nothing here.
  auto const transaction = static_cast<StreamAdapter::AttrTransactionType>(type);
  if (!adapter->isReplica() && transaction != StreamAdapter::AttrTransactionType::abort) return;
  // What a listener throws ends a sweep early: it goes on as long as it takes something out.
  Ptr<Entity> const entity(adapter->entity());
  for (std::uint32_t before = 0; entity;) {
    before = entity->mutationCounter();
    auto const transact = [&] { adapter->handleAttrTransaction(attrId, transaction, n); };
    if (apply(*adapter, attrId, transact) || entity->mutationCounter() == before) return;
  }
}

void Connection::syncedArrived() {
  EntityId const id = in_->nextEntityId();
  requireFrameEnd("synced frame");
  if (PeerMount const* const mount = peerMount(id)) {
    mount->context->syncedIs(true);
    auto const isSynced = [](PeerMount const& each) { return each.context->synced(); };
    if (std::ranges::all_of(peerMounts_, isSynced)) {
      keepSwept();
      store_->settled();
    }
  } else {
    ++counters_.unknown;
  }
}

void Connection::forgetArrived() {
  EntityId const id = in_->nextEntityId();
  requireFrameEnd("forget frame");
  auto const orphan = orphans_.find(id.value);
  if (orphan == orphans_.end()) {
    ++counters_.unknown;
    return;
  }
  demuxer_->reactorDel(id);
  Ptr<Entity> const hold = orphan->second;
  orphans_.erase(orphan);
  store_->gone(*hold);
}

void Connection::lacksArrived() {
  EntityId const id = in_->nextEntityId();
  in_->nextU32();  // the attribute; all of the entity is told anew
  EntityId const referred = in_->nextEntityId();
  requireFrameEnd("lacks frame");
  Entity::ZolNboAttrLogSa* const adapter = demuxer_->reactor(id);
  if (!adapter) {
    ++counters_.unknown;
  } else if (!ownsForBoth(*adapter)) {
    ++counters_.refused;
  } else {
    demuxer_->peerLacks(*adapter, referred);
  }
}

void Connection::byeArrived() {
  String8 const reason = in_->nextString();
  requireFrameEnd("bye frame");
  fail("closed by the peer" + (reason.empty() ? "" : ": " + std::string(reason.view())));
}

}  // namespace Zol::NboAttrLog
