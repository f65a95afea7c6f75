// Tells types apart by what the registry says of them.
#include "railseq/values/attribute_values.h"

#include <algorithm>
#include <limits>

#include "host/zol/generic/generic_if_entity.h"
#include "railseq/base/wording.h"

namespace RailSeq {

namespace {

using Zol::Builtin;
using Zol::GenericIf;
using Zol::ZolType;

// The largest number of a type of at most 4 bytes.
[[nodiscard]] std::uint32_t largestOf(ZolType const& type) {
  return std::numeric_limits<std::uint32_t>::max() >> (32U - 8U * type.size());
}

[[nodiscard]] std::string readQuantity(NodeReader const& reader, JsonNode const& node,
                                       std::string_view what) {
  bool const isNumber = node.kind == JsonNode::Kind::number;
  bool const isSpecial = node.kind == JsonNode::Kind::text &&
                         (node.text == "-inf" || node.text == "inf" || node.text == "nan");
  if (!isNumber && !isSpecial) {
    reader.refuse(node.at, describe(node),
                  "a number, \"-inf\", \"inf\" or \"nan\" for " + std::string(what));
  }
  return node.text;
}

[[nodiscard]] std::string readEnumerator(NodeReader const& reader, JsonNode const& node,
                                         ZolType const& type, std::string_view what) {
  std::vector<std::string> const names = attributeNames(type);
  if (node.kind != JsonNode::Kind::text || std::ranges::find(names, node.text) == names.end()) {
    reader.refuse(node.at, describe(node),
                  suggestion(node.text, names) + " for " + std::string(what));
  }
  return node.text;
}

// The text form of a record; attributes that are left out have their default.
[[nodiscard]] std::string readRecord(NodeReader const& reader, JsonNode const& node,
                                     ZolType const& type, std::string_view what) {
  reader.requireObject(node, what);
  std::string text = "Value('" + std::string(type.fullName().view()) + "', ** {";
  bool isFirst = true;
  for (JsonMember const& member : node.members) {
    Zol::Ptr<Zol::ZolAttr> const attr = type.attr(Zol::Name(member.key));
    if (!attr) {
      reader.refuse(member.keyAt,
                    "the unknown attribute " + inQuotes(member.key) + " of a " +
                        std::string(type.name().view()),
                    suggestion(member.key, attributeNames(type)));
    }
    std::string const plain = readValue(reader, member.value, *attr->type(), member.key);
    if (!isFirst) text += ", ";
    isFirst = false;
    text += "'" + member.key + "': ";
    text += Zol::fromPlainText(*attr->type(), plain)->strRep().view();
  }
  return text + "})";
}

}  // namespace

ValueKind kindOfValue(ZolType const& type) {
  if (type.isEntity()) return ValueKind::entity;
  if (type.isEnumType()) return ValueKind::enumeration;
  if (&type == Builtin<bool>::_fwkType()) return ValueKind::boolean;
  if (&type == Builtin<Zol::String8>::_fwkType()) return ValueKind::text;
  if (&type == Zol::Name::_fwkType()) return ValueKind::name;
  if (type.valAttr()) return kindOfValue(*type.valAttr()->type());
  if (type.attributeQIteratorConst()) return ValueKind::record;
  return type.size() <= sizeof(std::uint32_t) ? ValueKind::wholeNumber : ValueKind::quantity;
}

std::vector<std::string> attributeNames(ZolType const& type) {
  std::vector<std::string> names;
  for (auto it = type.attributeQIteratorConst(); it; ++it) names.emplace_back(it->name().view());
  return names;
}

std::vector<ArgumentType> argumentsOf(Zol::ZolAttr const& attr) {
  std::vector<ArgumentType> arguments;
  auto type = attr.constructorArgTypeQIteratorConst();
  for (auto name = attr.constructorArgNameQIteratorConst(); name; ++name, ++type) {
    if (attr.keyType() && *name == attr.keyFieldName()) continue;
    arguments.push_back({std::string(name->view()), ZolType::typeNode(Zol::Name(*type))});
  }
  return arguments;
}

std::string readValue(NodeReader const& reader, JsonNode const& node, ZolType const& type,
                      std::string_view what) {
  switch (kindOfValue(type)) {
    case ValueKind::boolean:
      return reader.boolean(node, what) ? "true" : "false";
    case ValueKind::text:
      return reader.text(node, what);
    case ValueKind::name:
      return reader.text(node, what).empty() ? std::string() : reader.name(node, what);
    case ValueKind::enumeration:
      return readEnumerator(reader, node, type, what);
    case ValueKind::wholeNumber:
      return std::to_string(reader.number(node, what, largestOf(type)));
    case ValueKind::quantity:
      return readQuantity(reader, node, what);
    case ValueKind::record:
      return readRecord(reader, node, type, what);
    case ValueKind::entity:
      break;
  }
  return {};
}

void requireKey(NodeReader const& reader, JsonMember const& member, ZolType const& keyType,
                std::string_view attribute) {
  std::string const what = "a key of " + std::string(attribute);
  if (kindOfValue(keyType) != ValueKind::wholeNumber) {
    return reader.requireName(member.key, member.keyAt, what);
  }
  if (!parseNumber(member.key, largestOf(keyType))) {
    reader.refuse(
        member.keyAt, "the key " + inQuotes(member.key),
        "a whole number from 0 to " + std::to_string(largestOf(keyType)) + " for " + what);
  }
}

Zol::Ptr<Zol::Entity> entityIn(Zol::Ptr<GenericIf> const& value) {
  auto* const generic = dynamic_cast<Zol::GenericIfPtrInterface*>(value.get());
  return generic ? Zol::ptrCast<Zol::Entity>(generic->obj()) : nullptr;
}

std::string shownText(Zol::Ptr<GenericIf> const& value) {
  Zol::Ptr<Zol::Entity> const entity = entityIn(value);
  return std::string(entity && entity->zolParent() ? entity->uriPath().view()
                                                   : Zol::plainText(value.get()).view());
}

std::string quotedText(Zol::Ptr<GenericIf> const& value) {
  if (!value) return shownText(value);
  ValueKind const kind = kindOfValue(*value->type());
  bool const isText = kind == ValueKind::text || kind == ValueKind::name;
  return isText ? inQuotes(Zol::plainText(value.get()).view()) : shownText(value);
}

}  // namespace RailSeq
