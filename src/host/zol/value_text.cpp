#include "host/zol/value_text.h"

#include <cxxabi.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <memory>

#include "host/zol/entity.h"
#include "host/zol/registry/zol_type.h"

namespace Zol {

namespace {

constexpr char kHexDigits[] = "0123456789abcdef";

void appendEscaped(std::string& out, char byte) {
  auto const code = static_cast<unsigned char>(byte);
  switch (byte) {
    case '\'':
    case '\\':
      out += {'\\', byte};
      return;
    case '\n':
      out += "\\n";
      return;
    case '\r':
      out += "\\r";
      return;
    case '\t':
      out += "\\t";
      return;
    default:
      if (code >= 0x20 && code != 0x7f) {
        out += byte;
      } else {
        out += {'\\', 'x', kHexDigits[code >> 4], kHexDigits[code & 15]};
      }
  }
}

}  // namespace

std::string classNameOf(std::type_info const& type) {
  int status = 0;
  std::unique_ptr<char, decltype(&std::free)> const name(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
  return status == 0 ? name.get() : type.name();
}

String8 valueToStrep(String8 const& value) {
  std::string text = "'";
  for (char const byte : value.view()) appendEscaped(text, byte);
  return text + "'";
}

String8 valueToStrep(Name const& value) { return valueToStrep(static_cast<String8 const&>(value)); }

String8 valueToStrep(unsigned long long value) { return std::to_string(value); }

String8 numberText(double value) {
  if (std::isnan(value)) return "nan";
  char text[32];
  auto const [end, error] = std::to_chars(std::begin(text), std::end(text), value);
  return error == std::errc() ? std::string(text, end) : std::string();
}

String8 valueToStrepOfRawPtr(PtrInterface const* object, std::type_info const& type) {
  if (!object) return "Entity('" + classNameOf(type) + "', None)";
  auto const* const entity = dynamic_cast<Entity const*>(object);
  if (!entity) return "Object('" + classNameOf(typeid(*object)) + "')";
  return "Entity('" + entity->fwkType()->fullName() + "', " + valueToStrep(entity->fullName()) +
         ")";
}

}  // namespace Zol
