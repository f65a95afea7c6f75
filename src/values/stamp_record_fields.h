// Stamps the fields of a value record. Include the record's list behind it.
#define ZOL_PARAM(attr, Attr, id, Type) Type attr##_{};
