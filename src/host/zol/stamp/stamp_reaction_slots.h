// Stamps what an adapter has for each attribute: the reaction, what sends one member or all, and
// for children their adapters. A child's adapter is found by way of the child, never by
// `<attr>NboAttrLogAdapter`. Include the class's list behind it.
#define ZOL_CHILD_ADAPTERS(attr, Type)                                                            \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> attr##NboAttrLogAdapterIs(                               \
      Zol_BitSet flags, Zol::Ptr<Type> const& child, unsigned int n,                              \
      Zol::Ptr<Zol::NboAttrLog::Out> const& out, Zol::PtrInterface* msgChannelEntry);             \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> attr##NboAttrLogAdapterDel(Zol::Ptr<Type> const& child); \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> attr##NboAttrLogAdapter(Zol::Ptr<Type const> const&) {   \
    return nullptr;                                                                               \
  }                                                                                               \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa const> attr##NboAttrLogAdapter(                           \
      Zol::Ptr<Type const> const&) const {                                                        \
    return nullptr;                                                                               \
  }

#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) virtual void on##Attr();
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS) virtual void on##Attr();
#define ZOL_TEXT(attr, Attr, id, FLAGS) \
  virtual void on##Attr();              \
  bool zolHandle##Attr##Serialize();
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS) \
  virtual void on##Attr();                         \
  ZOL_CHILD_ADAPTERS(attr, Type)
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS)                                        \
  virtual void on##Attr(Key key);                                                           \
  void zolHandle##Attr##SerializeSing(Key const& key, Type const& value, bool del = false); \
  bool zolHandle##Attr##SerializeColl();
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS)                                    \
  virtual void on##Attr(Key key);                                                \
  bool zolHandle##Attr##SerializeSing(Key const& key, Zol::String8 const& value, \
                                      bool del = false);                         \
  bool zolHandle##Attr##SerializeColl();
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS)                       \
  virtual void on##Attr(Key key);                                                   \
  void zolHandle##Attr##SerializeSing(Key const& key, Zol::Ptr<Type> const& value); \
  bool zolHandle##Attr##SerializeColl();                                            \
  ZOL_CHILD_ADAPTERS(attr, Type)
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS)                     \
  virtual void on##Attr(Key key);                                                   \
  void zolHandle##Attr##SerializeSing(Key const& key, Zol::Ptr<Type> const& value); \
  bool zolHandle##Attr##SerializeColl();
