#include "load/reports.h"

#include <sstream>

#include "registry/expected_schema.h"

namespace {

using ExpectedSchema::Kind;

// While the library registers its types they have no full names yet.
std::string bare(std::string const& fullName) {
  std::size_t const scope = fullName.rfind("::");
  return scope == std::string::npos ? fullName : fullName.substr(scope + 2);
}

std::string nameOf(Zol::ZolType const* type) {
  return type ? std::string(type->name().view()) : "-";
}

std::string nameOrNone(std::string const& fullName) {
  return fullName.empty() ? "-" : bare(fullName);
}

std::string line(std::string const& name, int id, ExpectedSchema::Flags flags,
                 std::string const& value, std::string const& key, std::string const& field) {
  std::ostringstream text;
  text << name << ' ' << std::dec << id << std::hex << ' ' << flags.low << ' ' << flags.high << ' '
       << flags.introspection << ' ' << value << " key " << key << " field '" << field << '\'';
  return text.str();
}

std::string lineOf(Zol::ZolAttr const& attr) {
  std::string text =
      line(std::string(attr.name().view()), attr.attrId(),
           {attr.flags().low, attr.flags().high, attr.introspectionFlags()}, nameOf(attr.type()),
           nameOf(attr.keyType()), std::string(attr.keyFieldName().view()));
  auto type = attr.constructorArgTypeQIteratorConst();
  for (auto name = attr.constructorArgNameQIteratorConst(); name; ++name, ++type) {
    text.append(", ").append(name->view()).append(" ").append(type->view());
  }
  return text;
}

std::string lineOf(ExpectedSchema::Attr const& attr) {
  std::string text = line(attr.name, attr.id, ExpectedSchema::flagsOf(attr.attrClass),
                          bare(attr.value), nameOrNone(attr.key), attr.keyField);
  for (auto const& [name, type] : ExpectedSchema::argsOf(attr)) {
    text.append(", ").append(name).append(" ").append(type);
  }
  return text;
}

void expectAttr(Reports& reports, ExpectedSchema::Attr const& attr) {
  reports.push_back("attribute " + lineOf(attr));
  reports.push_back("attribute ends");
}

void expectOwn(Reports& reports, ExpectedSchema::Attr const& attr) {
  if (ExpectedSchema::isBuilt(attr)) {
    expectAttr(reports, attr);
  } else {
    reports.push_back("define " + lineOf(attr));
  }
}

void expectType(Reports& reports, ExpectedSchema::Type const& type) {
  reports.push_back("type " + type.name + " base " + nameOrNone(type.base));
  if (type.kind == Kind::entity) {
    for (auto const& attr : ExpectedSchema::allAttrs(ExpectedSchema::type(type.base))) {
      expectAttr(reports, attr);
    }
    expectOwn(reports, {"zolHasAttrLogInterface", 154, "L", "bool", "", ""});
  }
  int number = 0;
  for (std::string const& name : type.enumerators) {
    expectOwn(reports, {name, number++, "E", type.name, "", ""});
  }
  for (auto const& attr : type.attrs) expectOwn(reports, attr);
  if (!type.ownKey.empty()) expectOwn(reports, {"fwkKey", 0, "K", type.ownKey, "", ""});
  reports.emplace_back("scope ends");
}

}  // namespace

void WritingTarget::handleNameSpace(Zol::String8 const& name) {
  reports_.push_back("namespace " + std::string(name.view()));
}

void WritingTarget::handleType(Zol::ZolType* type, Zol::ZolType* base) {
  reports_.push_back("type " + nameOf(type) + " base " + nameOf(base));
}

void WritingTarget::handleAttr(Zol::ZolAttr const& attr) {
  reports_.push_back("attribute " + lineOf(attr));
}

void WritingTarget::handleAttrContextExit() { reports_.emplace_back("attribute ends"); }

void WritingTarget::handleScopeExit() { reports_.emplace_back("scope ends"); }

void WritingTarget::defNoninstantiatingAttr(Zol::ZolAttr const& attr) {
  reports_.push_back("define " + lineOf(attr));
}

Reports expectedReports() {
  Reports reports = {"namespace Hardware", "namespace Ucd9012"};
  for (auto const& type : ExpectedSchema::types()) expectType(reports, type);
  reports.insert(reports.end(), 2, "scope ends");
  return reports;
}
