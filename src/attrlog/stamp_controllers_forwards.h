// Stamps the forwards of the listener half of a root's adapter. Include the list behind it.
#define ZOL_CONTROLLERS(attr, Attr, Type)                        \
  using Config::NotifieeConst::on##Attr;                         \
  void on##Attr(Zol::Name key) override {                        \
    if (zolReactorAdapter()) zolReactorAdapter()->on##Attr(key); \
  }
