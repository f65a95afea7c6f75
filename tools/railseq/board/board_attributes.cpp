// Reads the form in which attributes stand by name. What a class has and what its making takes are
// the registry's to say; nothing here knows any class but the two roots.
#include <algorithm>
#include <deque>

#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/board/board_forms.h"
#include "railseq/board/tree_filler.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

using Zol::AttrFlags;
using Zol::ZolAttr;
using Zol::ZolType;

[[nodiscard]] bool isWritable(ZolAttr const& attr) {
  return attr.flags().has(AttrFlags::kByName) &&
         !attr.flags().has(AttrFlags::kConstructorParameter) &&
         !Zol::Entity::_fwkType()->attr(attr.name());
}

class AttributeFormReader {
 public:
  AttributeFormReader(JsonNode const& root, std::string const& file)
      : reader_(file), board_(makeRoots(root)), filler_(board_.tree(), reader_) {}

  Board read(JsonNode const& root);

 private:
  // An entity of the file, which is to stand at `path` under `attr`.
  struct Child {
    std::string path;
    ZolAttr const* attr;
    JsonMember const* given;
  };

  [[nodiscard]] Board makeRoots(JsonNode const& root) const;
  [[nodiscard]] std::string rootName(JsonNode const& root, char const* side) const;
  void readRoot(JsonNode const& root, char const* side, Zol::Entity const* entity);
  // Reads all members but those named in `taken`.
  void readAttributes(std::string const& path, ZolType const& type, JsonNode const& node,
                      std::vector<std::string> const& taken);
  void readAttribute(std::string const& holder, ZolAttr const& attr, JsonMember const& given);
  void readChildren(std::string const& path, ZolAttr const& attr, JsonMember const& given);
  void readValues(std::string const& path, ZolAttr const& attr, JsonMember const& given);
  void readReference(std::string const& holder, ZolAttr const& attr, JsonMember const& given);
  void readReferences(std::string const& path, ZolAttr const& attr, JsonMember const& given);
  void child(Child const& given) {
    if (!make(given)) waiting_.push_back(given);
  }
  // False while an argument refers to an entity that is not there yet.
  bool make(Child const& given);
  // The argument; of one that refers to an entity which is not there yet, nothing.
  [[nodiscard]] std::optional<Zol::ByName::Argument> argument(ArgumentType const& type,
                                                              JsonNode const& node);
  void makeWaiting();
  [[noreturn]] void refuseDangling(Child const& given) const;
  [[nodiscard]] Zol::Ptr<Zol::Entity> sibling(JsonNode const& node, ZolType const& type,
                                              std::string_view what);
  std::string const& pathText(JsonNode const& node, ZolType const& type,
                              std::string_view what) const;
  [[noreturn]] void refuseAttribute(JsonMember const& given, ZolType const& type,
                                    std::vector<std::string> names) const;

  NodeReader reader_;
  Board board_;
  TreeFiller filler_;
  // Entities whose making takes another one, which stands further down in the file.
  std::deque<Child> waiting_;
  // References, which are set when all entities stand.
  std::vector<std::function<void()>> references_;
};

Board AttributeFormReader::makeRoots(JsonNode const& root) const {
  for (JsonMember const& member : root.members) {
    if (member.key != "config" && member.key != "status") {
      reader_.refuse(member.keyAt, "the unknown key " + inQuotes(member.key),
                     "\"config\" or \"status\"");
    }
    reader_.requireObject(member.value, member.key);
  }
  Board board;
  board.config = new Config(rootName(root, "config"));
  if (!root.find("status")) return board;
  board.status = new Status(rootName(root, "status"));
  if (board.status->name() == board.config->name()) {
    reader_.refuse(root.find("status")->at,
                   "both sides with the name " + inQuotes(board.status->name().view()),
                   "a name of its own for each side");
  }
  return board;
}

std::string AttributeFormReader::rootName(JsonNode const& root, char const* side) const {
  JsonNode const* const given = root.find(side);
  JsonNode const* const name = given ? given->find("name") : nullptr;
  return name ? reader_.name(*name, std::string("the name of ") + side) : side;
}

