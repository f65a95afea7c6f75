// Stamps one call on `attributes` for each attribute of a class, in the order of the ids. Include
// the class's list behind it, where `attributes` builds the class's type.
#define ZOL_PARAM(attr, Attr, id, Type) attributes.plain<Type>(#attr, id, Zol::FlagClass::kP);
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) \
  attributes.plain<Type>(#attr, id, Zol::FlagClass::kPR);
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  attributes.plain<Type>(#attr, id, Zol::FlagClass::k##FLAGS);
#define ZOL_TEXT(attr, Attr, id, FLAGS) \
  attributes.plain<Zol::String8>(#attr, id, Zol::FlagClass::k##FLAGS);
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS) \
  attributes.plain<Type>(#attr, id, Zol::FlagClass::k##FLAGS);
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS) \
  attributes.keyed<Type, Key>(#attr, id, Zol::FlagClass::k##FLAGS);
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS) \
  attributes.keyed<Zol::String8, Key>(#attr, id, Zol::FlagClass::k##FLAGS);
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS) \
  attributes.child<Type>(#attr, id, Zol::FlagClass::k##FLAGS);
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS) \
  attributes.members<Type, Key>(#attr, id, Zol::FlagClass::k##FLAGS, #field);
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS) \
  attributes.members<Type, Key>(#attr, id, Zol::FlagClass::k##FLAGS, #field);
