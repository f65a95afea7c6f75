// Stamps the declarations of an adapter's reactions to scalars and texts. Include the class's list
// behind it.
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) virtual void on##Attr();
#define ZOL_TEXT(attr, Attr, id, FLAGS) \
  virtual void on##Attr();              \
  bool zolHandle##Attr##Serialize();
