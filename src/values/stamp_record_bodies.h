// Stamps what each value record does by its fields (values/record_form.h). Include the list of
// types behind it.
#define ZOL_RECORD_TYPE(R)                                                              \
  R::R(Zol::NboAttrLog::In* in, Zol::StreamBogon) { RecordForm::read(*this, *in); }     \
  R::R(Zol::String8::IteratorConst& position, Zol::String8::IteratorConst const& end) { \
    RecordForm::parse(*this, position, end);                                            \
  }                                                                                     \
  Zol::ZolType* R::fwkType() const { return _fwkType(); }                               \
  Zol::String8 valueToStrep(R const& value) { return RecordForm::text(value); }         \
  std::ostream& operator<<(std::ostream& stream, R const& value) {                      \
    return stream << valueToStrep(value);                                               \
  }                                                                                     \
  Zol::OutPtr const& operator<<(Zol::OutPtr const& out, RecordForm::Passed<R> value) {  \
    return RecordForm::write(out, value);                                               \
  }
