// Stamps the slots of a listener that notes what has changed (support/tree.h). `Listener` names the
// class's `NotifieeConst`. Include the class's list behind it.
#define ZOL_UNKEYED(attr, Attr, id) \
  void on##Attr() override { this->changed(#attr); }
#define ZOL_KEYED(attr, Attr, id, Key) \
  using Listener::on##Attr;            \
  void on##Attr(Key key) override { this->changed(#attr + test::inBrackets(key)); }
