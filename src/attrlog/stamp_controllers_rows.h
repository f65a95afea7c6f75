// Stamps the rows of a root's collections of controllers. Include the list behind it.
#define ZOL_CONTROLLERS(attr, Attr, Type)                                                    \
  {Config::Id::attr,                                                                         \
   LogRow::Kind::collection,                                                                 \
   dirtyBit(Config::Id::attr),                                                               \
   &zolCachedAttr<Config>,                                                                   \
   &reactToKey<&Sa::on##Attr>,                                                               \
   &Zol::NboAttrLog::serializeTo<&Sa::zolHandle##Attr##SerializeColl>,                       \
   &applyController<&Config::attr, &Config::attr##Is, &Sa::on##Attr>,                        \
   &removeController<static_cast<Zol::Ptr<Type> (Config::*)(Zol::Name)>(&Config::attr##Del), \
                     &Sa::on##Attr>},
