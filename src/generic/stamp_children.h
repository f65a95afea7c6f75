// Stamps the search for a child of `entity` under the attribute `name`; `key` is the text of its
// key, or null. Include the class's list behind it.
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS) \
  if (name == #attr) return key ? nullptr : entity.attr();
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS)              \
  if (name == #attr) {                                                     \
    auto const wanted = key ? keyOf<Key>(*key) : std::nullopt;             \
    return wanted ? Zol::Ptr<Zol::Entity>(entity.attr(*wanted)) : nullptr; \
  }
