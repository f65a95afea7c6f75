// Stamps the rows of a class's table of attributes (schema/attribute_rows.h). Include the class's
// list behind it.
#define ZOL_PARAM(attr, Attr, id, Type) \
  AttributeRow{#attr, id, AttributeKind::parameter, Zol::FlagClass::kP},
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) \
  AttributeRow{#attr, id, AttributeKind::parameterReference, Zol::FlagClass::kPR},
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  AttributeRow{#attr, id, AttributeKind::scalar, Zol::FlagClass::k##FLAGS},
#define ZOL_TEXT(attr, Attr, id, FLAGS) \
  AttributeRow{#attr, id, AttributeKind::text, Zol::FlagClass::k##FLAGS},
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS) \
  AttributeRow{#attr, id, AttributeKind::reference, Zol::FlagClass::k##FLAGS},
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS) \
  AttributeRow{#attr, id, AttributeKind::singleton, Zol::FlagClass::k##FLAGS},
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS) \
  AttributeRow{#attr, id, AttributeKind::values, Zol::FlagClass::k##FLAGS},
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS) \
  AttributeRow{#attr, id, AttributeKind::texts, Zol::FlagClass::k##FLAGS},
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS) \
  AttributeRow{#attr, id, AttributeKind::children, Zol::FlagClass::k##FLAGS},
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS) \
  AttributeRow{#attr, id, AttributeKind::references, Zol::FlagClass::k##FLAGS},
