// Stamps the slots of a listener that writes down each change as "<attr>" or "<attr> <key>".
// Include the class's list behind it.
#define ZOL_UNKEYED(attr, Attr, id) \
  void on##Attr() override { heard.push_back(#attr); }
#define ZOL_KEYED(attr, Attr, id, Key)                                              \
  void on##Attr(Key key) override { heard.push_back(#attr " " + textOf(key)); }     \
  void on##Attr##zolImmediate() override { heard.push_back(#attr " immediately"); } \
  void on##Attr() override { heard.push_back(#attr " as a whole"); }
