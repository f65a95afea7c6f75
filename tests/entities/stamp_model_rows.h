// Stamps a model of each attribute of an entity `x` (entity_model.h). Include the class's list
// behind it.
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  models.add(new ScalarModel<Type>(                      \
      #attr, initial, [&x]() -> Type { return x.attr(); }, [&x](Type v) { x.attr##Is(v); }));
#define ZOL_TEXT(attr, Attr, id, FLAGS)     \
  models.add(new ScalarModel<Zol::String8>( \
      #attr, "", [&x] { return x.attr(); }, [&x](Zol::String8 v) { x.attr##Is(v); }));
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS)               \
  models.add(new ScalarModel<Zol::Ptr<Type>>(                    \
      #attr, nullptr, [&x] { return Zol::Ptr<Type>(x.attr()); }, \
      [&x](Zol::Ptr<Type> v) { x.attr##Is(v); }));
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS)                             \
  models.add(new SingletonModel<Type>(                                         \
      x, #attr, id, [&x] { return x.attr(); }, [&x] { return x.attr##Del(); }, \
      [&x](auto... args) { return Zol::Ptr<Type>(x.attr##Is(args...)); },      \
      [&x](auto... args) { return Zol::Ptr<Type>(x.new##Attr(args...)); }));
#define ZOL_KEYED_MODEL(Model, attr, Attr, id, Type, Key)                               \
  models.add(new Model<Type, Key>(                                                      \
      x, #attr, id,                                                                     \
      KeyedOps{[&x](Key key) { return x.attr(key); },                                   \
               [&x](auto const&... args) { return x.attr##Is(args...); },               \
               [&x](auto const&... args) { return x.new##Attr(args...); },              \
               [&x](auto&& at) { return x.attr##Del(at); }, [&x] { x.attr##DelAll(); }, \
               [&x] { return x.attr##Iterator(); }, [&x] { return x.attr##Count(); }}));
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS) \
  ZOL_KEYED_MODEL(ValuesModel, attr, Attr, id, Type, Key)
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS) \
  ZOL_KEYED_MODEL(ValuesModel, attr, Attr, id, Zol::String8, Key)
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS) \
  ZOL_KEYED_MODEL(ChildrenModel, attr, Attr, id, Type, Key)
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS) \
  ZOL_KEYED_MODEL(ReferencesModel, attr, Attr, id, Type, Key)
