// Stamps the conversions of each enumeration over its table. Include the list of types behind it.
#define ZOL_ENUM_TYPE(E)                                                                           \
  constexpr Zol::Enumeration<E> k##E(#E, kEnumeratorRows<E>);                                      \
  Zol::String8 stringValue(E value) { return k##E.stringValue(value); }                            \
  E E##Instance(unsigned int number) { return k##E.instance(number); }                             \
  E E##Instance(Zol::String8 name) { return k##E.instance(name); }                                 \
  Zol::String8 valueToStrep(E const& value) { return k##E.strep(value); }                          \
  E sequenceToValue(Zol::String8::IteratorConst& position, Zol::String8::IteratorConst const& end, \
                    E*) {                                                                          \
    return k##E.instance(Zol::quotedAt(position, end));                                            \
  }                                                                                                \
  std::ostream& operator<<(std::ostream& stream, E const& value) {                                 \
    return stream << stringValue(value);                                                           \
  }
