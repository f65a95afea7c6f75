// Stamps a visit to each attribute of an entity `x` by a visitor `v` (support/tree.h). Include the
// class's list behind it.
#define ZOL_PARAM(attr, Attr, id, Type) v.parameter(#attr, x.attr());
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) v.parameter(#attr, x.attr());
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  v.scalar(                                              \
      #attr, [&x]() -> Type { return x.attr(); }, [&x](Type const& to) { x.attr##Is(to); });
#define ZOL_TEXT(attr, Attr, id, FLAGS) \
  v.scalar(                             \
      #attr, [&x] { return x.attr(); }, [&x](Zol::String8 const& to) { x.attr##Is(to); });
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS)          \
  v.scalar(                                                 \
      #attr, [&x]() -> Zol::Ptr<Type> { return x.attr(); }, \
      [&x](Zol::Ptr<Type> const& to) { x.attr##Is(to); });
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS)                               \
  v.singleton(                                                                   \
      #attr, [&x] { return x.attr(); },                                          \
      [&x](auto const&... args) { return Zol::Ptr<Type>(x.attr##Is(args...)); }, \
      [&x] { x.attr##Del(); });
#define ZOL_VISIT_KEYED(kind, attr, Type, Key)            \
  v.template kind<Type, Key>(                             \
      #attr, [&x] { return x.attr##IteratorConst(); },    \
      [&x](auto const&... args) { x.attr##Is(args...); }, \
      [&x](Key const& key) { x.attr##Del(key); });
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS) ZOL_VISIT_KEYED(values, attr, Type, Key)
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS) ZOL_VISIT_KEYED(values, attr, Zol::String8, Key)
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS) \
  ZOL_VISIT_KEYED(children, attr, Type, Key)
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS) \
  ZOL_VISIT_KEYED(references, attr, Type, Key)
