// Stamps the slots of a listener class, in the order of the ids: one for an attribute without a
// key, three for a keyed one. Include the class's list behind it.
#define ZOL_UNKEYED(attr, Attr, id) \
  virtual void on##Attr() {}
#define ZOL_KEYED(attr, Attr, id, Key)     \
  virtual void on##Attr(Key) {}            \
  virtual void on##Attr##zolImmediate() {} \
  virtual void on##Attr() {}
