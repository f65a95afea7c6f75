// Stamps what a class adds to a digest: `digest` is the digest, `entity` the entity, of its own
// class. Include the class's list behind it.
#define ZOL_DIGEST_MEMBERS(attr, add) \
  for (auto it = entity.attr##IteratorConst(); it; ++it) digest.add(#attr, it.key(), *it);

#define ZOL_PARAM(attr, Attr, id, Type) digest.attribute(#attr, entity.attr());
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) digest.reference(#attr, entity.attr().get());
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) digest.attribute(#attr, entity.attr());
#define ZOL_TEXT(attr, Attr, id, FLAGS) digest.attribute(#attr, entity.attr());
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS) digest.reference(#attr, entity.attr().get());
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS) digest.child(#attr, entity.attr().get());
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS) ZOL_DIGEST_MEMBERS(attr, value)
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS) ZOL_DIGEST_MEMBERS(attr, value)
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS) ZOL_DIGEST_MEMBERS(attr, member)
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS) ZOL_DIGEST_MEMBERS(attr, referred)
