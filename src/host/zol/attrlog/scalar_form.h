// How a scalar of each type stands in a message.
#pragma once

#include "host/zol/attrlog/log_rows.h"
#include "host/zol/expect.h"

namespace Zol::NboAttrLog {

// The header of a message about a scalar of a type, and how the value is written and read.
template <class T>
struct ScalarForm;

template <>
struct ScalarForm<bool> {
  static constexpr bool kVariable = false;
  static constexpr std::uint32_t kSize = 1;
  static void write(OutPtr const& out, bool value) { out << value; }
  static bool read(StreamAdapter&, In& in) { return in.nextbool(); }
};

template <>
struct ScalarForm<std::uint32_t> {
  static constexpr bool kVariable = false;
  static constexpr std::uint32_t kSize = 4;
  static void write(OutPtr const& out, std::uint32_t value) { out << value; }
  static std::uint32_t read(StreamAdapter&, In& in) { return in.nextU32(); }
};

// An enumeration gives its enumerators by `enumeratorOf( number, E )`, found beside the
// enumeration. A number without one is counted and applied as it came.
template <class E>
requires std::is_enum_v<E>
struct ScalarForm<E> {
  static constexpr bool kVariable = true;
  static constexpr std::uint32_t kSize = 0;
  static void write(OutPtr const& out, E value) { out << static_cast<int>(value); }
  static E read(StreamAdapter& adapter, In& in) {
    std::uint32_t const number = in.nextU32();
    Expect const scope(12);
    try {
      return enumeratorOf(number, E{});
    } catch (RangeException const&) {
      adapter.streamDemuxer()->unknownEnumsInc(1);
      return static_cast<E>(number);
    }
  }
};

// Writes the message of a scalar.
template <class T>
void writeScalar(StreamAdapter const& adapter, OutPtr const& out, AttributeId id, T const& value) {
  using Form = ScalarForm<T>;
  using Token = Zol::Connection::Out::TransactToken;
  out->nextHeaderIs({adapter.entityId(), id, Form::kVariable, Form::kSize, 0, false});
  out << Token::open;
  Form::write(out, value);
  out << Token::close;
}

}  // namespace Zol::NboAttrLog
