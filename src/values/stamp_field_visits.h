// Stamps a visit to each field of a value record: `self` is the record, `visit` takes a name and a
// field. Include the record's list behind it.
#define ZOL_PARAM(attr, Attr, id, Type) visit(#attr, self.attr##_);
