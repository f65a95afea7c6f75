// Stamps the enumerators of a class's attribute ids. Include the class's list behind it.
#define ZOL_PARAM(attr, Attr, id, Type) attr = id,
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) attr = id,
#define ZOL_UNKEYED(attr, Attr, id) attr = id,
#define ZOL_KEYED(attr, Attr, id, Key) attr = id,
