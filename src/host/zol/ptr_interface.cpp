#include "host/zol/ptr_interface.h"

namespace Zol {

bool VFPtrInterface::enableThreadSafePointers = false;

PtrInterface::~PtrInterface() = default;

void PtrInterface::hasNotificationActiveIs(bool value) { bitIs(kNotificationActive, value); }

void PtrInterface::zolAuditErrors(unsigned int) const {}

void PtrInterface::auditErrors(unsigned int) const {}

void PtrInterface::zeroReferencesIs(bool) {}

// The object is told first, and may hand itself to a new holder while it is. Bit 30 is inside the
// release mask, so that references taken and dropped meanwhile do not come here a second time.
void PtrInterface::handleZeroRef() const {
  bitIs(kReleasing, true);
  add(1);
  const_cast<PtrInterface*>(this)->zeroReferencesIs(true);
  if (references() == 1) {
    delete this;
    return;
  }
  bitIs(kReleasing, false);
  referencesDec();
}

}  // namespace Zol
