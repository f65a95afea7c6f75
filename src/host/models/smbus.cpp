#include "host/models/smbus.h"

#include <ostream>

#include "host/models/stream_type.h"

namespace Hardware {

namespace {

constexpr Zol::Enumerator kAddrSizeRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "host/models/smbus_addr_size.def"
};
constexpr Zol::Enumeration<SmbusAddrSize> kAddrSizes("SmbusAddrSize", kAddrSizeRows);

constexpr Zol::Enumerator kDelayRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "host/models/smbus_delay.def"
};
constexpr Zol::Enumeration<SmbusDelay> kDelays("SmbusDelay", kDelayRows);

constexpr Zol::Enumerator kTimeoutRows[] = {
#include "host/zol/stamp/stamp_enumerator_rows.h"
#include "host/models/smbus_timeout.def"
};
constexpr Zol::Enumeration<SmbusTimeout> kTimeouts("SmbusTimeout", kTimeoutRows);

// The type of an id of 8 bits, whose one attribute is its number.
template <class Id>
Zol::ZolType* idType(char const* fullName) {
  auto attributes = Zol::ModelType::value(fullName, sizeof(Id));
  attributes.arg("value", "U8").plain<unsigned char>("value", 2, Zol::FlagClass::kP);
  Zol::ZolType* const type = attributes.type();
  type->valAttrIs(type->attr("value"));
  return type;
}

}  // namespace

Zol::String8 stringValue(SmbusAddrSize value) { return kAddrSizes.stringValue(value); }
Zol::String8 stringValue(SmbusDelay value) { return kDelays.stringValue(value); }
Zol::String8 stringValue(SmbusTimeout value) { return kTimeouts.stringValue(value); }

SmbusAddrSize SmbusAddrSizeInstance(unsigned int number) { return kAddrSizes.instance(number); }
SmbusAddrSize SmbusAddrSizeInstance(Zol::String8 name) { return kAddrSizes.instance(name); }
SmbusDelay SmbusDelayInstance(unsigned int number) { return kDelays.instance(number); }
SmbusDelay SmbusDelayInstance(Zol::String8 name) { return kDelays.instance(name); }
SmbusTimeout SmbusTimeoutInstance(unsigned int number) { return kTimeouts.instance(number); }
SmbusTimeout SmbusTimeoutInstance(Zol::String8 name) { return kTimeouts.instance(name); }

Zol::String8 valueToStrep(SmbusAddrSize const& value) { return kAddrSizes.strep(value); }
Zol::String8 valueToStrep(SmbusDelay const& value) { return kDelays.strep(value); }
Zol::String8 valueToStrep(SmbusTimeout const& value) { return kTimeouts.strep(value); }

std::ostream& operator<<(std::ostream& stream, SmbusAddrSize const& value) {
  return stream << stringValue(value);
}
std::ostream& operator<<(std::ostream& stream, SmbusDelay const& value) {
  return stream << stringValue(value);
}
std::ostream& operator<<(std::ostream& stream, SmbusTimeout const& value) {
  return stream << stringValue(value);
}

Zol::ZolType* LobusAccelId::_fwkType() {
  static Zol::ZolType* const type = idType<LobusAccelId>("Hardware::LobusAccelId");
  return type;
}

Zol::ZolType* LobusAgentId::_fwkType() {
  static Zol::ZolType* const type = idType<LobusAgentId>("Hardware::LobusAgentId");
  return type;
}

Zol::ZolType* SmbusId::_fwkType() {
  static Zol::ZolType* const type = idType<SmbusId>("Hardware::SmbusId");
  return type;
}

Zol::ZolType* SmbusDeviceId::_fwkType() {
  static Zol::ZolType* const type = idType<SmbusDeviceId>("Hardware::SmbusDeviceId");
  return type;
}

Zol::ZolType* _fwkType_SmbusAddrSize() {
  static Zol::ZolType* const type =
      Zol::ModelType::enumeration("Hardware::SmbusAddrSize", kAddrSizes.rows()).type();
  return type;
}

Zol::ZolType* _fwkType_SmbusDelay() {
  static Zol::ZolType* const type =
      Zol::ModelType::enumeration("Hardware::SmbusDelay", kDelays.rows()).type();
  return type;
}

Zol::ZolType* _fwkType_SmbusTimeout() {
  static Zol::ZolType* const type =
      Zol::ModelType::enumeration("Hardware::SmbusTimeout", kTimeouts.rows()).type();
  return type;
}

Zol::ZolType* SmbusDevice::_fwkType() {
  static Zol::ZolType* const type = namedType<SmbusDevice>("Hardware::SmbusDevice");
  return type;
}

Zol::ZolType* SmbusDevice::fwkType() const { return _fwkType(); }

}  // namespace Hardware