Board AttributeFormReader::read(JsonNode const& root) {
  readRoot(root, "config", board_.config.get());
  readRoot(root, "status", board_.status.get());
  makeWaiting();
  for (std::function<void()> const& reference : references_) reference();
  board_.places = filler_.places();
  return std::move(board_);
}

void AttributeFormReader::readRoot(JsonNode const& root, char const* side,
                                   Zol::Entity const* entity) {
  JsonNode const* const given = root.find(side);
  if (!given) return;
  std::string const path = rootPath(entity->name().view());
  filler_.placeIs(path, given->at);
  if (JsonNode const* const name = given->find("name")) {
    filler_.placeIs(attributePath(path, "name"), name->at);
  }
  readAttributes(path, *entity->fwkType(), *given, {"name"});
}

void AttributeFormReader::readAttributes(std::string const& path, ZolType const& type,
                                         JsonNode const& node,
                                         std::vector<std::string> const& taken) {
  for (JsonMember const& member : node.members) {
    if (std::ranges::find(taken, member.key) != taken.end()) continue;
    Zol::Ptr<ZolAttr> const attr = type.attr(Zol::Name(member.key));
    if (!attr || !isWritable(*attr)) refuseAttribute(member, type, taken);
    readAttribute(path, *attr, member);
  }
}

void AttributeFormReader::readAttribute(std::string const& holder, ZolAttr const& attr,
                                        JsonMember const& given) {
  std::string const path = attributePath(holder, given.key);
  if (attr.flags().has(AttrFlags::kInstantiating)) {
    if (attr.keyType()) return readChildren(path, attr, given);
    if (given.value.kind != JsonNode::Kind::null) child({path, &attr, &given});
  } else if (attr.type()->isEntity()) {
    attr.keyType() ? readReferences(path, attr, given) : readReference(holder, attr, given);
  } else if (attr.keyType()) {
    readValues(path, attr, given);
  } else {
    filler_.write(given.value.at, path, readValue(reader_, given.value, *attr.type(), given.key));
  }
}

void AttributeFormReader::readChildren(std::string const& path, ZolAttr const& attr,
                                       JsonMember const& given) {
  reader_.requireObject(given.value, given.key);
  for (JsonMember const& member : given.value.members) {
    requireKey(reader_, member, *attr.keyType(), given.key);
    child({memberPath(path, member.key), &attr, &member});
  }
}

void AttributeFormReader::readValues(std::string const& path, ZolAttr const& attr,
                                     JsonMember const& given) {
  reader_.requireObject(given.value, given.key);
  for (JsonMember const& member : given.value.members) {
    requireKey(reader_, member, *attr.keyType(), given.key);
    filler_.write(
        member.value.at, memberPath(path, member.key),
        readValue(reader_, member.value, *attr.type(), given.key + "[" + member.key + "]"));
  }
}

void AttributeFormReader::readReference(std::string const& holder, ZolAttr const& attr,
                                        JsonMember const& given) {
  JsonNode const& node = given.value;
  if (node.kind == JsonNode::Kind::null) return;
  if (Zol::Ptr<Zol::Entity> const entity = sibling(node, *attr.type(), given.key)) {
    return filler_.refer(node.at, holder, given.key, entity);
  }
  std::string const& path = pathText(node, *attr.type(), given.key);
  references_.push_back([this, &node, &path, holder, &attr, &given] {
    filler_.requireEntity(node.at, path, *attr.type());
    filler_.write(node.at, attributePath(holder, given.key), path);
  });
}

void AttributeFormReader::readReferences(std::string const& path, ZolAttr const& attr,
                                         JsonMember const& given) {
  reader_.requireArray(given.value, given.key);
  for (JsonNode const& node : given.value.items) {
    std::string const& target = reader_.text(node, "the path of a member of " + given.key);
    references_.push_back([this, &node, &target, path, &attr] {
      filler_.requireEntity(node.at, target, *attr.type());
      filler_.write(node.at, path, target);
    });
  }
}

