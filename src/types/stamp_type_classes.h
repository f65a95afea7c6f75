// Stamps the classes of the type objects. Include the list of types behind it.
#define ZOL_ENUM_TYPE(X)                               \
  class X##__Type final : public Zol::ZolType {        \
   public:                                             \
    X##__Type() : ZolType(#X, nullptr, nullptr, {}) {} \
  };

#define ZOL_RECORD_TYPE(X)                         \
  class X::_Type final : public Zol::ZolType {     \
   public:                                         \
    _Type() : ZolType(#X, nullptr, nullptr, {}) {} \
  };

#define ZOL_ENTITY_TYPE_MEMBERS(X, Base)                                                        \
  _Type() : ZolType(#X, nullptr, Zol::typeOf<Base>(), {}) { addFunctions<X>(*this); }           \
  Zol::Ptr<Zol::Entity> newEntity(Zol::Ptr<Zol::NboAttrLog::In> const& in, Zol_BitSet,          \
                                  unsigned int, Zol::PtrInterface*) const override {            \
    return Zol::NboAttrLog::entityFromStream<X>(*in);                                           \
  }                                                                                             \
  void childAttrLogIs(Zol::Ptr<Zol::ZolAttr const> const& attr,                                 \
                      Zol::Ptr<Zol::PtrInterface> const& child,                                 \
                      Zol::Ptr<Zol::NboAttrLog::Out> const& out) const override {               \
    if (!childAnnounced<X>(*attr, child.get(), out)) ZolType::childAttrLogIs(attr, child, out); \
  }

#define ZOL_ENTITY_TYPE(X, Base)               \
  class X::_Type final : public Zol::ZolType { \
   public:                                     \
    using ZolType::newEntity;                  \
    ZOL_ENTITY_TYPE_MEMBERS(X, Base)           \
  };

#define ZOL_ROOT_TYPE(X, Base)                                                         \
  class X::_Type final : public Zol::ZolType {                                         \
   public:                                                                             \
    Zol::Ptr<Zol::Entity> newEntity(Zol::Name const& name, Zol::Dir*) const override { \
      return new X(name);                                                              \
    }                                                                                  \
    ZOL_ENTITY_TYPE_MEMBERS(X, Base)                                                   \
  };
