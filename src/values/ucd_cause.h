// The value record `UcdCause`: how an input of a UCD sequencer stands for a reload cause.
#pragma once

#include <cstdint>

#include "values/enumerations.h"

namespace Hardware::Ucd9012 {

// A plain value. To change one that a collection holds, store another under the same key.
class ZOL_EXPORT UcdCause {
 public:
  class GenericIf_;
  class _Type;

  UcdCause() = default;
  UcdCause(ReloadCauses reloadCauseKey, CauseType type, std::uint32_t id, bool isRemote)
      : reloadCauseKey_(reloadCauseKey), type_(type), id_(id), isRemote_(isRemote) {}

  [[nodiscard]] ReloadCauses reloadCauseKey() const { return reloadCauseKey_; }
  [[nodiscard]] CauseType type() const { return type_; }
  // The number of the input within its kind.
  [[nodiscard]] std::uint32_t id() const { return id_; }
  [[nodiscard]] bool isRemote() const { return isRemote_; }

  [[nodiscard]] Zol::ZolType* fwkType() const { return _fwkType(); }
  static Zol::ZolType* _fwkType();

  friend bool operator==(UcdCause const&, UcdCause const&) = default;

 private:
  ReloadCauses reloadCauseKey_ = ReloadCauses::rc_unknown;
  CauseType type_ = CauseType::other;
  std::uint32_t id_ = 0;
  bool isRemote_ = false;
};

}  // namespace Hardware::Ucd9012
