// Stamps the rows of a class's attributes (host/zol/generic/access_level.h). `Model` names the
// entity class, `Generic` the class of its generic objects. Include the class's list behind it.
#define ZOL_ACCESS_ROW(attr, id, access, told) {id, #attr, "", nullptr, access, told, nullptr},
#define ZOL_PARAM(attr, Attr, id, Type) \
  ZOL_ACCESS_ROW(attr, id, (&Zol::accessParameter<Model, &Model::attr>), nullptr)
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) ZOL_PARAM(attr, Attr, id, Type)
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS)                                      \
  ZOL_ACCESS_ROW(attr, id, (&Zol::accessScalar<Model, Type, &Model::attr, &Model::attr##Is>), \
                 (&Zol::deliver<Generic, &Generic::on##Attr>))
#define ZOL_TEXT(attr, Attr, id, FLAGS) ZOL_SCALAR(attr, Attr, id, Zol::String8, {}, FLAGS)
#define ZOL_REFERENCE(attr, Attr, id, Type, FLAGS)                                               \
  ZOL_ACCESS_ROW(attr, id, (&Zol::accessReference<Model, Type, &Model::attr, &Model::attr##Is>), \
                 (&Zol::deliver<Generic, &Generic::on##Attr>))
#define ZOL_SINGLETON(attr, Attr, id, Type, FLAGS)                                         \
  ZOL_ACCESS_ROW(attr, id,                                                                 \
                 (&Zol::accessSingleton<Model, Type, kConstructorArgs<Type>, &Model::attr, \
                                        &Model::attr##Is, &Model::attr##Del>),             \
                 (&Zol::deliver<Generic, &Generic::on##Attr>))

#define ZOL_KEYED_ROW(attr, Attr, id, Key, keyName, access)                               \
  {id,                                                                                    \
   #attr,                                                                                 \
   keyName,                                                                               \
   &Zol::typeOf<Key>,                                                                     \
   access,                                                                                \
   &Zol::deliverKeyed<Generic, static_cast<void (Generic::*)()>(&Generic::on##Attr),      \
                      static_cast<void (Generic::*)(Key)>(&Generic::on##Attr),            \
                      &Generic::GenericIf_Adapter_::attr##Pending>,                       \
   &Zol::kWalk<Model, Key,                                                                \
               static_cast<Model::Attr##Map::IteratorConst (Model::*)() const>(           \
                   &Model::attr##IteratorConst),                                          \
               static_cast<Model::Attr##Map::IteratorConst (Model::*)(Key const&) const>( \
                   &Model::attr##IteratorConst)>},
#define ZOL_DEL(attr, Key, Result) static_cast<Result (Model::*)(Key)>(&Model::attr##Del)
#define ZOL_VALUES(attr, Attr, id, Type, Key, FLAGS)                                  \
  ZOL_KEYED_ROW(attr, Attr, id, Key, "zol_index",                                     \
                (&Zol::accessValues<Model, Type, Key, &Model::attr, &Model::attr##Is, \
                                    ZOL_DEL(attr, Key, Type), &Model::attr##Iterator>))
#define ZOL_TEXTS(attr, Attr, id, Key, FLAGS) ZOL_VALUES(attr, Attr, id, Zol::String8, Key, FLAGS)
#define ZOL_CHILDREN(attr, Attr, id, Type, Key, field, FLAGS)                                 \
  ZOL_KEYED_ROW(attr, Attr, id, Key, #field,                                                  \
                (&Zol::accessChildren<Model, Type, Key, kConstructorArgs<Type>, &Model::attr, \
                                      &Model::attr##Is, ZOL_DEL(attr, Key, Zol::Ptr<Type>),   \
                                      &Model::attr##Iterator>))
#define ZOL_REFERENCES(attr, Attr, id, Type, Key, field, FLAGS)                 \
  ZOL_KEYED_ROW(                                                                \
      attr, Attr, id, Key, #field,                                              \
      (&Zol::accessReferences<Model, Type, Key, &Model::attr, &Model::attr##Is, \
                              ZOL_DEL(attr, Key, Zol::Ptr<Type>), &Model::attr##Iterator>))
