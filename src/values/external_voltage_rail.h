// The value record `ExternalVoltageRail`: a rail outside the controller, with the kind of fault
// that it stands for.
#pragma once

#include <cstdint>
#include <iosfwd>

#include "host/zol/ptr.h"
#include "host/zol/text.h"

namespace Hardware::Ucd9012 {

class RecordForm;

// A rail outside the controller, with the kind of fault that it stands for:
// a plain value. To change one that a collection holds, store another under the same key.
class ZOL_EXPORT ExternalVoltageRail {
 public:
  class GenericIf_;
  class _Type;

  ExternalVoltageRail() = default;
  // Of its attributes, in their order.
  ExternalVoltageRail(std::uint8_t railNum, std::uint8_t faultType)
      : railNum_(railNum), faultType_(faultType) {}
  // Reads the record that stands next in a message.
  ExternalVoltageRail(Zol::NboAttrLog::In* in, Zol::StreamBogon);
  // Reads the text form at the position and moves behind it. An attribute that the text leaves out
  // has its default. docs/values.md has the grammar and the failures, all of them
  // `RangeException`.
  ExternalVoltageRail(Zol::String8::IteratorConst& position,
                      Zol::String8::IteratorConst const& end);

  // The number of the rail, 0 to 255.
  [[nodiscard]] std::uint8_t railNum() const { return railNum_; }
  // A bare number, defined by those who fill it.
  [[nodiscard]] std::uint8_t faultType() const { return faultType_; }

  [[nodiscard]] virtual Zol::ZolType* fwkType() const;
  static Zol::ZolType* _fwkType();

  friend bool operator==(ExternalVoltageRail, ExternalVoltageRail) = default;

 private:
  friend class RecordForm;
  template <class Self, class Visit>
  static void eachField(Self& self, Visit const& visit) {
#include "values/stamp_field_visits.h"
#include "schema/external_voltage_rail.def"
  }

#include "values/stamp_record_fields.h"
#include "schema/external_voltage_rail.def"
};

// The text form, as "Value('Hardware::Ucd9012::ExternalVoltageRail', ** {'railNum': ...})".
ZOL_EXPORT Zol::String8 valueToStrep(ExternalVoltageRail const& value);
// Writes the text form.
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, ExternalVoltageRail const& value);
// Writes the attributes in their order into the open message, enumerators as 32-bit numbers.
ZOL_EXPORT Zol::Ptr<Zol::NboAttrLog::Out> const& operator<<(
    Zol::Ptr<Zol::NboAttrLog::Out> const& out, ExternalVoltageRail value);

}  // namespace Hardware::Ucd9012
