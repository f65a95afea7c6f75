// Stamps the fields of a class in the order of its attributes. A keyed attribute is kept in a
// `<Attr>Map`, which the class defines. Include the class's list behind it.
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) Type attr##_ = initial;
#define ZOL_TEXT(attr, Attr, id, FLAGS) Zol::String8 attr##_;
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS) Zol::Ptr<Type> attr##_;
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS) Zol::Ptr<Type> attr##_;
#define ZOL_KEYED(attr, Attr, id, Key) Attr##Map attr##_;
