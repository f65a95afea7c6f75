// Stamps the slots of the notification half of a generic object: each forwards to the owner.
// Include the class's list behind it.
#define ZOL_UNKEYED(attr, Attr, id)                           \
  void on##Attr() override {                                  \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr(); \
  }
#define ZOL_KEYED(attr, Attr, id, Key)                           \
  Zol::PendingKey<Key> attr##Pending;                            \
  void on##Attr(Key key) override {                              \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr(key); \
  }                                                              \
  void on##Attr() override {                                     \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr();    \
  }
