// The target that the reactor starts with: it remembers which types were registered.
#pragma once

#include <vector>

#include "host/zol/registry/introspection_reactor.h"

namespace Zol {

// Keeps the types in the order in which they were reported; all else stands in the types
// themselves. The trap: a type's full name is known only once the library that brings it has
// loaded.
class ZOL_EXPORT RecordingTarget final : public IntrospectionTarget {
 public:
  ~RecordingTarget() override;

  // The types that have been reported.
  [[nodiscard]] std::vector<ZolType*> const& types() const noexcept { return types_; }

  void handleNameSpace(String8 const& name) override;
  void handleType(ZolType* type, ZolType* base) override;
  void handleAttr(ZolAttr const& attr) override;
  void handleAttrContextExit() override;
  void handleScopeExit() override;
  void defNoninstantiatingAttr(ZolAttr const& attr) override;

 private:
  std::vector<ZolType*> types_;
};

}  // namespace Zol
