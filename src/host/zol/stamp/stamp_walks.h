// Stamps how the members of each keyed attribute are counted and walked: from the first one, or
// from a key. Include the class's list behind it.
#define ZOL_KEYED(attr, Attr, id, Key)                                                 \
  [[nodiscard]] std::uint32_t attr##Count() const noexcept { return attr##_.count(); } \
  [[nodiscard]] Attr##Map::Iterator attr##Iterator() {                                 \
    return typename Attr##Map::Iterator(&attr##_);                                     \
  }                                                                                    \
  [[nodiscard]] Attr##Map::IteratorConst attr##IteratorConst() const {                 \
    return typename Attr##Map::IteratorConst(&attr##_);                                \
  }                                                                                    \
  [[nodiscard]] Attr##Map::IteratorConst attr##IteratorConst(Key const& key) const {   \
    return typename Attr##Map::IteratorConst(&attr##_, key);                           \
  }
