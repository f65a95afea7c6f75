// Stamps how the kinds of attributes (host/zol/attrlog/scalar.h, text.h, children.h, ...) reach
// each attribute of a class: `<Attr>Access`. `Sa` names the adapter class, `Model` its entity's;
// `AccessTo<id>` is the base with the attribute's id and bit. Include the class's list behind it.
#define ZOL_CHILD_ACCESS(attr, Type)                                                            \
  using Member = Type;                                                                          \
  template <class... Parameter>                                                                 \
  static void make(Model& entity, Parameter const&... parameter) {                              \
    entity.attr##Is(parameter...);                                                              \
  }                                                                                             \
  static auto announce(Sa& adapter, Zol::Entity::Zol_BitSet flags, Zol::Ptr<Type> const& child, \
                       unsigned int n, Zol::OutPtr const& out, Zol::PtrInterface* entry) {      \
    return adapter.attr##NboAttrLogAdapterIs(flags, child, n, out, entry);                      \
  }                                                                                             \
  static void drop(Sa& adapter, Zol::Ptr<Type> const& child) {                                  \
    adapter.attr##NboAttrLogAdapterDel(child);                                                  \
  }

#define ZOL_KEYED_ACCESS(attr, Attr, Key)                                                    \
  static auto const& map(Model const& entity) { return entity.attr##IteratorConst().map(); } \
  static void del(Model& entity, Key const& key) { entity.attr##Del(key); }                  \
  static void react(Sa& adapter, Key const& key) { adapter.on##Attr(key); }                  \
  static bool serialize(Sa& adapter) { return adapter.zolHandle##Attr##SerializeColl(); }    \
  template <class... Sent>                                                                   \
  static auto send(Sa& adapter, Key const& key, Sent const&... sent) {                       \
    return adapter.zolHandle##Attr##SerializeSing(key, sent...);                             \
  }

#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS)                           \
  struct Attr##Access : AccessTo<id> {                                             \
    using Value = Type;                                                            \
    static Value get(Model const& entity) { return entity.attr(); }                \
    static void set(Model& entity, Value const& value) { entity.attr##Is(value); } \
    static void react(Sa& adapter) { adapter.on##Attr(); }                         \
  };
#define ZOL_TEXT(attr, Attr, id, FLAGS)                                                     \
  struct Attr##Access : AccessTo<id> {                                                      \
    static Zol::String8 get(Model const& entity) { return entity.attr(); }                  \
    static void set(Model& entity, Zol::String8 text) { entity.attr##Is(std::move(text)); } \
    static void react(Sa& adapter) { adapter.on##Attr(); }                                  \
    static bool serialize(Sa& adapter) { return adapter.zolHandle##Attr##Serialize(); }     \
  };
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS)                                          \
  struct Attr##Access : AccessTo<id> {                                                      \
    using Value = Type;                                                                     \
    static Zol::Ptr<Type> get(Model const& entity) { return entity.attr(); }                \
    static void set(Model& entity, Zol::Ptr<Type> const& value) { entity.attr##Is(value); } \
    static void react(Sa& adapter) { adapter.on##Attr(); }                                  \
  };
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS)                           \
  struct Attr##Access : AccessTo<id> {                                       \
    ZOL_CHILD_ACCESS(attr, Type)                                             \
    static Zol::Ptr<Type> get(Model const& entity) { return entity.attr(); } \
    static void del(Model& entity) { entity.attr##Del(); }                   \
    static void react(Sa& adapter) { adapter.on##Attr(); }                   \
  };
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS)                     \
  struct Attr##Access : AccessTo<id> {                                   \
    using Value = Type;                                                  \
    ZOL_KEYED_ACCESS(attr, Attr, Key)                                    \
    static void set(Model& entity, Key const& key, Value const& value) { \
      entity.attr##Is(key, value);                                       \
    }                                                                    \
  };
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS)                                  \
  struct Attr##Access : AccessTo<id> {                                         \
    ZOL_KEYED_ACCESS(attr, Attr, Key)                                          \
    static void set(Model& entity, Key const& key, Zol::String8 const& text) { \
      entity.attr##Is(key, text);                                              \
    }                                                                          \
  };
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS) \
  struct Attr##Access : AccessTo<id> {                        \
    ZOL_KEYED_ACCESS(attr, Attr, Key)                         \
    ZOL_CHILD_ACCESS(attr, Type)                              \
  };
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS)                                   \
  struct Attr##Access : AccessTo<id> {                                                            \
    using Member = Type;                                                                          \
    ZOL_KEYED_ACCESS(attr, Attr, Key)                                                             \
    static void set(Model& entity, Zol::Ptr<Type> const& referred) { entity.attr##Is(referred); } \
  };
