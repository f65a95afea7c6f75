// Walks the registry's types and attributes. What it prints comes from there alone.
#include "railseq/commands/types.h"

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <set>
#include <sstream>
#include <string_view>
#include <vector>

#include "hwrailseq.h"
#include "railseq/base/input_error.h"
#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

using Zol::AttrFlags;
using Zol::ZolAttr;
using Zol::ZolType;

constexpr std::string_view kNamespace = "Hardware::Ucd9012::";

using Row = std::vector<std::string>;

// All types, as they were registered.
[[nodiscard]] std::vector<ZolType*> registeredTypes() {
  auto const target =
      Zol::ptrCast<Zol::RecordingTarget>(Zol::IntrospectionReactor::global()->target());
  return target ? target->types() : std::vector<ZolType*>();
}

// The bare name of a type of the model, the full one of any other, "-" for none.
[[nodiscard]] std::string shortName(ZolType const* type) {
  if (!type) return "-";
  std::string name(type->fullName().view());
  if (name.starts_with(kNamespace)) name.erase(0, kNamespace.size());
  return name;
}

[[nodiscard]] Json nameJson(ZolType const* type) {
  return type ? Json(type->fullName().view()) : Json(nullptr);
}

[[nodiscard]] std::string kindOf(ZolType const& type) {
  if (type.isEnumType()) return "enumeration";
  if (type.isEntity()) return "entity";
  return type.isValue() ? "value" : "-";
}

[[nodiscard]] std::string kindOf(ZolAttr const& attr) {
  AttrFlags const flags = attr.flags();
  bool const isMade = flags.has(AttrFlags::kInstantiating);
  bool const isEntity = flags.has(AttrFlags::kHoldsEntity);
  if (flags.has(AttrFlags::kEnumerator)) return "enumerator";
  if ((attr.introspectionFlags() & Zol::kIntrospectOperation) != 0) return "operation";
  if (flags.has(AttrFlags::kConstructorParameter)) return "parameter";
  if (!flags.has(AttrFlags::kByName)) return "key";
  if (flags.has(AttrFlags::kKeyed)) return isMade ? "children" : isEntity ? "references" : "values";
  return isMade ? "child" : isEntity ? "reference" : "scalar";
}

[[nodiscard]] std::string hexadecimal(std::uint32_t number) {
  std::ostringstream text;
  text << "0x" << std::hex << number;
  return text.str();
}

// Each column as wide as its widest cell.
[[nodiscard]] std::string tableText(std::vector<Row> const& rows) {
  std::ostringstream out;
  std::vector<std::size_t> widths(rows.front().size());
  for (Row const& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  for (Row const& row : rows) {
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
      out << std::left << std::setw(static_cast<int>(widths[i] + 2)) << row[i];
    }
    out << row.back() << '\n';
  }
  return out.str();
}

[[nodiscard]] std::size_t attributeCount(ZolType const& type) {
  std::size_t count = 0;
  for (auto attr = type.attributeQIteratorConst(); attr; ++attr) ++count;
  return count;
}

// "name: Zol::Name, customerName: Zol::Name"
[[nodiscard]] std::string constructorArguments(ZolType const& type) {
  std::string result;
  auto argType = type.constructorArgTypeQIteratorConst();
  for (auto name = type.constructorArgNameQIteratorConst(); name; ++name, ++argType) {
    if (!result.empty()) result += ", ";
    result += std::string(name->view()) + ": " + std::string(argType->view());
  }
  return result.empty() ? "-" : result;
}

}  // namespace

TypeList modelTypes() {
  TypeList types;
  std::ranges::copy_if(registeredTypes(), std::back_inserter(types), [](ZolType const* type) {
    return type->fullName().view().starts_with(kNamespace);
  });
  return types;
}

