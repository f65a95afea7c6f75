// Finds the adapter that a message is for, and runs the flow-outs of all adapters that owe
// something.
#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/zol/attrlog/flow.h"
#include "host/zol/attrlog/in.h"

namespace Zol {

class MountContext;

// Thrown while a keyed child is read: the present member under the key belongs to an entity that
// the source has replaced. The member is removed and the message is read again.
class ZOL_EXPORT GiveWayException : public Exception {
 public:
  using Exception::Exception;
  ~GiveWayException() override;
};

namespace NboAttrLog {

// One end's table of adapters by entity id, its ids, and its queue of owed flow-outs. It holds the
// adapters; they hold no count on it.
class ZOL_EXPORT Demuxer final : public PtrInterface {
 public:
  // `maxEntities`: ids that the peer may bind. `maxPartialTexts`: bytes of texts under way.
  // `turnBudget`: bytes that the flow-outs of one turn may write before the others get their turn.
  Demuxer(Ptr<Out> out, Ptr<In> in, std::size_t maxEntities, std::size_t maxPartialTexts,
          std::size_t turnBudget);
  ~Demuxer() override;

  // From level 2 on the sync mode neither marks nor sweeps: markers do. A connection's demuxer has
  // level 2; below it, a mode brackets a resynchronisation by itself.
  [[nodiscard]] unsigned int syncLevel() const noexcept { return syncLevel_; }
  void syncLevelIs(unsigned int level) noexcept { syncLevel_ = level; }

  // A fresh even id; never one that was used on this connection, nor a reserved one.
  EntityId idAllocate();
  [[nodiscard]] bool allocatedHere(EntityId id) const noexcept;
  void reactorIs(EntityId id, Entity::ZolNboAttrLogSa* adapter);
  [[nodiscard]] Entity::ZolNboAttrLogSa* reactor(EntityId id) const;
  // The entity whose adapter has the id, or null.
  [[nodiscard]] Entity* entity(EntityId id) const;
  // Drops the adapter with this id: its ids, its place in the queue, its flows. Silent for an
  // unknown id.
  void reactorDel(EntityId id);
  // Takes one id away from an adapter that keeps another.
  void idDel(EntityId id);
  // The entities of the peer that stand in no holder, in the order of their ids.
  [[nodiscard]] std::vector<Ptr<Entity>> receivedWithoutHolder() const;
  [[nodiscard]] std::size_t reactorCount() const noexcept { return reactors_.size(); }

  // A child that this connection did not know has been swept out of its holder. When something else
  // refers to it still at the end of the sweep, the peer may be about to announce it without a
  // holder: it is kept until `sweptDel`.
  void sweptIs(Ptr<Entity> const& child);
  void sweepEnds();
  // Gives what is kept so.
  [[nodiscard]] std::vector<Ptr<Entity>> sweptDel() noexcept { return std::move(swept_); }

  // Binds an adapter to an id of the peer; see `StreamAdapter::doEntityIdIs`.
  void bind(Entity::ZolNboAttrLogSa& adapter, EntityId id);
  // The entity that a reference in the message under way names, or null.
  [[nodiscard]] Entity* named(EntityId id);
  // The peer has taken out the entity that it had made at the same time as this end the adapter's:
  // its id names that entity no more, and what has referred to it by that id is asked for again.
  void twinDel(Entity::ZolNboAttrLogSa& adapter);
  // Refuses an id that a peer must not announce for a child of `parent`.
  void requireAnnounceable(EntityId id, Entity const* parent) const;
  // Refuses an id that names another entity than the one present in the place of the announced.
  void requireNotAnother(EntityId id, Entity const* present) const;
  // True when the present entity is to give way to the one announced under `id`. For a keyed child
  // it throws `GiveWayException` instead. Refuses an id that names another entity.
  bool checkEphemeralEntityDeletion(Entity* present, EntityId const& id, bool keyed);

