// Stamps the forwards of an adapter's listener half. Include the class's list behind it.
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS)      \
  void on##Attr() override {                                  \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr(); \
  }
#define ZOL_TEXT(attr, Attr, id, FLAGS)                       \
  void on##Attr() override {                                  \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr(); \
  }
