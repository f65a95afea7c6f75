// Stamps the cases of a switch over an attribute id that give the attribute's name. Include the
// class's list behind it.
#define ZOL_PARAM(attr, Attr, id, Type) \
  case id:                              \
    return #attr;
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) \
  case id:                                        \
    return #attr;
#define ZOL_UNKEYED(attr, Attr, id) \
  case id:                          \
    return #attr;
#define ZOL_KEYED(attr, Attr, id, Key) \
  case id:                             \
    return #attr;
