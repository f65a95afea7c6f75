// Stamps the rows of a class, over its `<Attr>Access` (stamp_access.h). Include the class's list
// behind it.
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  Zol::NboAttrLog::Scalar<Attr##Access>::kRow,
#define ZOL_TEXT(attr, Attr, id, FLAGS) Zol::NboAttrLog::Text<Attr##Access>::kRow,
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS) Zol::NboAttrLog::Reference<Attr##Access>::kRow,
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS) Zol::NboAttrLog::Singleton<Attr##Access>::kRow,
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS) Zol::NboAttrLog::Values<Attr##Access>::kRow,
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS) Zol::NboAttrLog::Texts<Attr##Access>::kRow,
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS) \
  Zol::NboAttrLog::Children<Attr##Access>::kRow,
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS) \
  Zol::NboAttrLog::References<Attr##Access>::kRow,
