#include "host/models/smbus.h"

#include <ostream>

#include "host/models/stream_type.h"
#include "host/zol/generic/value_generic_if.h"
#include "host/zol/generic/wrapped.h"

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

constexpr Zol::AttributeId kValueId = 2;

// The generic object of an id of 8 bits, whose number can be read.
template <class Id>
class IdGenericIf final : public Zol::ValueGenericIf<Id> {
 public:
  using Zol::ValueGenericIf<Id>::ValueGenericIf;
  using Zol::GenericIf::clone;

  [[nodiscard]] Zol::AttributeId attributeId(Zol::String8 name) const override {
    return name == Zol::String8("value") ? kValueId : Zol::GenericIf::attributeId(name);
  }
  Zol::Ptr<Zol::GenericIf> attributeOp(Zol::GenericIf::AttributeOp const& op,
                                       Zol::Ptr<Zol::GenericIf const> const& index,
                                       Zol::Ptr<Zol::GenericIf> const& value) override {
    if (op.attributeId != kValueId) return Zol::GenericIf::attributeOp(op, index, value);
    this->requireMutable(op.opId);
    if (index) Zol::GenericIf::throwBadIndexAttrException("value");
    if (op.opId != Zol::GenericIf::attrOpRead) {
      Zol::GenericIf::throwOpNotSupportedException("value", op.opId, false);
    }
    return Zol::wrapped(this->value().value(), this->isConst());
  }
  [[nodiscard]] Zol::Ptr<Zol::GenericIf> clone() override {
    return new IdGenericIf(this->value(), this->isConst());
  }
};

// The type of such an id.
template <class Id>
Zol::ZolType* idType(char const* fullName) {
  Zol::ModelType attributes = Zol::makeValueType<Id, IdGenericIf<Id>>(fullName);
  attributes.arg("value", "U8").plain<unsigned char>("value", kValueId, Zol::FlagClass::kP);
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

SmbusAddrSize sequenceToValue(Zol::String8::IteratorConst& position,
                              Zol::String8::IteratorConst const& end, SmbusAddrSize*) {
  return kAddrSizes.instance(Zol::quotedAt(position, end));
}

SmbusDelay sequenceToValue(Zol::String8::IteratorConst& position,
                           Zol::String8::IteratorConst const& end, SmbusDelay*) {
  return kDelays.instance(Zol::quotedAt(position, end));
}

SmbusTimeout sequenceToValue(Zol::String8::IteratorConst& position,
                             Zol::String8::IteratorConst const& end, SmbusTimeout*) {
  return kTimeouts.instance(Zol::quotedAt(position, end));
}

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
      Zol::makeEnumerationType<SmbusAddrSize>("Hardware::SmbusAddrSize", kAddrSizes.rows()).type();
  return type;
}

Zol::ZolType* _fwkType_SmbusDelay() {
  static Zol::ZolType* const type =
      Zol::makeEnumerationType<SmbusDelay>("Hardware::SmbusDelay", kDelays.rows()).type();
  return type;
}

Zol::ZolType* _fwkType_SmbusTimeout() {
  static Zol::ZolType* const type =
      Zol::makeEnumerationType<SmbusTimeout>("Hardware::SmbusTimeout", kTimeouts.rows()).type();
  return type;
}

Zol::ZolType* SmbusDevice::_fwkType() {
  static Zol::ZolType* const type = namedType<SmbusDevice>("Hardware::SmbusDevice");
  return type;
}

Zol::ZolType* SmbusDevice::fwkType() const { return _fwkType(); }

}  // namespace Hardware
