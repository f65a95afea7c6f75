// The keys that a flow owes of one collection.
#pragma once

#include "host/zol/value_entry.h"

namespace Zol::NboAttrLog {

class ZOL_EXPORT DirtyKeysBase {
 public:
  virtual ~DirtyKeysBase();
  [[nodiscard]] virtual bool empty() const = 0;
};

// Kept as the collection keeps its members: hashed, or ordered.
template <class Key, bool kHashed>
class DirtyKeys final : public DirtyKeysBase {
 public:
  using Entry =
      std::conditional_t<kHashed, HashedValueEntry<Key, bool>, OrderedValueEntry<Key, bool>>;
  using Map = std::conditional_t<kHashed, HashMap<Entry, Key, bool>, RbTreeMap<Entry, Key, bool>>;

  [[nodiscard]] bool empty() const override { return map_.count() == 0; }
  // False when the key was owed already.
  bool dirtyIs(Key const& key) {
    if (map_[key]) return false;
    map_.newMember(Ptr<Entry>(new Entry(key, true)).get());
    return true;
  }
  void dirtyDel(Key const& key) {
    erase(map_, key);
    erase(removals_, key);
  }
  // What is owed of the key began with a removal, whatever has taken its place since.
  void removalIs(Key const& key) {
    if (!removals_[key]) removals_.newMember(Ptr<Entry>(new Entry(key, true)).get());
  }
  // Takes the mark: whether it was so.
  bool removalDel(Key const& key) { return erase(removals_, key); }
  [[nodiscard]] Map const& map() const noexcept { return map_; }

 private:
  static bool erase(Map& map, Key const& key) {
    Entry* const entry = map[key];
    if (entry) map.deleteMember(entry);
    return entry;
  }

  Map map_;
  Map removals_;
};

}  // namespace Zol::NboAttrLog
