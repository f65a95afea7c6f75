#include "host/zol/exception.h"

namespace Zol {

Exception::~Exception() = default;
RangeException::~RangeException() = default;
NameInUseException::~NameInUseException() = default;
InternalException::~InternalException() = default;
AttrLogRecordException::~AttrLogRecordException() = default;
EntityIdUnavailableException::~EntityIdUnavailableException() = default;
AttrLogEntityException::~AttrLogEntityException() = default;
ConstException::~ConstException() = default;
BadIndexAttrException::~BadIndexAttrException() = default;
TypeException::~TypeException() = default;
OpNotSupportedException::~OpNotSupportedException() = default;
UnknownArgException::~UnknownArgException() = default;
UnknownAttrException::~UnknownAttrException() = default;

void throwRangeException(String8 const& text) { throw RangeException(text); }
void throwNameInUseException(String8 const& text) { throw NameInUseException(text); }
void throwInternalException(String8 const& text) { throw InternalException(text); }

}  // namespace Zol