TypeList typesIn(std::vector<Zol::Ptr<Zol::Entity>> const& roots) {
  std::set<ZolType const*> found;
  auto const visit = [&found](std::string const&, Zol::Ptr<Zol::GenericIf> const& value) {
    if (!value->type()->isEntity() || entityIn(value)) found.insert(value->type());
  };
  Zol::ByName const tree(roots);
  for (auto const& root : roots) tree.walk(rootPath(root->name().view()), visit);
  TypeList types;
  for (ZolType const* const type : registeredTypes()) {
    if (found.erase(type) != 0) types.push_back(type);
  }
  // Those that are not registered, such as numbers, stand behind.
  types.insert(types.end(), found.begin(), found.end());
  std::ranges::sort(types.end() - static_cast<std::ptrdiff_t>(found.size()), types.end(), {},
                    [](ZolType const* type) { return type->fullName().view(); });
  return types;
}

std::string typesText(TypeList const& types) {
  std::vector<Row> rows{{"TYPE", "KIND", "BASE", "ATTRIBUTES"}};
  for (ZolType const* const type : types) {
    rows.push_back({shortName(type), kindOf(*type), shortName(type->baseType()),
                    std::to_string(attributeCount(*type))});
  }
  return tableText(rows);
}

Json typesJson(TypeList const& types) {
  Json json = Json::array();
  for (ZolType const* const type : types) {
    json.push_back({{"name", shortName(type)},
                    {"kind", kindOf(*type)},
                    {"base", nameJson(type->baseType())},
                    {"attributes", attributeCount(*type)}});
  }
  return json;
}

std::string typeText(ZolType const& type) {
  std::ostringstream out;
  out << type.fullName() << ": " << kindOf(type) << ", base " << shortName(type.baseType()) << ", "
      << type.size() << " bytes\n"
      << "constructor parameters: " << constructorArguments(type) << '\n';
  if (attributeCount(type) == 0) return out.str();
  std::vector<Row> rows{
      {"ID", "ATTRIBUTE", "KIND", "VALUE TYPE", "KEY TYPE", "LOW", "HIGH", "INTROSPECTION"}};
  for (auto attr = type.attributeQIteratorConst(); attr; ++attr) {
    AttrFlags const flags = attr->flags();
    rows.push_back({std::to_string(attr->attrId()), std::string(attr->name().view()), kindOf(*attr),
                    shortName(attr->type()), shortName(attr->keyType()), hexadecimal(flags.low),
                    hexadecimal(flags.high), hexadecimal(attr->introspectionFlags())});
  }
  return out.str() + tableText(rows);
}

Json typeJson(ZolType const& type) {
  Json json = {{"name", type.fullName().view()},         {"kind", kindOf(type)},
               {"base", nameJson(type.baseType())},      {"size", type.size()},
               {"constructorParameters", Json::array()}, {"attributes", Json::array()}};
  auto argType = type.constructorArgTypeQIteratorConst();
  for (auto name = type.constructorArgNameQIteratorConst(); name; ++name, ++argType) {
    json["constructorParameters"].push_back({{"name", name->view()}, {"type", argType->view()}});
  }
  for (auto attr = type.attributeQIteratorConst(); attr; ++attr) {
    json["attributes"].push_back({{"id", attr->attrId()},
                                  {"name", attr->name().view()},
                                  {"kind", kindOf(*attr)},
                                  {"type", nameJson(attr->type())},
                                  {"keyType", nameJson(attr->keyType())},
                                  {"low", attr->flags().low},
                                  {"high", attr->flags().high},
                                  {"introspection", attr->introspectionFlags()}});
  }
  return json;
}

ZolType const& findType(std::string const& name) {
  std::vector<std::string> names;
  for (ZolType const* const type : modelTypes()) {
    if (type->name().view() == name || type->fullName().view() == name) return *type;
    names.emplace_back(type->name().view());
  }
  if (ZolType const* const other = ZolType::typeNode(Zol::Name(name))) return *other;
  Zol::throwRangeException("unknown type " + inQuotes(name) + ", expected " +
                           suggestion(name, names));
}

}  // namespace RailSeq
