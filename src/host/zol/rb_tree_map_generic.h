// The untyped half of every ordered collection: a red-black tree whose links stand in the entries.
#pragma once

#include "host/zol/base_collection.h"

namespace Zol {

// The links that an entry of an ordered collection carries. The parent link addresses the parent's
// links and is not counted; each child is held by one count. An entry that stands in no tree has
// none.
struct ZOL_EXPORT RbTreeLink {
  RbTreeLink() = default;
  RbTreeLink(RbTreeLink const&) = delete;
  RbTreeLink& operator=(RbTreeLink const&) = delete;
  // Lets the children go, one level of nesting for each level of the tree.
  ~RbTreeLink();

  RbTreeLink* parent = nullptr;
  PtrInterface* left = nullptr;
  PtrInterface* right = nullptr;
  std::uintptr_t red = 0;
};

// Adds and removes members where the typed half says, and keeps the tree balanced. `position` is
// the offset of the links inside an entry; the second argument of each operation is 0.
class ZOL_EXPORT RbTreeMapGeneric : public BaseRefCollection<PtrInterface> {
 public:
  ~RbTreeMapGeneric() override;

  // Attaches `child` under `parent`, on its left or its right; a null parent is that of an empty
  // tree.
  void memberNewChild(std::ptrdiff_t position, int, PtrInterface* parent, PtrInterface* child,
                      bool left);
  // `made` takes the place of `old`.
  void memberReplace(std::ptrdiff_t position, int, PtrInterface* old, PtrInterface* made);
  // Detaches a member.
  void _memberDelG(std::ptrdiff_t position, int, PtrInterface* entry);

 protected:
  [[nodiscard]] static RbTreeLink* linkOf(std::ptrdiff_t position, PtrInterface* entry) noexcept {
    return reinterpret_cast<RbTreeLink*>(reinterpret_cast<unsigned char*>(entry) + position);
  }
  [[nodiscard]] static PtrInterface* entryOf(std::ptrdiff_t position, RbTreeLink* link) noexcept {
    return reinterpret_cast<PtrInterface*>(reinterpret_cast<unsigned char*>(link) - position);
  }
  [[nodiscard]] PtrInterface* root() const noexcept { return root_; }
  [[nodiscard]] static PtrInterface* leftmost(std::ptrdiff_t position,
                                              PtrInterface* entry) noexcept;
  // The member behind `entry`, which must be one: no key is read. Null at the end.
  [[nodiscard]] static PtrInterface* following(std::ptrdiff_t position,
                                               PtrInterface* entry) noexcept;

 private:
  class Balance;

  PtrInterface* root_ = nullptr;
};

}  // namespace Zol
