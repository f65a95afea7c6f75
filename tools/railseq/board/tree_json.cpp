// Walks entities and values by what their types say.
#include "railseq/board/tree_json.h"

#include <iostream>
#include <map>

#include "railseq/base/wording.h"
#include "railseq/board/siblings.h"
#include "railseq/values/attribute_values.h"
#include "railseq/values/references.h"

namespace RailSeq {

namespace {

using Zol::AttrFlags;
using Zol::GenericIf;
using Zol::Ptr;
using Zol::ZolAttr;

[[nodiscard]] std::string plain(Ptr<GenericIf> const& value) {
  return std::string(Zol::plainText(value.get()).view());
}

[[nodiscard]] Json referenceJson(Ptr<GenericIf> const& value) {
  Ptr<Zol::Entity> const entity = entityIn(value);
  if (!entity) return nullptr;
  if (entity->zolParent()) return entity->uriPath().view();
  if (isSibling(*entity->fwkType())) return {{"name", entity->name().view()}};
  return plain(value);
}

// Infinities and what is no number have no place among the numbers of JSON: they are texts.
[[nodiscard]] Json numberJson(Ptr<GenericIf> const& value) {
  std::string const text = plain(value);
  Json number = Json::parse(text, nullptr, false);
  return number.is_number() ? number : Json(text);
}

[[nodiscard]] Ptr<GenericIf> readAttribute(Ptr<GenericIf> const& holder, ZolAttr const& attr) {
  return holder->attributeOp({attr.attrId(), GenericIf::attrOpRead}, nullptr, nullptr);
}

[[nodiscard]] Json recordJson(Ptr<GenericIf> const& record) {
  Json json = Json::object();
  for (auto attr = record->type()->attributeQIteratorConst(); attr; ++attr) {
    json[std::string(attr->name().view())] = valueJson(readAttribute(record->clone(), *attr));
  }
  return json;
}

[[nodiscard]] bool isUtf8(std::string const& text) {
  try {
    return static_cast<void>(Json(text).dump()), true;
  } catch (Json::type_error const&) {
    return false;
  }
}

// How many values and keys of the document are no UTF-8.
[[nodiscard]] std::size_t countForeign(Json const& json) {
  if (json.is_string()) return isUtf8(json.get_ref<std::string const&>()) ? 0 : 1;
  std::size_t count = 0;
  if (json.is_structured()) {
    for (auto const& [key, value] : json.items()) {
      count += countForeign(value) + (json.is_object() && !isUtf8(key) ? 1 : 0);
    }
  }
  return count;
}

[[nodiscard]] std::string dumped(Json const& json, int indent) {
  try {
    return json.dump(indent);
  } catch (Json::type_error const&) {
    std::size_t const count = countForeign(json);
    std::cerr << "railseq: " << counted(count, "text") << (count == 1 ? " is" : " are")
              << " not UTF-8, which JSON cannot hold: U+FFFD stands for each byte that is none"
              << std::endl;
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
  }
}

[[nodiscard]] Json entityJson(Ptr<GenericIf> const& entity, ZolAttr const* holder);

// References are an array, whose order says nothing; all other members stand under their keys.
[[nodiscard]] Json keyedJson(Ptr<GenericIf> const& holder, ZolAttr const& attr) {
  std::map<std::string, Json, decltype(&comesBefore)> members(&comesBefore);
  bool const isOwning = attr.flags().has(AttrFlags::kInstantiating);
  for (auto it = holder->attributeIteratorConst(attr.attrId()); it; ++it) {
    members[plain(it.key())] = isOwning ? entityJson(it.obj(), &attr) : valueJson(it.obj());
  }
  bool const isReferences = attr.type()->isEntity() && !isOwning;
  Json json = isReferences ? Json::array() : Json::object();
  for (auto& [key, member] : members) {
    isReferences ? json.push_back(std::move(member)) : void(json[key] = std::move(member));
  }
  return json;
}

[[nodiscard]] Json attributeJson(Ptr<GenericIf> const& holder, ZolAttr const& attr) {
  if (attr.keyType()) return keyedJson(holder, attr);
  Ptr<GenericIf> const value = readAttribute(holder, attr);
  bool const isOwned = attr.flags().has(AttrFlags::kInstantiating) && entityIn(value);
  return isOwned ? entityJson(value, &attr) : valueJson(value);
}

// `holder` is the attribute under which the entity stands; null for a root. What is the key there
// is left out.
Json entityJson(Ptr<GenericIf> const& entity, ZolAttr const* holder) {
  Json json = Json::object();
  if (!holder || !holder->keyType()) json["name"] = entityIn(entity)->name().view();
  for (auto attr = entity->type()->attributeQIteratorConst(); attr; ++attr) {
    if (!attr->flags().has(AttrFlags::kByName)) continue;
    if (Zol::Entity::_fwkType()->attr(attr->name())) continue;
    if (holder && holder->keyType() && attr->name() == holder->keyFieldName()) continue;
    json[std::string(attr->name().view())] = attributeJson(entity, *attr);
  }
  return json;
}

}  // namespace

Json valueJson(Ptr<GenericIf> const& value) {
  if (!value) return nullptr;
  switch (kindOfValue(*value->type())) {
    case ValueKind::entity:
      return referenceJson(value);
    case ValueKind::record:
      return recordJson(value);
    case ValueKind::boolean:
      return plain(value) == "true";
    case ValueKind::wholeNumber:
    case ValueKind::quantity:
      return numberJson(value);
    case ValueKind::text:
    case ValueKind::name:
    case ValueKind::enumeration:
      break;
  }
  return plain(value);
}

Json jsonAt(Zol::ByName const& tree, std::string_view path) {
  AttributePlace const place = attributeAt(tree, path);
  ZolAttr const* const attr = place.attr.get();
  if (place.isRoot) return entityJson(tree.at(path), nullptr);
  if (attr && attr->keyType() && !place.hasKey && tree.contains(path)) {
    return keyedJson(place.holder, *attr);
  }
  Ptr<GenericIf> const value = tree.at(path);
  return place.isOwning() && entityIn(value) ? entityJson(value, attr) : valueJson(value);
}

Json boardJson(Board const& board) {
  Json json = Json::object();
  json["config"] = entityJson(Zol::ZolType::genericIf(board.config.get(), true), nullptr);
  if (board.status) {
    json["status"] = entityJson(Zol::ZolType::genericIf(board.status.get(), true), nullptr);
  }
  return json;
}

std::string jsonText(Json const& json) { return dumped(json, 2) + "\n"; }

std::string jsonLine(Json const& json) { return dumped(json, -1) + "\n"; }

}  // namespace RailSeq
