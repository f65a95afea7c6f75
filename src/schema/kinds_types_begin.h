// Opens the list of types. Whoever includes it defines the kinds of types that it wants to tell
// apart; a kind that is left undefined falls back to the next more general one, and ZOL_ANY_TYPE to
// nothing.
//
// X      the bare name; the type lives in Hardware::Ucd9012
// Base   the class that an entity class derives from
// Key    the type of the key under which its holder keeps the entity
#ifndef ZOL_ANY_TYPE
#define ZOL_ANY_TYPE(X)
#endif
#ifndef ZOL_ENUM_TYPE
#define ZOL_ENUM_TYPE(X) ZOL_ANY_TYPE(X)
#endif
// Enumerations and records are values, entities are not.
#ifndef ZOL_RECORD_TYPE
#define ZOL_RECORD_TYPE(X) ZOL_ANY_TYPE(X)
#endif
#ifndef ZOL_ENTITY_TYPE
#define ZOL_ENTITY_TYPE(X, Base) ZOL_ANY_TYPE(X)
#endif
// An entity that holds its own key as an attribute.
#ifndef ZOL_KEYED_ENTITY_TYPE
#define ZOL_KEYED_ENTITY_TYPE(X, Base, Key) ZOL_ENTITY_TYPE(X, Base)
#endif
// A root: an entity that stands alone and is made from its name.
#ifndef ZOL_ROOT_TYPE
#define ZOL_ROOT_TYPE(X, Base) ZOL_ENTITY_TYPE(X, Base)
#endif
