// The base of all entities: name, counters, parent, the list of listeners, and the virtual
// operations that every entity has.
#pragma once

#include <cstdint>

#include "host/zol/list_raw.h"

namespace Zol {

// An object of the model. It is made with `new`, held by `Ptr`, and owned by at most one parent.
//
// The two counters are unsigned 32-bit numbers that wrap around: the mutation counter goes up at
// each effective mutation, the read counter at each read of an attribute through its accessor.
class ZOL_EXPORT Entity : public PtrInterface {
 public:
  class NotifieeConst;
  class Notifiee;
  class ZolNboAttrLogSa;
  // Flags of a stream adapter.
  using Zol_BitSet = PtrInterface::NotifieeConst::Zol_BitSet;

  // An entity with this name, which never changes, and without a parent.
  explicit Entity(Name name);
  Entity(Entity const&) = delete;
  Entity& operator=(Entity const&) = delete;
  ~Entity() override;

  void zeroReferencesIs(bool value) override;
  [[nodiscard]] ZolType* fwkType() const override;

  // The name. Reading it counts as no read.
  [[nodiscard]] virtual Name const& name() const;
  // The entity that owns this one, or null.
  [[nodiscard]] virtual Ptr<Entity const> parent() const;
  [[nodiscard]] virtual Ptr<Entity> parent();
  // Records the owner, or null when the entity leaves its owner. The link is not counted. On a
  // replicated entity null also takes back its announcement, so that a later reference announces
  // it.
  virtual void parentIs(Ptr<Entity> const& parent);
  // The attribute of the parent's class that holds this entity; null without a parent.
  [[nodiscard]] virtual ZolAttr const* parentAttr() const;
  // The id of that attribute; 136 until a holder takes the entity.
  [[nodiscard]] virtual AttributeId parentAttrId() const;
  // Records the id of the attribute of the holder; for the holder.
  virtual void parentAttrIdIs(AttributeId id);
  // The path (host/zol/path.h), as "board/realUcd9012Controller[main]", or with a "/" in front and
  // fit to be read back for an entity below the directory of the process. Both give the same text.
  [[nodiscard]] virtual String8 uriPath() const;
  // The same text as `uriPath`.
  [[nodiscard]] virtual String8 fullName() const;
  // The name of the attribute with this id, "unknown" for an id that the class does not have.
  [[nodiscard]] virtual String8 attributeString(AttributeId id) const;
  // A hook of the runtime; it does nothing.
  virtual void zolNotifieeAdapterIs(Ptr<Entity const> const& adapter);
  // A hook of the runtime; it does nothing.
  virtual void handleParent(Ptr<Entity> const& parent);

  // The stream adapter of this entity on `out`, or null.
  [[nodiscard]] virtual Ptr<ZolNboAttrLogSa const> zolNboAttrLogSa(
      Ptr<NboAttrLog::Out const> const& out) const;
  // True when entities of this class can take part in an attribute log.
  [[nodiscard]] virtual bool zolHasAttrLogInterface() const;
  // The same, to work with.
  [[nodiscard]] virtual Ptr<ZolNboAttrLogSa> zolNboAttrLogSa(Ptr<NboAttrLog::Out const> const& out);
  // A further adapter of this entity that shares the message channel of `other`, or null.
  [[nodiscard]] virtual Ptr<ZolNboAttrLogSa> zolNboAttrLogSaForMsgChannel(
      Ptr<ZolNboAttrLogSa> const& other) const;
  // The adapter on `out`, made if it is missing; one that exists takes the flags. Throws
  // `RangeException` "null ValidPtr" for a null `out`, `InternalException` for a class without
  // adapter.
  virtual Ptr<ZolNboAttrLogSa> zolNboAttrLogSaIs(Zol_BitSet flags, unsigned int n,
                                                 Ptr<NboAttrLog::Out> const& out,
                                                 PtrInterface* msgChannelEntry);
  // Takes the adapter on `out` out of its demuxer; gives the adapter that was found, or null.
  virtual Ptr<ZolNboAttrLogSa> zolNboAttrLogSaDel(Ptr<NboAttrLog::Out const> const& out);

  // How many effective mutations there have been.
  [[nodiscard]] std::uint32_t mutationCounter() const noexcept { return mutationCounter_; }
  // How many reads of an attribute there have been.
  [[nodiscard]] std::uint32_t readCounter() const noexcept { return readCounter_; }
  // The key under which a keyed collection of entities holds this one.
  [[nodiscard]] Name const& zolKey() const { return name(); }
  // The listeners, in the order in which they are told.
  [[nodiscard]] ListRawGeneric const& zolNotifiees() const noexcept { return notifiees_; }
  // The owner as a plain pointer, for walks that only look.
  [[nodiscard]] Entity* zolParent() const noexcept { return parent_; }

  // The id by which the log of `out` knows this entity, as the owner of `out` writes it; 0 for a
  // class without adapters. `announce`: a child that the log does not know yet may be announced
  // now; `allocate`: an id may be allocated; `raise`: throw `EntityIdUnavailableException` rather
  // than give 0.
  [[nodiscard]] std::uint64_t entityId(Ptr<NboAttrLog::Out const> const& out, bool announce,
                                       bool allocate, bool raise);

  static ZolType* _fwkType();

 protected:
  // Counts one read.
  void countRead() const noexcept { ++readCounter_; }
  // Counts one mutation.
  void countMutation() noexcept { ++mutationCounter_; }
  // Empties the list of listeners; the destructor of the class that tells them calls it.
  void dismissNotifiees() noexcept { notifiees_.clear(); }
  // Whether anybody listens.
  [[nodiscard]] bool hasNotifiees() const noexcept { return !notifiees_.empty(); }

 private:
  friend class NotifieeConst;

  Name name_;
  std::uint32_t mutationCounter_ = 0;
  mutable std::uint32_t readCounter_ = 0;
  AttributeId parentAttrId_ = kOrphanAttrId;
  Entity* parent_ = nullptr;
  ListRawGeneric notifiees_;
};

// Base of the listeners of all entity classes. Each entity class `X` has an `X::NotifieeConst` with
// its slots, and an `X::Notifiee` for clients to derive from.
class ZOL_EXPORT Entity::NotifieeConst : public PtrInterface::NotifieeConst {
 public:
  NotifieeConst() = default;
  ~NotifieeConst() override;

  // A slot of the runtime that no mutator calls.
  virtual void onParent();
  // A slot of the runtime that no mutator calls.
  virtual void onVersion();

  void isRegisteredNotifieeIs(bool value) const override;
  [[nodiscard]] Name name() const override;
  // For a listener that has no slots beyond the frame's, which may be given an entity of any class:
  // it hears of the entity's end, and of no attribute.
  void notifierIs(Ptr<PtrInterface const> const& notifier) override;
  [[nodiscard]] bool isOfFrame() const noexcept { return listenerClass_ == &kFrameListener; }

 protected:
  // Listens to `entity` from now on: takes care of both lists and of the counts.
  void entityIs(Entity const* entity);
  // The entity that this listener listens to, or null.
  [[nodiscard]] Entity const* entity() const noexcept {
    return static_cast<Entity const*>(zolNotifier());
  }

 private:
  static char const kFrameListener;

  void join() const;
  void leave() const;
};

class ZOL_EXPORT Entity::Notifiee : public Entity::NotifieeConst {};

}  // namespace Zol
