// Stamps what a class adds to a digest: `digest` is the digest, `entity` the entity, of its own
// class. Include the class's list behind it.
#define ZOL_PARAM(attr, Attr, id, Type) digest.attribute(#attr, entity.attr());
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) digest.reference(#attr, entity.attr().get());
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) digest.attribute(#attr, entity.attr());
#define ZOL_TEXT(attr, Attr, id, FLAGS) digest.attribute(#attr, entity.attr());
