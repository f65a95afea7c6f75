#include "host/zol/registry/recording_target.h"

namespace Zol {

RecordingTarget::~RecordingTarget() = default;

void RecordingTarget::handleType(ZolType* type, ZolType*) { types_.push_back(type); }

void RecordingTarget::handleNameSpace(String8 const&) {}

void RecordingTarget::handleAttr(ZolAttr const&) {}

void RecordingTarget::handleAttrContextExit() {}

void RecordingTarget::handleScopeExit() {}

void RecordingTarget::defNoninstantiatingAttr(ZolAttr const&) {}

}  // namespace Zol
