#include "host/zol/registry/builtin.h"

#include "host/zol/generic/value_generic_if.h"
#include "host/zol/registry/model_type.h"

namespace Zol {

namespace {

template <class T>
constexpr std::string_view kFullName = "Zol::String8";
template <>
constexpr std::string_view kFullName<bool> = "bool";
template <>
constexpr std::string_view kFullName<unsigned char> = "U8";
template <>
constexpr std::string_view kFullName<unsigned short> = "U16";
template <>
constexpr std::string_view kFullName<unsigned int> = "U32";

}  // namespace

template <class T>
ZolType* Builtin<T>::_fwkType() {
  static ZolType* const type = makeValueType<T>(kFullName<T>).type();
  return type;
}

template class Builtin<bool>;
template class Builtin<unsigned char>;
template class Builtin<unsigned short>;
template class Builtin<unsigned int>;
template class Builtin<String8>;

ZolType* Name::_fwkType() {
  static ZolType* const type = makeValueType<Name>("Zol::Name").type();
  return type;
}

}  // namespace Zol
