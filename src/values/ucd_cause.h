// The value record `UcdCause`: how an input of a UCD sequencer stands for a reload cause.
#pragma once

#include <cstdint>
#include <iosfwd>

#include "host/zol/ptr.h"
#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

class RecordForm;

// How an input of a UCD sequencer stands for a reload cause:
// a plain value. To change one that a collection holds, store another under the same key.
class ZOL_EXPORT UcdCause {
 public:
  class GenericIf_;
  class _Type;

  UcdCause() = default;
  // Of its attributes, in their order.
  UcdCause(ReloadCauses reloadCauseKey, CauseType type, std::uint32_t id, bool isRemote)
      : reloadCauseKey_(reloadCauseKey), type_(type), id_(id), isRemote_(isRemote) {}
  // Reads the record that stands next in a message. Throws `RangeException` with the name of the
  // enumeration for a number that has no enumerator.
  UcdCause(Zol::NboAttrLog::In* in, Zol::StreamBogon);
  // Reads the text form at the position and moves behind it. An attribute that the text leaves out
  // has its default. docs/values.md has the grammar and the failures, all of them
  // `RangeException`.
  UcdCause(Zol::String8::IteratorConst& position, Zol::String8::IteratorConst const& end);

  // The reload cause that the input stands for.
  [[nodiscard]] ReloadCauses reloadCauseKey() const { return reloadCauseKey_; }
  // The kind of the input.
  [[nodiscard]] CauseType type() const { return type_; }
  // The number of the input within its kind.
  [[nodiscard]] std::uint32_t id() const { return id_; }
  // True for a remote cause.
  [[nodiscard]] bool isRemote() const { return isRemote_; }

  [[nodiscard]] virtual Zol::ZolType* fwkType() const;
  static Zol::ZolType* _fwkType();

  friend bool operator==(UcdCause const&, UcdCause const&) = default;

 private:
  friend class RecordForm;
  template <class Self, class Visit>
  static void eachField(Self& self, Visit const& visit) {
#include "values/stamp_field_visits.h"
#include "schema/ucd_cause.def"
  }

#include "values/stamp_record_fields.h"
#include "schema/ucd_cause.def"
};

// The text form, as "Value('Hardware::Ucd9012::UcdCause', ** {'reloadCauseKey': ...})".
ZOL_EXPORT Zol::String8 valueToStrep(UcdCause const& value);
// Writes the text form.
ZOL_EXPORT std::ostream& operator<<(std::ostream& stream, UcdCause const& value);
// Writes the attributes in their order into the open message, enumerators as 32-bit numbers.
ZOL_EXPORT Zol::Ptr<Zol::NboAttrLog::Out> const& operator<<(
    Zol::Ptr<Zol::NboAttrLog::Out> const& out, UcdCause const& value);

}  // namespace Hardware::Ucd9012
