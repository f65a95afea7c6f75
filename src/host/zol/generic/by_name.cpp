#include "host/zol/generic/by_name.h"

#include <algorithm>

#include "host/zol/generic/access_level.h"
#include "host/zol/generic/wrapped.h"
#include "host/zol/path_steps.h"
#include "host/zol/suggestion.h"
#include "host/zol/value_reading.h"
#include "host/zol/value_text.h"

namespace Zol {

namespace {

constexpr std::string_view kNull = "None";
// So many keys are told in a message.
constexpr std::size_t kMostKeys = 20;

std::string quoted(std::string_view text) {
  return std::string(valueToStrep(String8(text)).view());
}

[[noreturn]] void fail(std::string_view where, std::string const& why) {
  throwRangeException(std::string(where) + ": " + why);
}

// Does something at a path; a failure goes on with the path in front.
template <class Do>
auto located(std::string_view where, Do const& what) {
  try {
    return what();
  } catch (OpNotSupportedException const&) {
    fail(where, "the attribute does not have this operation");
  } catch (Exception const& failure) {
    fail(where, failure.what());
  }
}

std::vector<std::string> enumeratorsOf(ZolType const& type) {
  std::vector<std::string> names;
  for (auto it = type.attributeQIteratorConst(); it; ++it) names.emplace_back(it->name().view());
  return names;
}

Ptr<PtrInterface> objectOf(GenericIf* generic) {
  auto* const entity = dynamic_cast<GenericIfPtrInterface*>(generic);
  return entity ? entity->obj() : nullptr;
}

Ptr<Entity> entityOf(Ptr<GenericIf> const& generic) {
  return ptrCast<Entity>(objectOf(generic.get()));
}

bool isOverNull(Ptr<GenericIf> const& generic) {
  return !generic || (dynamic_cast<GenericIfPtrInterface*>(generic.get()) && !entityOf(generic));
}

// A number, or a value that is one with a name of its own.
bool isNumber(ZolType const& type) {
  if (type.isEntity() || type.isEnumType()) return false;
  return type.valAttr() ? isNumber(*type.valAttr()->type()) : !type.attributeQIteratorConst();
}

// What is a number only at its beginning is told as what is none at all.
Ptr<GenericIf> numberFrom(ZolType const& type, String8 const& text) {
  try {
    return type.genericIf(text, false);
  } catch (RangeException const& failure) {
    if (!std::string_view(failure.what()).starts_with("junk ")) throw;
    throwRangeException("expected a number but found " + valueToStrep(text));
  }
}

bool canBeNamed(ZolAttr const& attr) { return attr.flags().has(AttrFlags::kByName); }
bool isOwning(ZolAttr const& attr) { return attr.flags().has(AttrFlags::kInstantiating); }
// Every entity has it, whatever its class.
bool isOfFrame(ZolAttr const& attr) { return Entity::_fwkType()->attr(attr.name()) != nullptr; }

std::vector<std::string> attributesOf(ZolType const& type) {
  std::vector<std::string> names;
  for (auto it = type.attributeQIteratorConst(); it; ++it) {
    if (canBeNamed(*it)) names.emplace_back(it->name().view());
  }
  return names;
}

std::vector<std::string> keysOf(GenericIf const& holder, ZolAttr const& attr) {
  std::vector<std::string> keys;
  for (auto it = holder.attributeIteratorConst(attr.attrId()); it; ++it) {
    keys.emplace_back(plainText(it.key().get()).view());
  }
  return keys;
}

Ptr<GenericIf> operation(Ptr<GenericIf> const& holder, ZolAttr const& attr, std::int32_t op,
                         Ptr<GenericIf> const& key = nullptr,
                         Ptr<GenericIf> const& value = nullptr) {
  return holder->attributeOp({attr.attrId(), op}, key, value);
}

bool hasMember(Ptr<GenericIf> const& holder, ZolAttr const& attr, Ptr<GenericIf> const& key) {
  return unwrapped<bool>(*operation(holder, attr, GenericIf::attrOpContains, key));
}

std::string memberPath(std::string_view path, std::string_view key) {
  std::string result(path);
  result += '[';
  appendPathText(result, key);
  return result + "]";
}

void walkBelow(Ptr<GenericIf> const& generic, std::string const& path, ByName::Visit const& visit);

void walkMember(ZolAttr const& attr, Ptr<GenericIf> const& member, std::string const& path,
                ByName::Visit const& visit) {
  visit(path, member);
  if (isOwning(attr) && !isOverNull(member)) walkBelow(member, path, visit);
}

void walkAttribute(Ptr<GenericIf> const& holder, ZolAttr const& attr, std::string const& path,
                   ByName::Visit const& visit) {
  if (!attr.keyType()) {
    return walkMember(attr, operation(holder, attr, GenericIf::attrOpRead), path, visit);
  }
  for (auto it = holder->attributeIteratorConst(attr.attrId()); it; ++it) {
    walkMember(attr, it.obj(), memberPath(path, plainText(it.key().get()).view()), visit);
  }
}

void walkBelow(Ptr<GenericIf> const& generic, std::string const& path, ByName::Visit const& visit) {
  for (auto it = generic->type()->attributeQIteratorConst(); it; ++it) {
    if (!canBeNamed(*it) || isOfFrame(*it)) continue;
    walkAttribute(generic, *it, path + "/" + std::string(it->name().view()), visit);
  }
}

}  // namespace

String8 plainText(GenericIf const* value) {
  if (!value || isOverNull(Ptr<GenericIf>(const_cast<GenericIf*>(value)))) return kNull;
  ZolType const* const type = value->type();
  if (type == Builtin<String8>::_fwkType()) return unwrapped<String8>(*value);
  if (type == Name::_fwkType()) return unwrapped<Name>(*value);
  if (type == Builtin<bool>::_fwkType()) return unwrapped<bool>(*value) ? "true" : "false";
  String8 const text = value->strRep();
  return type->isEnumType() ? String8(text.view().substr(1, text.size() - 2)) : text;
}

Ptr<GenericIf> fromPlainText(ZolType const& type, String8 const& text) {
  if (&type == Builtin<String8>::_fwkType()) return wrapped(text, false);
  if (&type == Name::_fwkType()) return wrapped(Name(text), false);
  if (&type == Builtin<bool>::_fwkType()) {
    bool const isTrue = text == "true" || text == "True";
    if (isTrue || text == "false" || text == "False") return wrapped(isTrue, false);
    throwRangeException("expected true or false but found " + valueToStrep(text));
  }
  if (isNumber(type)) return numberFrom(type, text);
  if (!type.isEnumType()) return type.genericIf(text, false);
  std::vector<std::string> const names = enumeratorsOf(type);
  if (std::ranges::find(names, text.view()) != names.end()) {
    return type.genericIf(valueToStrep(text), false);
  }
  if (text.view().starts_with('\'')) return type.genericIf(text, false);
  throwRangeException("expected " + suggestion(text.view(), names) + " but found " +
                      valueToStrep(text));
}

Ptr<Entity> childByName(Entity& holder, PathStep const& step) {
  auto const generic = ptrCast<GenericIfEntity>(ZolType::genericIf(&holder, true));
  AccessRow const* const row = generic->rowNamed(step.name);
  if (!row || (row->keyType != nullptr) != step.key.has_value()) return nullptr;
  try {
    Ptr<GenericIf> const key = step.key ? fromPlainText(*row->keyType(), *step.key) : nullptr;
    return entityOf(generic->attributeOp({row->id, GenericIf::attrOpRead}, key, nullptr));
  } catch (RangeException const&) {
    return nullptr;  // No key of that type.
  }
}

// What a path leads to: an attribute of `holder` and, where a key is given, its member; without an
// attribute the holder itself.
struct ByName::Place {
  std::string_view path;
  Ptr<GenericIf> holder;
  Ptr<ZolAttr> attr;
  Ptr<GenericIf> key;

