// Stamps the forwards of an adapter's listener half. `Listener` names the class's `NotifieeConst`.
// Include the class's list behind it.
#define ZOL_UNKEYED(attr, Attr, id)                           \
  void on##Attr() override {                                  \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr(); \
  }
#define ZOL_KEYED(attr, Attr, id, Key)                           \
  using Listener::on##Attr;                                      \
  void on##Attr(Key key) override {                              \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr(key); \
  }
