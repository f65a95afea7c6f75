// The value record `PsocCause`: how a bit that a PSoC reports stands for a reload cause.
#pragma once

#include <cstdint>
#include <iosfwd>

#include "host/zol/ptr.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

class RecordForm;

// How a bit that a PSoC reports stands for a reload cause:
// a plain value. To change one that a collection holds, store another under the same key.
class ZOL_EXPORT PsocCause {
 public:
  class GenericIf_;
  class _Type;

  PsocCause() = default;
  // Of its attributes, in their order.
  PsocCause(ReloadCauses reloadCauseKey, std::uint16_t bitNum, bool origin)
      : reloadCauseKey_(reloadCauseKey), bitNum_(bitNum), origin_(origin) {}
  // Reads the record that stands next in a message. Throws `RangeException` with the name of the
  // enumeration for a number that has no enumerator.
  PsocCause(Zol::NboAttrLog::In* in, Zol::StreamBogon);
  // Reads the text form at the position and moves behind it. An attribute that the text leaves out
  // has its default. docs/values.md has the grammar and the failures, all of them
  // `RangeException`.
  PsocCause(Zol::String8::IteratorConst& position, Zol::String8::IteratorConst const& end);

  // The reload cause that the bit stands for.
  [[nodiscard]] ReloadCauses reloadCauseKey() const { return reloadCauseKey_; }
  // The number of the bit.
  [[nodiscard]] std::uint16_t bitNum() const { return bitNum_; }
  // A flag that goes with the bit; nothing here reads a meaning into it.
  [[nodiscard]] bool origin() const { return origin_; }

  [[nodiscard]] virtual Zol::ZolType* fwkType() const;
  static Zol::ZolType* _fwkType();

  friend bool operator==(PsocCause const&, PsocCause const&) = default;

 private:
  friend class RecordForm;
  template <class Self, class Visit>
  static void eachField(Self& self, Visit const& visit) {
#include "values/stamp_field_visits.h"
#include "schema/psoc_cause.def"
  }

#include "values/stamp_record_fields.h"
#include "schema/psoc_cause.def"
};

// The text form, as "Value('Hardware::Ucd9012::PsocCause', ** {'reloadCauseKey': ...})".
ZOL_EXPORT Zol::String8 valueToStrep(PsocCause const& value);
// Writes the text form.
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, PsocCause const& value);
// Writes the attributes in their order into the open message, enumerators as 32-bit numbers.
ZOL_EXPORT Zol::Ptr<Zol::NboAttrLog::Out> const& operator<<(
    Zol::Ptr<Zol::NboAttrLog::Out> const& out, PsocCause const& value);

}  // namespace Hardware::Ucd9012
