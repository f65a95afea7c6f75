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
    if (Entry* const entry = map_[key]) map_.deleteMember(entry);
  }
  [[nodiscard]] Map const& map() const noexcept { return map_; }

 private:
  Map map_;
};

}  // namespace Zol::NboAttrLog
