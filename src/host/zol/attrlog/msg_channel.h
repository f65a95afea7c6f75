// Message channels: what a root's adapters share, and the scope in which a child of the stream is
// made.
#pragma once

#include <cstdint>

#include "host/zol/attrlog/msg_header.h"
#include "host/zol/entity.h"

namespace Zol::MsgChannel {

// Told by an adapter: 1 when a value or reference has been applied, 3 when an entity is settled.
enum class Mode : std::uint8_t { applied = 1, settled = 3 };

// Where the stream stands while it makes a child: the id that the child will have, and its parent.
class ZOL_EXPORT Constrainer {
 public:
  // What the adapters of one mounted tree have in common; each child takes that of its parent.
  class ZOL_EXPORT ZolEntry : public PtrInterface {
   public:
    ~ZolEntry() override;
    virtual void modeIs(Mode mode) = 0;
  };

  [[nodiscard]] EntityId deserializingEid() const noexcept { return id_; }
  void deserializingEidIs(EntityId id) noexcept { id_ = id; }
  [[nodiscard]] Entity* deserializingInParent() const noexcept { return parent_; }
  void deserializingInParentIs(Entity* parent) noexcept { parent_ = parent; }

 private:
  EntityId id_;
  Entity* parent_ = nullptr;
};

[[nodiscard]] ZOL_EXPORT Constrainer& constrainer();

// Names the child that is being made for its life time, and puts the former values back at its end.
// The constructor refuses an id that the peer must not give, before anything has been changed: it
// throws `AttrLogEntityException`.
class ZOL_EXPORT DeserializingEidAnchor {
 public:
  DeserializingEidAnchor(EntityId const& id, Entity* parent);
  ~DeserializingEidAnchor();
  DeserializingEidAnchor(DeserializingEidAnchor const&) = delete;
  DeserializingEidAnchor& operator=(DeserializingEidAnchor const&) = delete;

 private:
  EntityId formerId_;
  Entity* formerParent_;
};

}  // namespace Zol::MsgChannel
