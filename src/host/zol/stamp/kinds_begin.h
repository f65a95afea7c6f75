// Opens an attribute list. Whoever includes a list defines the kinds that it wants to tell apart; a
// kind that is left undefined falls back to ZOL_UNKEYED or ZOL_KEYED, and these to nothing.
//
// attr, Attr   the attribute's name, as it stands and with a capital letter
// id           its attribute id, fixed for good: it goes over the wire
// Type         the C++ type of the value; of an entity, its class
// Key          the C++ type of the key; `field` is the attribute of the member that holds it
// FLAGS        its flag class (host/zol/registry/attr_flags.h)
#ifndef ZOL_UNKEYED
#define ZOL_UNKEYED(attr, Attr, id)
#endif
#ifndef ZOL_KEYED
#define ZOL_KEYED(attr, Attr, id, Key)
#endif

// Fixed at construction: a value, or a reference to an entity.
#ifndef ZOL_PARAM
#define ZOL_PARAM(attr, Attr, id, Type)
#endif
#ifndef ZOL_PARAM_REFERENCE
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type)
#endif
// A bool, number, enumeration or unit, with its initial value.
#ifndef ZOL_SCALAR
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) ZOL_UNKEYED(attr, Attr, id)
#endif
// A text, empty at first.
#ifndef ZOL_TEXT
#define ZOL_TEXT(attr, Attr, id, FLAGS) ZOL_UNKEYED(attr, Attr, id)
#endif
// A counted reference to an entity that somebody else owns; null at first.
#ifndef ZOL_REFERENCE
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS) ZOL_UNKEYED(attr, Attr, id)
#endif
// One entity made and owned by the holder, or none.
#ifndef ZOL_SINGLETON
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS) ZOL_UNKEYED(attr, Attr, id)
#endif
// Value records by key, and texts by key.
#ifndef ZOL_VALUES
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS) ZOL_KEYED(attr, Attr, id, Key)
#endif
#ifndef ZOL_TEXTS
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS) ZOL_KEYED(attr, Attr, id, Key)
#endif
// Entities made and owned by the holder, by key.
#ifndef ZOL_CHILDREN
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS) ZOL_KEYED(attr, Attr, id, Key)
#endif
// References to entities owned elsewhere, by their name.
#ifndef ZOL_REFERENCES
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS) ZOL_KEYED(attr, Attr, id, Key)
#endif
