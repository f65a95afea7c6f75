#include "host/zol/rb_tree_map_generic.h"

namespace Zol {

RbTreeLink::~RbTreeLink() {
  if (left) left->referencesDec();
  if (right) right->referencesDec();
}

RbTreeMapGeneric::~RbTreeMapGeneric() {
  if (PtrInterface* const root = std::exchange(root_, nullptr)) root->referencesDec();
}

// Turns and recolours. A rotation hands counts from one holder to another, so it changes none.
class RbTreeMapGeneric::Balance {
  using Link = RbTreeLink;
  using Child = PtrInterface* Link::*;

 public:
  Balance(PtrInterface*& root, std::ptrdiff_t position) : root_(root), position_(position) {}

  [[nodiscard]] Link* link(PtrInterface* entry) const {
    return entry ? linkOf(position_, entry) : nullptr;
  }
  [[nodiscard]] PtrInterface* entry(Link* link) const {
    return link ? entryOf(position_, link) : nullptr;
  }

  // Puts `made`, which may be null, where `old` hangs.
  void hang(Link* old, Link* made) {
    Link* const parent = old->parent;
    if (made) made->parent = parent;
    (!parent ? root_ : parent->left == entry(old) ? parent->left : parent->right) = entry(made);
  }

  // A red member has been attached.
  void added(Link* node) {
    while (isRed(node->parent)) {
      Link* parent = node->parent;
      Link* const above = parent->parent;
      bool const onLeft = above->left == entry(parent);
      Child const near = onLeft ? &Link::left : &Link::right;
      Child const far = onLeft ? &Link::right : &Link::left;
      if (Link* const uncle = link(above->*far); isRed(uncle)) {
        parent->red = uncle->red = 0;
        above->red = 1;
        node = above;
        continue;
      }
      if (parent->*far == entry(node)) {
        std::swap(node, parent);
        rotate(node, near, far);
        parent = node->parent;
      }
      parent->red = 0;
      above->red = 1;
      rotate(above, far, near);
    }
    link(root_)->red = 0;
  }

  // Below `parent`, where `node` hangs (null for a leaf), a black one is missing.
  void removed(Link* node, Link* parent) {
    while (parent && !isRed(node)) {
      bool const onLeft = parent->left == entry(node);
      Child const near = onLeft ? &Link::left : &Link::right;
      Child const far = onLeft ? &Link::right : &Link::left;
      Link* sibling = link(parent->*far);
      if (isRed(sibling)) {
        sibling->red = 0;
        parent->red = 1;
        rotate(parent, near, far);
        sibling = link(parent->*far);
      }
      if (!isRed(link(sibling->left)) && !isRed(link(sibling->right))) {
        sibling->red = 1;
        node = parent;
        parent = node->parent;
        continue;
      }
      if (!isRed(link(sibling->*far))) {
        link(sibling->*near)->red = 0;
        sibling->red = 1;
        rotate(sibling, far, near);
        sibling = link(parent->*far);
      }
      sibling->red = parent->red;
      parent->red = 0;
      link(sibling->*far)->red = 0;
      rotate(parent, near, far);
      return;
    }
    if (node) node->red = 0;
  }

 private:
  static bool isRed(Link const* node) { return node && node->red; }

  // Moves `node` down to its `near` side; its child on the `far` side takes its place.
  void rotate(Link* node, Child near, Child far) {
    Link* const rising = link(node->*far);
    node->*far = rising->*near;
    if (Link* const moved = link(rising->*near)) moved->parent = node;
    hang(node, rising);
    rising->*near = entry(node);
    node->parent = rising;
  }

  PtrInterface*& root_;
  std::ptrdiff_t const position_;
};

void RbTreeMapGeneric::memberNewChild(std::ptrdiff_t position, int, PtrInterface* parent,
                                      PtrInterface* child, bool left) {
  child->referencesInc();
  RbTreeLink* const node = linkOf(position, child);
  node->red = 1;
  if (parent) {
    node->parent = linkOf(position, parent);
    (left ? node->parent->left : node->parent->right) = child;
  } else {
    root_ = child;
  }
  Balance(root_, position).added(node);
  ++version_;
  ++count_;
}

void RbTreeMapGeneric::memberReplace(std::ptrdiff_t position, int, PtrInterface* old,
                                     PtrInterface* made) {
  if (old == made) return;
  made->referencesInc();
  Balance tree(root_, position);
  RbTreeLink* const from = linkOf(position, old);
  RbTreeLink* const to = linkOf(position, made);
  tree.hang(from, to);
  to->red = from->red;
  to->left = std::exchange(from->left, nullptr);
  to->right = std::exchange(from->right, nullptr);
  for (PtrInterface* const child : {to->left, to->right}) {
    if (child) linkOf(position, child)->parent = to;
  }
  from->parent = nullptr;
  ++version_;
  old->referencesDec();
}

void RbTreeMapGeneric::_memberDelG(std::ptrdiff_t position, int, PtrInterface* entry) {
  Balance tree(root_, position);
  RbTreeLink* const node = linkOf(position, entry);
  RbTreeLink* const left = tree.link(node->left);
  RbTreeLink* const right = tree.link(node->right);
  RbTreeLink* sunken = nullptr;
  RbTreeLink* below = nullptr;
  bool blackGone = !node->red;
  if (left && right) {
    RbTreeLink* const heir = linkOf(position, leftmost(position, node->right));
    blackGone = !heir->red;
    sunken = tree.link(heir->right);
    below = heir->parent == node ? heir : heir->parent;
    if (below != heir) {
      tree.hang(heir, sunken);
      heir->right = node->right;
      right->parent = heir;
    }
    tree.hang(node, heir);
    heir->left = node->left;
    left->parent = heir;
    heir->red = node->red;
  } else {
    sunken = left ? left : right;
    below = node->parent;
    tree.hang(node, sunken);
  }
  if (blackGone) tree.removed(sunken, below);
  node->parent = nullptr;
  node->left = node->right = nullptr;
  ++version_;
  --count_;
  entry->referencesDec();
}

PtrInterface* RbTreeMapGeneric::leftmost(std::ptrdiff_t position, PtrInterface* entry) noexcept {
  while (PtrInterface* const left = linkOf(position, entry)->left) entry = left;
  return entry;
}

PtrInterface* RbTreeMapGeneric::following(std::ptrdiff_t position, PtrInterface* entry) noexcept {
  RbTreeLink* node = linkOf(position, entry);
  if (node->right) return leftmost(position, node->right);
  for (;;) {
    RbTreeLink* const parent = node->parent;
    if (!parent) return nullptr;
    if (parent->left == entryOf(position, node)) return entryOf(position, parent);
    node = parent;
  }
}

}  // namespace Zol
