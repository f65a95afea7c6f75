// Stamps the reactions themselves. `Sa` names the adapter class, `Model` its entity's;
// `Sa::level()` gives its rows. Include the class's list behind it.
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  void Sa::on##Attr() { scalarOf<Type, Model, &Model::attr>(*level().find(id)); }
#define ZOL_TEXT(attr, Attr, id, FLAGS)                                                   \
  void Sa::on##Attr() { zolHandle##Attr##Serialize(); }                                   \
  bool Sa::zolHandle##Attr##Serialize() {                                                 \
    return textChanged(*level().find(id), &Zol::NboAttrLog::textOf<Model, &Model::attr>); \
  }
