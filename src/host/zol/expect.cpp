#include "host/zol/expect.h"

namespace Zol {

thread_local constinit unsigned int Expect::depth_ = 0;

}  // namespace Zol