  // Gives the adapter a flow with this start attribute, by way of its `flowOutIs`, unless it has
  // one.
  void createFlowOut(StreamAdapter& adapter, ConnectDesc const& desc, bool flag, AttributeId start);
  void flowOutDel(Entity::ZolNboAttrLogSa& adapter);
  void enqueue(Entity::ZolNboAttrLogSa& adapter);
  // A message about an attribute has been committed; noted where messages are numbered.
  void messageCommitted(EntityId id, AttributeId attribute);
  // The peer could not take in a message of the adapter, because it does not know what `referred`
  // names: it is told of the adapter's entity anew, and of what it lacks.
  void peerLacks(Entity::ZolNboAttrLogSa& adapter, EntityId referred);
  // A message that announced the entity with this id has been committed.
  void announcementCommitted(EntityId id);
  // Announces an entity that stands below nothing this log knows. The present message stays open.
  void announceOrphan(Entity& entity);
  // Tells the peer that an entity announced without a parent has gone, and drops its adapter. False
  // for an adapter of another entity, which stays.
  bool orphanDel(Entity::ZolNboAttrLogSa& adapter);
  // An adapter's message refers to an entity that the peer does not know yet: the adapter goes on
  // when that has been announced.
  void awaitedIs(Entity const& entity) { awaited_ = &entity; }
  // Adapters that wait go on whatever they wait for: it may have left the tree, and be announced in
  // another way.
  void wakeAll();
  // Pays what is owed, one flow-out per adapter, while there is room. False when nothing was to be
  // done.
  bool turn();
  [[nodiscard]] bool idle() const noexcept { return queue_.empty(); }
  // The names of the attributes of which something is owed, each with the number of entities.
  [[nodiscard]] std::map<std::string, std::size_t> owed() const;
  // Whether the running flow-out may carry on: room for a full message, and budget. Once false,
  // false until that flow-out has returned.
  [[nodiscard]] bool continueFlowOut();

  [[nodiscard]] Ptr<FlowIn> flowIn(EntityId const& id) const;
  // Gives the flow, made if there is none.
  Ptr<FlowIn> flowInIs(EntityId const& id);
  // A partial text has grown; beyond the limit of all of them together the connection is closed.
  void partialTextGrew(FlowIn& flow);
  void flowInDel(EntityId const& id) { flowIns_.erase(id.value); }

  // Refuses a new key of a full collection of values. Throws `RangeException`.
  template <class Map, class Key>
  void requireRoomFor(Map const& map, Key const& key) const {
    if (map.count() >= maxMembers_ && !map[key]) refuseMember();
  }
  void maxMembersIs(std::size_t count) noexcept { maxMembers_ = count; }

  void unknownEnumsInc(unsigned int count) noexcept { unknownEnums_ += count; }
  [[nodiscard]] std::uint64_t unknownEnums() const noexcept { return unknownEnums_; }
  // A reference to an entity of a class without adapters has gone out as null.
  void unreplicatedInc() noexcept { ++unreplicated_; }
  [[nodiscard]] std::uint64_t unreplicated() const noexcept { return unreplicated_; }
  void coalescedInc() noexcept { ++coalesced_; }
  [[nodiscard]] std::uint64_t coalesced() const noexcept { return coalesced_; }
  void unknownAttributesInc() noexcept { ++unknownAttributes_; }
  [[nodiscard]] std::uint64_t unknownAttributes() const noexcept { return unknownAttributes_; }
  void listenerFailuresInc() noexcept { ++listenerFailures_; }
  [[nodiscard]] std::uint64_t listenerFailures() const noexcept { return listenerFailures_; }

  // The entity whose message is being applied, and how deep in notifications the host stood then.
  class DispatchScope;
  [[nodiscard]] bool dispatchConcerns(Entity const& entity) const noexcept;

  // Ends all: adapters stop listening and are dropped; entities and listeners stay.
  void shutDown();

 private:
  static constexpr std::uint64_t kFirstId = 0x20;
  // Runs of an adapter that write nothing before it waits for a change.
  static constexpr unsigned int kIdleRounds = 4;
  // So often an entity is announced anew to a peer that lacks it.
  static constexpr unsigned int kMostLacks = 16;
  static constexpr std::size_t kMostCounted = 4096;

