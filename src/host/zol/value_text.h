// The text form of values: what tools show and read, and what failures say of a value.
#pragma once

#include <concepts>
#include <typeinfo>

#include "host/zol/forward.h"
#include "host/zol/text.h"

namespace Zol {

// The text in apostrophes. Apostrophe, backslash and control characters stand escaped by a
// backslash, as "\'", "\\", "\n", "\t", "\r" or "\x1f"; all other bytes stand as they are. Reading
// it back (host/zol/value_reading.h) gives the same bytes, whatever they are.
ZOL_EXPORT String8 valueToStrep(String8 const& value);
ZOL_EXPORT String8 valueToStrep(Name const& value);
ZOL_EXPORT String8 valueToStrep(unsigned long long value);
// The shortest decimal text from which the number can be read back exactly: "0.85", "-inf", "nan".
ZOL_EXPORT String8 numberText(double value);
// "True" or "False". A template, so that no pointer or number becomes a bool on its way here.
template <std::same_as<bool> Bool>
String8 valueToStrep(Bool value) {
  return value ? "True" : "False";
}

// The text of a reference to `object`: the full name of its class and its path, as
// "Entity('Fru::Gpo', '/wp')". It can be read back when the entity stands below a root in a
// directory. A null reference names `type`, the class that it could refer to, as
// "Entity('Fru::Gpo', None)". An object that is no entity has no path and shows the name of its
// class alone, as "Object('Zol::Dir::Entry')"; that cannot be read back.
ZOL_EXPORT String8 valueToStrepOfRawPtr(PtrInterface const* object, std::type_info const& type);

// The name of a class as it is written in C++.
ZOL_EXPORT std::string classNameOf(std::type_info const& type);

}  // namespace Zol
