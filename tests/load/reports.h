// A target that writes down each report as one line of text, and the lines that are expected.
#pragma once

#include <string>
#include <vector>

#include "host/zol/registry/introspection_reactor.h"

using Reports = std::vector<std::string>;

class WritingTarget final : public Zol::IntrospectionTarget {
 public:
  [[nodiscard]] Reports const& reports() const { return reports_; }

  void handleNameSpace(Zol::String8 const& name) override;
  void handleType(Zol::ZolType* type, Zol::ZolType* base) override;
  void handleAttr(Zol::ZolAttr const& attr) override;
  void handleAttrContextExit() override;
  void handleScopeExit() override;
  void defNoninstantiatingAttr(Zol::ZolAttr const& attr) override;

 private:
  Reports reports_;
};

// The reports that the library must make, from the expected schema.
Reports expectedReports();
