// Stamps the bodies of what stamp_reaction_slots.h declares, over `<Attr>Access` (stamp_access.h).
// `Sa` names the adapter class. Include the class's list behind it.
#define ZOL_KIND(Kind, Attr) Zol::NboAttrLog::Kind<Attr##Access>

#define ZOL_CHILD_ADAPTER_BODIES(Kind, attr, Attr, Type)                                     \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Sa::attr##NboAttrLogAdapterIs(                      \
      Zol_BitSet flags, Zol::Ptr<Type> const& child, unsigned int n, Zol::OutPtr const& out, \
      Zol::PtrInterface* msgChannelEntry) {                                                  \
    return ZOL_KIND(Kind, Attr)::announceIs(*this, flags, child, n, out, msgChannelEntry);   \
  }                                                                                          \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Sa::attr##NboAttrLogAdapterDel(                     \
      Zol::Ptr<Type> const& child) {                                                         \
    return childAdapterDel(child.get());                                                     \
  }

#define ZOL_KEYED_BODIES(Kind, Attr, Key)                                      \
  void Sa::on##Attr(Key key) { ZOL_KIND(Kind, Attr)::keyChanged(*this, key); } \
  bool Sa::zolHandle##Attr##SerializeColl() { return ZOL_KIND(Kind, Attr)::owed(*this); }

#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  void Sa::on##Attr() { ZOL_KIND(Scalar, Attr)::changed(*this); }
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS) \
  void Sa::on##Attr() { ZOL_KIND(Reference, Attr)::changed(*this); }
#define ZOL_TEXT(attr, Attr, id, FLAGS)                 \
  void Sa::on##Attr() { zolHandle##Attr##Serialize(); } \
  bool Sa::zolHandle##Attr##Serialize() { return ZOL_KIND(Text, Attr)::changed(*this); }
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS)                   \
  void Sa::on##Attr() { ZOL_KIND(Singleton, Attr)::changed(*this); } \
  ZOL_CHILD_ADAPTER_BODIES(Singleton, attr, Attr, Type)
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS)                                     \
  ZOL_KEYED_BODIES(Values, Attr, Key)                                                    \
  void Sa::zolHandle##Attr##SerializeSing(Key const& key, Type const& value, bool del) { \
    ZOL_KIND(Values, Attr)::changed(*this, key, value, del);                             \
  }
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS)                                                    \
  ZOL_KEYED_BODIES(Texts, Attr, Key)                                                             \
  bool Sa::zolHandle##Attr##SerializeSing(Key const& key, Zol::String8 const& value, bool del) { \
    return ZOL_KIND(Texts, Attr)::changed(*this, key, value, del);                               \
  }
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS)                            \
  ZOL_KEYED_BODIES(Children, Attr, Key)                                                  \
  void Sa::zolHandle##Attr##SerializeSing(Key const& key, Zol::Ptr<Type> const& value) { \
    ZOL_KIND(Children, Attr)::changed(*this, key, value);                                \
  }                                                                                      \
  ZOL_CHILD_ADAPTER_BODIES(Children, attr, Attr, Type)
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS)                          \
  ZOL_KEYED_BODIES(References, Attr, Key)                                                \
  void Sa::zolHandle##Attr##SerializeSing(Key const& key, Zol::Ptr<Type> const& value) { \
    ZOL_KIND(References, Attr)::changed(*this, key, value);                              \
  }
