// In which order the messages of both ends about one entity have crossed.
//
// Where both ends may write, each message says how many frames of the reader its writer had taken
// in. The owner of a tree notes when it last sent something about an attribute: a message whose
// writer had not seen that yet was written against another state than the reader of it has now.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <set>
#include <utility>
#include <vector>

#include "host/zol/attrlog/msg_header.h"

namespace Zol {

// Numbers of frames count from the start of a connection and wrap around.
class MessageOrder {
 public:
  // The message in frame `frame` was about the attribute; a negative id stands for a removal.
  void sent(AttributeId id, std::uint32_t frame) {
    id = std::abs(id);
    for (Sent& each : sent_) {
      if (each.id == id) {
        each.frame = frame;
        return;
      }
    }
    sent_.push_back({id, frame});
  }
  // The entity was announced in this frame.
  void announced(std::uint32_t frame) noexcept { announced_ = {true, frame}; }

  // A message about the entity with this id named this one by the id that the peer had given it,
  // though this end had made it too.
  void namedBy(EntityId id) { namers_.insert(id.value); }
  // Takes them.
  [[nodiscard]] std::set<std::uint64_t> namersDel() noexcept { return std::exchange(namers_, {}); }

  // Whether the writer of a message with this `seen` knew the announcement.
  [[nodiscard]] bool announcedUpTo(std::uint32_t seen) const noexcept {
    return announced_.valid && !isBehind(announced_.frame, seen);
  }
  [[nodiscard]] bool announcedBehind(std::uint32_t seen) const noexcept {
    return announced_.valid && isBehind(announced_.frame, seen);
  }
  // Whether something about the attribute, or the entity itself, was sent behind frame `seen`.
  [[nodiscard]] bool sentBehind(AttributeId id, std::uint32_t seen) const noexcept {
    if (announcedBehind(seen)) return true;
    id = std::abs(id);
    for (Sent const& each : sent_) {
      if (each.id == id) return isBehind(each.frame, seen);
    }
    return false;
  }

 private:
  struct Sent {
    AttributeId id;
    std::uint32_t frame;
  };
  struct Announced {
    bool valid = false;
    std::uint32_t frame = 0;
  };

  static bool isBehind(std::uint32_t frame, std::uint32_t seen) noexcept {
    return static_cast<std::int32_t>(frame - seen) > 0;
  }

  // One per attribute that was sent; an entity has few.
  std::vector<Sent> sent_;
  std::set<std::uint64_t> namers_;
  Announced announced_;
};

}  // namespace Zol