bool AttributeFormReader::make(Child const& given) {
  JsonNode const& node = given.given->value;
  reader_.requireObject(node, inQuotes(given.given->key));
  TreeFiller::Arguments arguments;
  std::vector<std::string> taken;
  for (ArgumentType const& type : argumentsOf(*given.attr)) {
    taken.push_back(type.name);
    JsonNode const* const value = node.find(type.name);
    if (!value) continue;
    std::optional<Zol::ByName::Argument> made = argument(type, *value);
    if (!made) return false;
    filler_.placeIs(attributePath(given.path, type.name), value->at);
    arguments.push_back(std::move(*made));
  }
  filler_.make(given.given->keyAt, given.path, arguments);
  readAttributes(given.path, *given.attr->type(), node, taken);
  return true;
}

std::optional<Zol::ByName::Argument> AttributeFormReader::argument(ArgumentType const& type,
                                                                   JsonNode const& node) {
  if (!type.type->isEntity()) {
    return Zol::ByName::Argument{type.name, readValue(reader_, node, *type.type, type.name)};
  }
  if (node.kind == JsonNode::Kind::null) {
    return Zol::ByName::Argument{type.name, Zol::Ptr<Zol::Entity>()};
  }
  if (Zol::Ptr<Zol::Entity> const entity = sibling(node, *type.type, type.name)) {
    return Zol::ByName::Argument{type.name, entity};
  }
  std::string const& path = pathText(node, *type.type, type.name);
  if (!filler_.contains(path)) return std::nullopt;
  filler_.requireEntity(node.at, path, *type.type);
  return Zol::ByName::Argument{type.name, path};
}

// Each round makes at least one of those that wait, or there is one that waits in vain.
void AttributeFormReader::makeWaiting() {
  while (!waiting_.empty()) {
    std::deque<Child> const before = std::exchange(waiting_, {});
    bool isOneMade = false;
    for (Child const& given : before) {
      if (make(given)) {
        isOneMade = true;
      } else {
        waiting_.push_back(given);
      }
    }
    if (!isOneMade) refuseDangling(before.front());
  }
}

void AttributeFormReader::refuseDangling(Child const& given) const {
  for (ArgumentType const& type : argumentsOf(*given.attr)) {
    JsonNode const* const value = given.given->value.find(type.name);
    if (value && type.type->isEntity() && value->kind == JsonNode::Kind::text &&
        !filler_.contains(value->text)) {
      filler_.requireEntity(value->at, value->text, *type.type);
    }
  }
  reader_.fail(given.given->keyAt, "this entity cannot be made");
}

// An object {"name": "12V"} stands for an entity of a model beside this one; null for anything
// else.
Zol::Ptr<Zol::Entity> AttributeFormReader::sibling(JsonNode const& node, ZolType const& type,
                                                   std::string_view what) {
  if (node.kind != JsonNode::Kind::object || !isSibling(type)) return nullptr;
  for (JsonMember const& member : node.members) {
    if (member.key == "name") continue;
    reader_.refuse(member.keyAt,
                   "the unknown key " + inQuotes(member.key) + " in " + std::string(what), "name");
  }
  JsonNode const& name = reader_.member(node, "name", what);
  return filler_.sibling(type, reader_.name(name, "the name of " + std::string(what)));
}

std::string const& AttributeFormReader::pathText(JsonNode const& node, ZolType const& type,
                                                 std::string_view what) const {
  if (node.kind != JsonNode::Kind::text) {
    reader_.refuse(node.at, describe(node),
                   (isSibling(type) ? "an object with a name, null, or the path of an entity for "
                                    : "the path of an entity, or null, for ") +
                       std::string(what));
  }
  return node.text;
}

void AttributeFormReader::refuseAttribute(JsonMember const& given, ZolType const& type,
                                          std::vector<std::string> names) const {
  for (auto it = type.attributeQIteratorConst(); it; ++it) {
    if (isWritable(*it)) names.emplace_back(it->name().view());
  }
  reader_.refuse(
      given.keyAt,
      "the unknown attribute " + inQuotes(given.key) + " of a " + std::string(type.name().view()),
      suggestion(given.key, names));
}

}  // namespace

Board readAttributeForm(JsonNode const& root, std::string const& file) {
  return AttributeFormReader(root, file).read(root);
}

}  // namespace RailSeq
