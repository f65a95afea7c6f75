// Stamps the generic objects of the records and the enumerations. Include the list of types behind
// it.
#define ZOL_RECORD_TYPE(R)                                           \
  class ZOL_EXPORT R::GenericIf_ final : public RecordGenericIf<R> { \
   public:                                                           \
    using RecordGenericIf::RecordGenericIf;                          \
  };
#define ZOL_ENUM_TYPE(E) using E##_GenericIf_ = Zol::EnumGenericIf<E>;
