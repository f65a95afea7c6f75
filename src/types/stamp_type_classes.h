// Stamps the classes of the type objects. Include the list of types behind it.
#define ZOL_ENUM_TYPE(X)                                             \
  class X##__Type final : public Zol::ValueType<X, X##_GenericIf_> { \
   public:                                                           \
    X##__Type() : ValueType(#X) {}                                   \
  };

#define ZOL_RECORD_TYPE(X)                                                                \
  class X::_Type final : public Zol::ValueType<X, X::GenericIf_> {                        \
   public:                                                                                \
    _Type() : ValueType(#X) {}                                                            \
    using ValueType::genericIf;                                                           \
    Zol::Ptr<Zol::GenericIf> genericIf(Zol::GenericIf const* list, bool) const override { \
      return X::GenericIf_::genericIfListConstructor(list);                               \
    }                                                                                     \
  };

// What the type objects of all entities do.
#define ZOL_ENTITY_TYPE_OPERATIONS(X, Base)                                                     \
  _Type() : ZolType(#X, nullptr, Zol::typeOf<Base>(), {}) { addFunctions<X>(*this); }           \
  using ZolType::newEntity;                                                                     \
  using ZolType::genericIf;                                                                     \
  Zol::Ptr<Zol::Entity> newEntity(Zol::Ptr<Zol::NboAttrLog::In> const& in, Zol_BitSet,          \
                                  unsigned int, Zol::PtrInterface*) const override {            \
    return Zol::NboAttrLog::entityFromStream<X>(*in);                                           \
  }                                                                                             \
  Zol::Ptr<Zol::GenericIf> genericIf(Zol::String8 const& text, bool isConst) const override {   \
    return Zol::genericEntity<X>(text, isConst);                                                \
  }                                                                                             \
  Zol::Ptr<Zol::GenericIf> genericIf_(Zol::PtrInterface* object, bool isConst) const override { \
    return Zol::genericEntity<X>(object, isConst);                                              \
  }                                                                                             \
  void childAttrLogIs(Zol::Ptr<Zol::ZolAttr const> const& attr,                                 \
                      Zol::Ptr<Zol::PtrInterface> const& child,                                 \
                      Zol::Ptr<Zol::NboAttrLog::Out> const& out) const override {               \
    if (!childAnnounced<X>(*attr, child.get(), out)) ZolType::childAttrLogIs(attr, child, out); \
  }

#define ZOL_ENTITY_TYPE(X, Base)               \
  class X::_Type final : public Zol::ZolType { \
   public:                                     \
    ZOL_ENTITY_TYPE_OPERATIONS(X, Base)        \
  };

#define ZOL_ROOT_TYPE(X, Base)                                                            \
  class X::_Type final : public Zol::ZolType {                                            \
   public:                                                                                \
    ZOL_ENTITY_TYPE_OPERATIONS(X, Base)                                                   \
    Zol::Ptr<Zol::Entity> newEntity(Zol::Name const& name, Zol::Dir*) const override {    \
      return new X(name);                                                                 \
    }                                                                                     \
    Zol::Ptr<Zol::GenericIf> genericIf(Zol::GenericIf const* list, bool) const override { \
      return X::GenericIf_::genericIfListConstructor(list);                               \
    }                                                                                     \
  };
