// Stamps the fields of scalars and texts, with their initial values. Include the
// class's list behind it.
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) Type attr##_ = initial;
#define ZOL_TEXT(attr, Attr, id, FLAGS) Zol::String8 attr##_;
