// Stamps what a root's adapter has for each collection of controllers. Include the list behind it.
#define ZOL_CONTROLLERS(attr, Attr, Type)                                                    \
  virtual void on##Attr(Zol::Name key);                                                      \
  void zolHandle##Attr##SerializeSing(Zol::Name const& key, Zol::Ptr<Type> const& value);    \
  bool zolHandle##Attr##SerializeColl();                                                     \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> attr##NboAttrLogAdapterIs(                          \
      Zol_BitSet flags, Zol::Ptr<Type> const& child, unsigned int n, Zol::OutPtr const& out, \
      Zol::PtrInterface* msgChannelEntry);                                                   \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> attr##NboAttrLogAdapterDel(Zol::Ptr<Type> const& child);
