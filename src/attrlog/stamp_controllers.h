// Stamps the operations of a root's adapter for each collection of controllers. Include the list
// behind it.
#define ZOL_CONTROLLERS(attr, Attr, Type)                                                      \
  void Sa::on##Attr(Zol::Name key) {                                                           \
    zolHandle##Attr##SerializeSing(key, static_cast<Config&>(*entity()).attr(key));            \
  }                                                                                            \
  void Sa::zolHandle##Attr##SerializeSing(Zol::Name const& key, Zol::Ptr<Type> const& value) { \
    childChanged(kChild<Type, Config::Id::attr, &Sa::attr##NboAttrLogAdapterIs>, key, value);  \
  }                                                                                            \
  bool Sa::zolHandle##Attr##SerializeColl() {                                                  \
    return collectionOwed(*kLevel.find(Config::Id::attr),                                      \
                          static_cast<Config&>(*entity()).attr##IteratorConst().map(),         \
                          &dirtyOf<Config::Id::attr>,                                          \
                          Sending<&Sa::zolHandle##Attr##SerializeSing>{*this});                \
  }                                                                                            \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Sa::attr##NboAttrLogAdapterIs(                        \
      Zol_BitSet flags, Zol::Ptr<Type> const& child, unsigned int n, Zol::OutPtr const& out,   \
      Zol::PtrInterface* msgChannelEntry) {                                                    \
    return announceChild(Config::Id::attr, flags, *child, n, out, msgChannelEntry,             \
                         &writeControllerParameters);                                          \
  }                                                                                            \
  Zol::Ptr<Zol::Entity::ZolNboAttrLogSa> Sa::attr##NboAttrLogAdapterDel(                       \
      Zol::Ptr<Type> const& child) {                                                           \
    return childAdapterDel(child.get());                                                       \
  }