  void run(Entity::ZolNboAttrLogSa& adapter);
  // Whether the peer, which is announcing the entity, no longer goes by the id that it has here.
  [[nodiscard]] bool isGivenUp(Entity::ZolNboAttrLogSa& adapter) const;
  // Takes the adapter off the stream; its entity may get another one.
  void retire(Entity::ZolNboAttrLogSa& adapter);
  void dequeue(Entity::ZolNboAttrLogSa& adapter);
  void waitsFor(Entity::ZolNboAttrLogSa& adapter, Entity const& entity);
  using Waiters = std::unordered_multimap<Entity const*, EntityId>;
  void wake(Waiters::const_iterator first, Waiters::const_iterator last);
  [[noreturn]] void refuseMember() const;

  Ptr<Out> out_;
  Ptr<In> in_;
  std::size_t const maxEntities_;
  std::size_t const maxPartialTexts_;
  std::size_t const turnBudget_;
  std::shared_ptr<std::size_t> partialBytes_ = std::make_shared<std::size_t>(0);
  std::uint64_t nextId_ = kFirstId;
  std::size_t boundByPeer_ = 0;
  std::unordered_map<std::uint64_t, Ptr<Entity::ZolNboAttrLogSa>> reactors_;
  std::unordered_map<std::uint64_t, Ptr<FlowIn>> flowIns_;
  std::list<Ptr<Entity::ZolNboAttrLogSa>> queue_;
  // The entity that the running flow-out waits for, and those that adapters wait for.
  Entity const* awaited_ = nullptr;
  Waiters waiters_;
  // How often the peer has lacked an entity.
  std::unordered_map<Entity const*, unsigned int> lacked_;
  std::vector<Ptr<Entity>> swept_;
  std::size_t maxMembers_ = 1000000;
  std::uint64_t turnEnd_ = 0;
  bool stopped_ = false;
  unsigned int syncLevel_ = 2;
  Entity const* dispatch_ = nullptr;
  unsigned int dispatchDepth_ = 0;
  std::uint64_t unknownEnums_ = 0;
  std::uint64_t unreplicated_ = 0;
  std::uint64_t coalesced_ = 0;
  std::uint64_t unknownAttributes_ = 0;
  std::uint64_t listenerFailures_ = 0;
  Ptr<MountContext> orphanContext_;
};

class ZOL_EXPORT Demuxer::DispatchScope {
 public:
  DispatchScope(Demuxer& demuxer, Entity const* entity);
  ~DispatchScope();
  DispatchScope(DispatchScope const&) = delete;
  DispatchScope& operator=(DispatchScope const&) = delete;

 private:
  Demuxer& demuxer_;
  Demuxer* former_;
};

// All demuxers of the process, so that what arrives for an entity on one log reaches its adapters
// on the others.
class ZOL_EXPORT DemuxerManager {
 public:
  // Walks the demuxers that there were when the walk began.
  class Iterator {
   public:
    explicit Iterator(std::vector<Ptr<Demuxer>> demuxers) : demuxers_(std::move(demuxers)) {}
    explicit operator bool() const noexcept { return at_ < demuxers_.size(); }
    Iterator& operator++() noexcept {
      ++at_;
      return *this;
    }
    [[nodiscard]] Demuxer& operator*() const noexcept { return *demuxers_[at_]; }
    [[nodiscard]] Demuxer* operator->() const noexcept { return demuxers_[at_].get(); }

   private:
    std::vector<Ptr<Demuxer>> demuxers_;
    std::size_t at_ = 0;
  };

  [[nodiscard]] Iterator nboDemuxerIterator() const;

 private:
  friend class Demuxer;

  void demuxerIs(Demuxer& demuxer);
  void demuxerDel(Demuxer& demuxer);

  mutable std::mutex mutex_;
  std::vector<Demuxer*> demuxers_;
};

}  // namespace NboAttrLog

[[nodiscard]] ZOL_EXPORT NboAttrLog::DemuxerManager* globalNboAttrLogDemuxerManager();

// The demuxer of a connection's input; null once the connection has ended.
[[nodiscard]] inline NboAttrLog::Demuxer* demuxFor(NboAttrLog::In const* in) {
  return in ? in->demuxer() : nullptr;
}

}  // namespace Zol