  void requireAttribute() const {
    if (!attr) fail(path, "this is the root, which can only be read");
  }
  // A member must be named by its key, and an attribute without keys takes none.
  void requireOne() const {
    if (attr && attr->keyType() && !key) {
      fail(path, "the attribute has keys, expected " + std::string(attr->name().view()) + "[KEY]");
    }
  }
  [[nodiscard]] Ptr<GenericIf> value() const {
    requireOne();
    if (!attr) return holder;
    if (key && !hasMember(holder, *attr, key)) failMissing();
    return operation(holder, *attr, GenericIf::attrOpRead, key);
  }
  [[noreturn]] void failMissing() const {
    std::vector<std::string> keys = keysOf(*holder, *attr);
    if (keys.empty()) fail(path, "there is no such member, and no other");
    bool const more = keys.size() > kMostKeys;
    if (more) keys.resize(kMostKeys);
    fail(path, "there is no such member, expected " +
                   suggestion(plainText(key.get()).view(), keys) + (more ? " and more" : ""));
  }
};

ByName::Place ByName::placeOf(std::string_view path) const {
  PathSteps steps(path, true);
  if (steps.done()) fail("''", "the path is empty, expected the name of a root");
  Place place{};
  while (!steps.done()) {
    std::string_view const before = steps.walked();
    std::optional<PathStep> const step = steps.next();
    std::string_view const here = steps.walked();
    if (!step) {
      fail(path, "the path is malformed at column " + std::to_string(here.size()) +
                     ", expected NAME or NAME[KEY] between slashes");
    }
    if (!place.holder) {
      std::vector<std::string> names;
      for (Ptr<Entity> const& root : roots_) {
        if (root->name() == Name(step->name) && !step->key) {
          place.holder = ZolType::genericIf(root.get(), false);
        }
        names.emplace_back(root->name().view());
      }
      if (!place.holder) {
        if (names.empty()) fail(path, "there is no such root, and no other");
        if (step->name.empty()) {
          fail(path,
               "the path does not begin with the name of a root, expected " + alternatives(names));
        }
        fail(here, "there is no such root, expected " + suggestion(step->name, names));
      }
      place.path = here;
      continue;
    }
    if (place.attr) {
      place.holder = place.value();
      place.attr = nullptr;
      place.key = nullptr;
      if (isOverNull(place.holder)) fail(before, "there is no entity here");
    }
    ZolType const& type = *place.holder->type();
    place.path = here;
    place.attr = type.attr(Name(step->name));
    if (!place.attr || !canBeNamed(*place.attr)) {
      std::vector<std::string> const names = attributesOf(type);
      std::string const name(type.name().view());
      if (names.empty()) fail(here, name + " has no attributes");
      fail(here, name + " has no attribute " + quoted(step->name) + ", expected " +
                     suggestion(step->name, names));
    }
    if (!step->key) continue;
    ZolType const* const keyType = place.attr->keyType();
    if (!keyType) fail(here, "the attribute has no keys, expected " + step->name);
    place.key = located(here, [&] { return fromPlainText(*keyType, *step->key); });
  }
  return place;
}

Ptr<GenericIf> ByName::at(std::string_view path) const { return placeOf(path).value(); }

bool ByName::contains(std::string_view path) const {
  Place const place = placeOf(path);
  if (!place.key) return !place.attr || place.attr->keyType() || !isOverNull(place.value());
  return hasMember(place.holder, *place.attr, place.key);
}

std::uint32_t ByName::count(std::string_view path) const {
  Place const place = placeOf(path);
  if (!place.attr || !place.attr->keyType() || place.key) {
    fail(path, "only an attribute with keys can be counted, without a key behind it");
  }
  return unwrapped<unsigned int>(*operation(place.holder, *place.attr, GenericIf::attrOpCount));
}

Ptr<GenericIf> ByName::valueFor(ZolType const& type, std::string_view text) const {
  if (!type.isEntity()) return fromPlainText(type, text);
  if (text == kNull || text.empty()) return nullptr;
  if (text.starts_with("Entity")) return type.genericIf(String8(text), false);
  Ptr<GenericIf> const entity = at(text);
  if (!dynamic_cast<GenericIfEntity*>(entity.get())) {
    fail(text, "this is no entity, expected " + std::string(type.fullName().view()));
  }
  if (!entity->type()->isA(&type)) {
    fail(text, "this is a " + std::string(entity->type()->fullName().view()) + ", expected " +
                   std::string(type.fullName().view()));
  }
  return entity;
}

void ByName::write(std::string_view path, std::string_view text) const {
  Place const place = placeOf(path);
  place.requireAttribute();
  ZolAttr const& attr = *place.attr;
  bool const isReferences = attr.keyType() && attr.type()->isEntity() && !isOwning(attr);
  if (isOwning(attr)) fail(path, "an entity stands here, which is made and not written");
  if (!isReferences) place.requireOne();
  if (!place.holder->type()->isEntity()) {
    fail(path, "this is a part of the value at " + std::string(path.substr(0, path.rfind('/'))) +
                   ", which is written whole");
  }
  if (attr.flags().has(AttrFlags::kConstructorParameter)) {
    fail(path, "the attribute is fixed when its entity is made");
  }
  located(path, [&] {
    Ptr<GenericIf> const value = valueFor(*attr.type(), text);
    Ptr<GenericIf> const entity = value;
    if (isReferences && place.key && value) {
      Ptr<Entity> const referred = entityOf(entity);
      if (!(referred->name() == unwrapped<Name>(*place.key))) {
        throwRangeException("the key of a reference is the name of its entity, expected [" +
                            referred->name() + "]");
      }
    }
    operation(place.holder, attr, GenericIf::attrOpWrite, isReferences ? nullptr : place.key,
              value);
  });
}

Ptr<Entity> ByName::make(std::string_view path, std::span<Argument const> arguments) const {
  Place const place = placeOf(path);
  place.requireAttribute();
  place.requireOne();
  ZolAttr const& attr = *place.attr;
  if (!isOwning(attr))
    fail(path, "no entity can be made here, the attribute holds none of its own");
  std::vector<std::string> names;
  Ptr<GenericIf::List_> const list = GenericIf::List_::List_Is();
  auto type = attr.constructorArgTypeQIteratorConst();
  for (auto name = attr.constructorArgNameQIteratorConst(); name; ++name, ++type) {
    if (place.key && *name == attr.keyFieldName()) {
      list->valueEnq(place.key);
      continue;
    }
    names.emplace_back(name->view());
    ZolType const* const argType = ZolType::typeNode(Name(*type));
    if (!argType) fail(path, "the type " + quoted(type->view()) + " is unknown");
    auto const given = std::ranges::find(arguments, names.back(), &Argument::name);
    list->valueEnq(located(std::string(path) + "(" + names.back() + ")", [&]() -> Ptr<GenericIf> {
      if (given == arguments.end()) {
        return argType->isEntity() ? nullptr
                                   : argType->genericIf(static_cast<void const*>(nullptr), false);
      }
      if (auto const* const entity = std::get_if<Ptr<Entity>>(&given->value)) {
        return *entity ? ZolType::genericIf(entity->get(), false) : nullptr;
      }
      return valueFor(*argType, std::get<std::string>(given->value));
    }));
  }
  for (Argument const& given : arguments) {
    if (std::ranges::find(names, given.name) != names.end()) continue;
    fail(path,
         "there is no argument " + quoted(given.name) +
             (names.empty() ? ", expected none" : ", expected " + suggestion(given.name, names)));
  }
  return located(path, [&] {
    return entityOf(operation(place.holder, attr, GenericIf::attrOpWrite, nullptr, list));
  });
}

void ByName::erase(std::string_view path) const {
  Place const place = placeOf(path);
  place.requireAttribute();
  ZolAttr const& attr = *place.attr;
  if (!attr.keyType() && !isOwning(attr)) fail(path, "the attribute cannot be taken out");
  if (!attr.keyType() || place.key) {
    if (!attr.keyType() ? isOverNull(place.value()) : !hasMember(place.holder, attr, place.key)) {
      if (place.key) place.failMissing();
      fail(path, "there is no entity here");
    }
    located(path, [&] { operation(place.holder, attr, GenericIf::attrOpDelete, place.key); });
    return;
  }
  for (auto it = place.holder->attributeIteratorConst(attr.attrId()); it; ++it) {
    operation(place.holder, attr, GenericIf::attrOpDelete, it.key());
  }
}

void ByName::walk(std::string_view path, Visit const& visit) const {
  Place const place = placeOf(path);
  std::string const text(path);
  if (!place.attr) {
    visit(text, place.holder);
    return walkBelow(place.holder, text, visit);
  }
  if (place.attr->keyType() && !place.key) {
    return walkAttribute(place.holder, *place.attr, text, visit);
  }
  Ptr<GenericIf> const value = place.value();
  visit(text, value);
  if (value->type()->isEntity() && !isOverNull(value)) walkBelow(value, text, visit);
}

std::vector<std::string> ByName::complete(std::string_view start) const {
  std::vector<std::string> paths;
  auto const offer = [&](std::string candidate) {
    if (candidate.starts_with(start)) paths.push_back(std::move(candidate));
  };
  // The end of the last whole step: the last mark that no "\" escapes.
  std::size_t end = std::string_view::npos;
  for (std::size_t i = 0; i < start.size(); ++i) {
    if (start[i] == '\\') {
      ++i;
    } else if (start[i] == '/' || start[i] == '[') {
      end = i;
    }
  }
  if (end == std::string_view::npos) {
    for (Ptr<Entity> const& root : roots_) {
      std::string name;
      appendPathText(name, root->name().view());
      offer(std::move(name));
    }
    return paths;
  }
  std::string const before(start.substr(0, end));
  try {
    Place const place = placeOf(before);
    if (start[end] == '[') {
      if (!place.attr || !place.attr->keyType() || place.key) return paths;
      for (std::string const& key : keysOf(*place.holder, *place.attr)) {
        offer(memberPath(before, key));
      }
      return paths;
    }
    Ptr<GenericIf> const value = place.value();
    if (isOverNull(value)) return paths;
    for (auto it = value->type()->attributeQIteratorConst(); it; ++it) {
      if (!canBeNamed(*it)) continue;
      offer(before + "/" + std::string(it->name().view()) + (it->keyType() ? "[" : ""));
    }
  } catch (RangeException const&) {
    // A path that leads nowhere has no completion.
  }
  return paths;
}

}  // namespace Zol
