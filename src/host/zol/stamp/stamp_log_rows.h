// Stamps the rows of a class's scalars and texts. `Sa` names the adapter class, `Model` its
// entity's, `dirtyBit( id )` gives an attribute's bit, `cachedAttr( id )` its registered attribute.
// Include the class's list behind it.
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS)                        \
  {id,                                                                          \
   Zol::NboAttrLog::LogRow::Kind::scalar,                                       \
   dirtyBit(id),                                                                \
   &cachedAttr,                                                                 \
   &Zol::NboAttrLog::reactTo<&Sa::on##Attr>,                                    \
   nullptr,                                                                     \
   &Zol::NboAttrLog::applyScalar<Type, Model, &Model::attr##Is, &Sa::on##Attr>, \
   nullptr},
#define ZOL_TEXT(attr, Attr, id, FLAGS)                                 \
  {id,                                                                  \
   Zol::NboAttrLog::LogRow::Kind::text,                                 \
   dirtyBit(id),                                                        \
   &cachedAttr,                                                         \
   &Zol::NboAttrLog::reactTo<&Sa::on##Attr>,                            \
   &Zol::NboAttrLog::serializeTo<&Sa::zolHandle##Attr##Serialize>,      \
   &Zol::NboAttrLog::applyText<Model, &Model::attr##Is, &Sa::on##Attr>, \
   nullptr},
