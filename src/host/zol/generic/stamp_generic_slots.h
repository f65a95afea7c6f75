// Stamps what a generic object does at a change of each attribute. `ownAdapter()` gives its
// notification half. Include the class's list behind it.
#define ZOL_UNKEYED(attr, Attr, id) \
  virtual void on##Attr() { changed(id); }
#define ZOL_KEYED(attr, Attr, id, Key)                                                   \
  virtual void on##Attr(Key key) { memberChanged(id, ownAdapter().attr##Pending, key); } \
  virtual void on##Attr() { onAttribute(id); }
