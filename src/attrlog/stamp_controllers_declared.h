// Stamps what a root's adapter has for each collection of controllers. A child's adapter is found
// by way of the child, never by `<attr>NboAttrLogAdapter`. Include the list behind it.
#define ZOL_CONTROLLERS(attr, Attr, Type)                                                         \
  virtual void on##Attr(Zol::Name key);                                                           \
  void zolHandle##Attr##SerializeSing(Zol::Name const& key, Zol::Ptr<Type> const& value);         \
  bool zolHandle##Attr##SerializeColl();                                                          \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> attr##NboAttrLogAdapterIs(                               \
      Zol_BitSet flags, Zol::Ptr<Type> const& child, unsigned int n, Zol::OutPtr const& out,      \
      Zol::PtrInterface* msgChannelEntry);                                                        \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> attr##NboAttrLogAdapterDel(Zol::Ptr<Type> const& child); \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> attr##NboAttrLogAdapter(Zol::Ptr<Type const> const&) {   \
    return nullptr;                                                                               \
  }                                                                                               \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa const> attr##NboAttrLogAdapter(                           \
      Zol::Ptr<Type const> const&) const {                                                        \
    return nullptr;                                                                               \
  }
