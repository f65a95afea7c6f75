// How a field of each type stands in a message.
#pragma once

#include <cstdint>
#include <type_traits>

#include "host/zol/attrlog/in.h"
#include "host/zol/attrlog/out.h"
#include "host/zol/entity.h"
#include "host/zol/expect.h"

namespace Zol::NboAttrLog {

// `write( out, value )` and `read( in )` of a type. Models add the forms of their own value types.
template <class T>
struct WireForm;

template <>
struct WireForm<bool> {
  static void write(OutPtr const& out, bool value) { out << value; }
  static bool read(In& in) { return in.nextbool(); }
};

template <>
struct WireForm<std::uint8_t> {
  static void write(OutPtr const& out, std::uint8_t value) { out << value; }
  static std::uint8_t read(In& in) { return in.nextU8(); }
};

template <>
struct WireForm<std::uint32_t> {
  static void write(OutPtr const& out, std::uint32_t value) { out << value; }
  static std::uint32_t read(In& in) { return in.nextU32(); }
};

template <>
struct WireForm<Name> {
  static void write(OutPtr const& out, Name const& value) { out << String8(value); }
  static Name read(In& in) { return in.nextString(); }
};

// An enumeration gives its enumerators by `enumeratorOf( number, E )`, found beside the
// enumeration, which throws `RangeException` for a number without one. That is counted and taken as
// it is: the peer may know an enumerator more.
template <class E>
requires std::is_enum_v<E>
struct WireForm<E> {
  static void write(OutPtr const& out, E value) { out << static_cast<int>(value); }
  static E read(In& in) {
    std::uint32_t const number = in.nextU32();
    Expect const scope(12);
    try {
      return enumeratorOf(number, E{});
    } catch (RangeException const&) {
      in.unknownEnumsInc();
      return static_cast<E>(number);
    }
  }
};

// The id by which the log knows what a constructor parameter refers to, which is announced first
// where the log does not know it; 0 for null.
[[nodiscard]] inline std::uint64_t parameterId(OutPtr const& out, Entity const* entity) {
  return entity ? const_cast<Entity*>(entity)->entityId(out, true, true, true) : 0;
}

template <class X>
struct WireForm<Ptr<X>> {
  static void write(OutPtr const& out, Ptr<X> const& value) {
    out->u64Is(parameterId(out, value.get()));
  }
  static Ptr<X> read(In& in) { return in.nextEntity<std::remove_const_t<X>>(); }
};

}  // namespace Zol::NboAttrLog
