// Stamps the bodies of what every keyed attribute and every child singleton has alike, with `Self`
// for the class: reading, taking out, telling. Include the class's list behind it.
#define ZOL_TAKING(attr, Attr, id, Key, Result, taken)                                      \
  Result Self::attr##Del(Key key) {                                                         \
    return taken(attr##_, attr##_[key], [this](Key const& out) { attr##Notify(out); });     \
  }                                                                                         \
  Result Self::attr##Del(Attr##Map::Iterator& iterator) {                                   \
    return taken(attr##_, iterator.entry(), [this](Key const& out) { attr##Notify(out); }); \
  }                                                                                         \
  void Self::attr##DelAll() {                                                               \
    takeOutAll(attr##_, [this](Attr##Map::Iterator& iterator) { attr##Del(iterator); });    \
  }                                                                                         \
  void Self::attr##Notify(Key key) {                                                        \
    tellKey<NotifieeConst, Key>(Id::attr, &NotifieeConst::on##Attr, key);                   \
  }

#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS)             \
  Zol::Ptr<Type> Self::attr(Key key) const { return read(attr##_)[key]; } \
  ZOL_TAKING(attr, Attr, id, Key, Zol::Ptr<Type>, takeOut)
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS)                           \
  Type Self::attr(Key key) const { return valueOf<Type>(read(attr##_)[key]); } \
  ZOL_TAKING(attr, Attr, id, Key, Type, takeOutValue<Type>)
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS)                                                  \
  Zol::String8 Self::attr(Key key) const { return valueOf<Zol::String8>(read(attr##_)[key]); } \
  ZOL_TAKING(attr, Attr, id, Key, Zol::String8, takeOutValue<Zol::String8>)
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS)                           \
  Zol::Ptr<Type> Self::attr(Key key) const {                                              \
    Zol##Attr const* const entry = read(attr##_)[key];                                    \
    return entry ? entry->zolValue() : nullptr;                                           \
  }                                                                                       \
  Zol::Ptr<Self::Zol##Attr> Self::zol##Attr(Key key) const { return read(attr##_)[key]; } \
  ZOL_TAKING(attr, Attr, id, Key, Zol::Ptr<Type>, takeOutReference<Type>)
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS)                        \
  Zol::Ptr<Type> Self::attr() const { return read(attr##_); }             \
  Zol::Ptr<Type> Self::attr##Del() {                                      \
    return takeOutSingleton(attr##_, Id::attr, &NotifieeConst::on##Attr); \
  }
