// The vocabulary of SMBus access: where a device stands, and how its bus must be driven.
#pragma once

#include <iosfwd>
#include <type_traits>

#include "host/models/named_entity.h"
#include "host/zol/value_reading.h"
#include "host/zol/value_text.h"

namespace Hardware {

// A number of 8 bits that the type tells apart from other such numbers.
template <class Self>
class SmallId {
 public:
  constexpr SmallId() = default;
  // The number as it is; none is refused here.
  constexpr SmallId(unsigned char value) : value_(value) {}

  // The number, 0 to 255.
  [[nodiscard]] constexpr unsigned char value() const noexcept { return value_; }

  friend constexpr bool operator==(Self a, Self b) noexcept { return a.value() == b.value(); }

 private:
  unsigned char value_ = 0;
};

// The number, and back from it. Throws `RangeException` for what is no number from 0 to 255.
template <class Self>
Zol::String8 valueToStrep(SmallId<Self> const& value) {
  return Zol::valueToStrep(static_cast<unsigned long long>(value.value()));
}
template <class Self>
requires std::derived_from<Self, SmallId<Self>> Self sequenceToValue(
    Zol::String8::IteratorConst& position, Zol::String8::IteratorConst const& end, Self*) {
  return Self(Zol::sequenceToValue(position, end, static_cast<unsigned char*>(nullptr)));
}

// The accelerator that serves the bus. Numbers above 0x7f do not go over a log.
class ZOL_EXPORT LobusAccelId : public SmallId<LobusAccelId> {
 public:
  using SmallId::SmallId;
  static Zol::ZolType* _fwkType();
};

// The agent that drives the bus.
class ZOL_EXPORT LobusAgentId : public SmallId<LobusAgentId> {
 public:
  using SmallId::SmallId;
  static Zol::ZolType* _fwkType();
};

// The bus behind its accelerator. Numbers above 0x7f do not go over a log.
class ZOL_EXPORT SmbusId : public SmallId<SmbusId> {
 public:
  using SmallId::SmallId;
  static Zol::ZolType* _fwkType();
};

// The address of a device on its bus.
class ZOL_EXPORT SmbusDeviceId : public SmallId<SmbusDeviceId> {
 public:
  using SmallId::SmallId;
  static Zol::ZolType* _fwkType();
};

// The size of the register address that a transfer begins with.
enum class SmbusAddrSize : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "host/models/smbus_addr_size.def"
};

// The pause between two transfers.
enum class SmbusDelay : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "host/models/smbus_delay.def"
};

// How long a device may hold the bus.
enum class SmbusTimeout : unsigned int {
#include "host/zol/stamp/stamp_enumerators.h"
#include "host/models/smbus_timeout.def"
};

// The enumerator's text; of a number that has none the name with the number, as "SmbusDelay(99)".
ZOL_EXPORT Zol::String8 stringValue(SmbusAddrSize value);
ZOL_EXPORT Zol::String8 stringValue(SmbusDelay value);
ZOL_EXPORT Zol::String8 stringValue(SmbusTimeout value);

// The enumerator of a number or of a text. Each throws `RangeException` with the bare name of the
// enumeration when there is none.
ZOL_EXPORT SmbusAddrSize SmbusAddrSizeInstance(unsigned int number);
ZOL_EXPORT SmbusAddrSize SmbusAddrSizeInstance(Zol::String8 name);
ZOL_EXPORT SmbusDelay SmbusDelayInstance(unsigned int number);
ZOL_EXPORT SmbusDelay SmbusDelayInstance(Zol::String8 name);
ZOL_EXPORT SmbusTimeout SmbusTimeoutInstance(unsigned int number);
ZOL_EXPORT SmbusTimeout SmbusTimeoutInstance(Zol::String8 name);

// The text in apostrophes.
ZOL_EXPORT Zol::String8 valueToStrep(SmbusAddrSize const& value);
ZOL_EXPORT Zol::String8 valueToStrep(SmbusDelay const& value);
ZOL_EXPORT Zol::String8 valueToStrep(SmbusTimeout const& value);

ZOL_EXPORT SmbusAddrSize sequenceToValue(Zol::String8::IteratorConst& position,
                                         Zol::String8::IteratorConst const& end, SmbusAddrSize*);
ZOL_EXPORT SmbusDelay sequenceToValue(Zol::String8::IteratorConst& position,
                                      Zol::String8::IteratorConst const& end, SmbusDelay*);
ZOL_EXPORT SmbusTimeout sequenceToValue(Zol::String8::IteratorConst& position,
                                        Zol::String8::IteratorConst const& end, SmbusTimeout*);

ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, SmbusAddrSize const& value);
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, SmbusDelay const& value);
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, SmbusTimeout const& value);

// The type objects.
ZOL_EXPORT Zol::ZolType* _fwkType_SmbusAddrSize();
ZOL_EXPORT Zol::ZolType* _fwkType_SmbusDelay();
ZOL_EXPORT Zol::ZolType* _fwkType_SmbusTimeout();
inline Zol::ZolType* zolTypeOf(std::type_identity<SmbusAddrSize>) {
  return _fwkType_SmbusAddrSize();
}
inline Zol::ZolType* zolTypeOf(std::type_identity<SmbusDelay>) { return _fwkType_SmbusDelay(); }
inline Zol::ZolType* zolTypeOf(std::type_identity<SmbusTimeout>) { return _fwkType_SmbusTimeout(); }

// A device on an SMBus.
class ZOL_EXPORT SmbusDevice : public NamedEntity {
 public:
  class _Type;

  using NamedEntity::NamedEntity;
  [[nodiscard]] Zol::ZolType* fwkType() const override;
  static Zol::ZolType* _fwkType();
};

}  // namespace Hardware
