// The value record `PageFaultCause`: how the fault bits of a source stand for a reload cause.
#pragma once

#include <cstdint>
#include <iosfwd>

#include "host/zol/ptr.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

class RecordForm;

// How the fault bits of a source stand for a reload cause:
// a plain value. To change one that a collection holds, store another under the same key.
class ZOL_EXPORT PageFaultCause {
 public:
  class GenericIf_;
  class _Type;

  PageFaultCause() = default;
  // Of its attributes, in their order.
  PageFaultCause(ReloadCauses reloadCauseKey, std::uint32_t id, std::uint32_t faultMask)
      : reloadCauseKey_(reloadCauseKey), id_(id), faultMask_(faultMask) {}
  // Reads the record that stands next in a message. Throws `RangeException` with the name of the
  // enumeration for a number that has no enumerator.
  PageFaultCause(Zol::NboAttrLog::In* in, Zol::StreamBogon);
  // Reads the text form at the position and moves behind it. An attribute that the text leaves out
  // has its default. docs/values.md has the grammar and the failures, all of them
  // `RangeException`.
  PageFaultCause(Zol::String8::IteratorConst& position, Zol::String8::IteratorConst const& end);

  // The reload cause that the fault bits stand for.
  [[nodiscard]] ReloadCauses reloadCauseKey() const { return reloadCauseKey_; }
  // The number of the source.
  [[nodiscard]] std::uint32_t id() const { return id_; }
  // The fault bits that count for this cause.
  [[nodiscard]] std::uint32_t faultMask() const { return faultMask_; }

  [[nodiscard]] virtual Zol::ZolType* fwkType() const;
  static Zol::ZolType* _fwkType();

  friend bool operator==(PageFaultCause const&, PageFaultCause const&) = default;

 private:
  friend class RecordForm;
  template <class Self, class Visit>
  static void eachField(Self& self, Visit const& visit) {
#include "values/stamp_field_visits.h"
#include "schema/page_fault_cause.def"
  }

#include "values/stamp_record_fields.h"
#include "schema/page_fault_cause.def"
};

// The text form, as "Value('Hardware::Ucd9012::PageFaultCause', ** {'reloadCauseKey': ...})".
ZOL_EXPORT Zol::String8 valueToStrep(PageFaultCause const& value);
// Writes the text form.
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, PageFaultCause const& value);
// Writes the attributes in their order into the open message, enumerators as 32-bit numbers.
ZOL_EXPORT Zol::Ptr<Zol::NboAttrLog::Out> const& operator<<(
    Zol::Ptr<Zol::NboAttrLog::Out> const& out, PageFaultCause const& value);

}  // namespace Hardware::Ucd9012
