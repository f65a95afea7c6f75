// How the value types of these models stand in a message.
#pragma once

#include "host/models/smbus.h"
#include "host/models/units.h"
#include "host/zol/attrlog/wire_forms.h"

namespace Units {

inline Zol::OutPtr const& operator<<(Zol::OutPtr const& out, Volts const& value) {
  return out << value.value();
}
inline Zol::OutPtr const& operator<<(Zol::OutPtr const& out, Celsius const& value) {
  return out << value.value();
}

}  // namespace Units

namespace Hardware {

inline Zol::OutPtr const& operator<<(Zol::OutPtr const& out, LobusAccelId id) {
  return out << id.value();
}
inline Zol::OutPtr const& operator<<(Zol::OutPtr const& out, LobusAgentId id) {
  return out << id.value();
}
inline Zol::OutPtr const& operator<<(Zol::OutPtr const& out, SmbusId id) {
  return out << id.value();
}
inline Zol::OutPtr const& operator<<(Zol::OutPtr const& out, SmbusDeviceId id) {
  return out << id.value();
}

// Found beside the enumerations by whoever reads one from a stream.
[[nodiscard]] inline SmbusAddrSize enumeratorOf(unsigned int number, SmbusAddrSize) {
  return SmbusAddrSizeInstance(number);
}
[[nodiscard]] inline SmbusDelay enumeratorOf(unsigned int number, SmbusDelay) {
  return SmbusDelayInstance(number);
}
[[nodiscard]] inline SmbusTimeout enumeratorOf(unsigned int number, SmbusTimeout) {
  return SmbusTimeoutInstance(number);
}

}  // namespace Hardware

namespace Zol::NboAttrLog {

template <class T>
requires std::is_base_of_v<Units::Quantity<T>, T>
struct WireForm<T> {
  static void write(OutPtr const& out, T const& value) { out << value; }
  static T read(In& in) { return in.nextdouble(); }
};

// A number above 0x7f is refused where the type's range ends there.
template <class T>
inline constexpr char const* kSmallIdRefusal = nullptr;
template <>
inline constexpr char const* kSmallIdRefusal<Hardware::LobusAccelId> =
    "LobusAccelId::value > 0x7f not allowed";
template <>
inline constexpr char const* kSmallIdRefusal<Hardware::SmbusId> =
    "SmbusId::value > 0x7f not allowed";

template <class T>
requires std::is_base_of_v<Hardware::SmallId<T>, T>
struct WireForm<T> {
  static void write(OutPtr const& out, T value) { out << value; }
  static T read(In& in) {
    std::uint8_t const number = in.nextU8();
    if (kSmallIdRefusal<T> && number > 0x7f) throwRangeException(kSmallIdRefusal<T>);
    return number;
  }
};

}  // namespace Zol::NboAttrLog
