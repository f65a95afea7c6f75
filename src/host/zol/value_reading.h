// The text form of values, read back. docs/values.md has the grammar.
//
// Every parser takes a position, which it moves behind what it read, and the end up to which it may
// read. White space may stand in front of each token. Whatever the bytes, a parser ends with a
// value or a `RangeException`, in time linear in their number; where it fails, the text says what
// was expected, at which column, and what stands there. A column is a byte index from 0.
#pragma once

#include <concepts>
#include <limits>
#include <type_traits>
#include <typeinfo>

#include "host/zol/entity.h"
#include "host/zol/exception.h"

namespace Zol {

// Moves behind the pattern. A blank in it stands for any run of white space, also an empty one.
ZOL_EXPORT void needString(String8::IteratorConst& position, String8::IteratorConst const& end,
                           char const* pattern);

// The content of a text in apostrophes, as `valueToStrep` writes it. Apart from the escapes "\'",
// "\\", "\n", "\r", "\t" and "\x" with two hexadecimal digits every byte stands for itself.
[[nodiscard]] ZOL_EXPORT String8 quotedAt(String8::IteratorConst& position,
                                          String8::IteratorConst const& end);

// A value of the type to which the pointer, which is not looked at, would point: a quoted text, a
// decimal number from -2^63 to 2^63 - 1, "True" or "False".
inline String8 sequenceToValue(String8::IteratorConst& position, String8::IteratorConst const& end,
                               String8*) {
  return quotedAt(position, end);
}
ZOL_EXPORT long long sequenceToValue(String8::IteratorConst& position,
                                     String8::IteratorConst const& end, long long*);
inline Name sequenceToValue(String8::IteratorConst& position, String8::IteratorConst const& end,
                            Name*) {
  return quotedAt(position, end);
}
ZOL_EXPORT bool sequenceToValue(String8::IteratorConst& position, String8::IteratorConst const& end,
                                bool*);

// A decimal number from 0 to `most`, which is at most 2^32 - 1.
[[nodiscard]] ZOL_EXPORT long long numberUpTo(String8::IteratorConst& position,
                                              String8::IteratorConst const& end, long long most);
template <std::unsigned_integral Number>
requires(!std::same_as<Number, bool> && sizeof(Number) <= 4)  //
    Number
    sequenceToValue(String8::IteratorConst& position, String8::IteratorConst const& end, Number*) {
  return static_cast<Number>(numberUpTo(position, end, std::numeric_limits<Number>::max()));
}
// A floating-point number as `numberText` writes it, or in any other decimal form.
[[nodiscard]] ZOL_EXPORT double floatingAt(String8::IteratorConst& position,
                                           String8::IteratorConst const& end);

// The entity that a text as of `valueToStrepOfRawPtr` refers to, which must stand below a root in a
// directory (`Dir`) and be of the class that the text names, or of one derived from it. Null for
// "Entity('<class>', None)".
[[nodiscard]] ZOL_EXPORT Ptr<Entity> sequenceToValueOfPtr(String8::IteratorConst& position,
                                                          String8::IteratorConst const& end,
                                                          Entity*);

// Throws `RangeException` "cannot convert <text> at column <n> to <class>" with what stands between
// the two positions, and the class that was wanted.
[[noreturn]] ZOL_EXPORT void cannotConvert(String8::IteratorConst const& position,
                                           String8::IteratorConst const& end,
                                           std::type_info const& wanted);

// Throws `RangeException` "attribute '<name>': <text of the failure>".
[[noreturn]] ZOL_EXPORT void rethrowFromDeserializeAttr(RangeException const& failure,
                                                        String8& name);

// Throws `RangeException` "junk at column <n> deserializing <text>".
[[noreturn]] ZOL_EXPORT void throwJunk(String8::IteratorConst const& position);

// An entity reference whose entity must be an `X`, as above; `cannotConvert` for another one.
template <std::derived_from<Entity> X>
Ptr<X> sequenceToValue(String8::IteratorConst& position, String8::IteratorConst const& end,
                       Ptr<X>*) {
  String8::IteratorConst const start = position;
  Ptr<Entity> const entity = sequenceToValueOfPtr(position, end, nullptr);
  if (!entity) return nullptr;
  auto* const wanted = dynamic_cast<X*>(entity.get());
  if (!wanted) cannotConvert(start, position, typeid(X));
  return wanted;
}

// The value of an attribute of type `T` at the position. A number is read as one of 64 bits and cut
// to the low bits of `T`. A `RangeException` goes on with the attribute's name in front.
template <class T>
T deserializeAttr(String8::IteratorConst& position, String8::IteratorConst const& end, T*,
                  String8 name) {
  try {
    if constexpr (std::is_integral_v<T> && !std::same_as<T, bool>) {
      return static_cast<T>(sequenceToValue(position, end, static_cast<long long*>(nullptr)));
    } else {
      return sequenceToValue(position, end, static_cast<T*>(nullptr));
    }
  } catch (RangeException const& failure) {
    rethrowFromDeserializeAttr(failure, name);
  }
}

// The value of a whole text: of an enumeration, a value record, or `Ptr<X>` of an entity class. The
// pointer is not looked at. Throws what the parser of `T` throws, and `RangeException` "junk at
// column <n> deserializing <text>" when something is left behind the value.
template <class T>
T strepToValue(String8 const& text, T* = nullptr) {
  using It = String8::IteratorConst;
  It position(text);
  It const end(text, text.size());
  auto const whole = [&](T value) {
    if (!position.atEnd()) throwJunk(position);
    return value;
  };
  if constexpr (std::constructible_from<T, It&, It const&>) {
    return whole(T(position, end));
  } else {
    return whole(sequenceToValue(position, end, static_cast<T*>(nullptr)));
  }
}

}  // namespace Zol
