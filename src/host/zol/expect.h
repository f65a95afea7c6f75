// The scope that surrounds each call of a listener, and those of the stream that expect a failure.
#pragma once

#include "host/zol/export.h"

namespace Zol {

// A scope with an exception id: it marks which failure its code expects. Scopes with id 0 surround
// the calls of listeners; their number that are open on this thread is the depth of nested
// notification, from which the stream tells a reaction to its own message from a change that a
// listener makes.
class ZOL_EXPORT Expect {
 public:
  explicit Expect(unsigned int exceptionId) noexcept : counts_(exceptionId == 0) {
    if (counts_) ++depth_;
  }
  ~Expect() {
    if (counts_) --depth_;
  }
  Expect(Expect const&) = delete;
  Expect& operator=(Expect const&) = delete;

  [[nodiscard]] static unsigned int depth() noexcept { return depth_; }

 private:
  static thread_local constinit unsigned int depth_;

  bool counts_;
};

}  // namespace Zol
