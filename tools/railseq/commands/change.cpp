// Makes changes by name, and tells them by what stood there before and stands there afterwards.
#include "railseq/commands/change.h"

#include <algorithm>

#include "railseq/values/attribute_values.h"
#include "railseq/values/controllers.h"

namespace RailSeq {

namespace {

// As `Neighbours::find`, with the place in front of what is wrong.
[[nodiscard]] Zol::Ptr<Zol::Entity> neighbourAt(std::string const& where,
                                                Neighbours const& neighbours,
                                                std::string const& text, Zol::ZolType const& type) {
  try {
    return neighbours.find(text, type);
  } catch (Zol::RangeException const& failure) {
    Zol::throwRangeException(where + ": " + failure.what());
  }
}

}  // namespace

void Change::apply(Zol::ByName const& tree, Neighbours const& neighbours, bool withJson) {
  AttributePlace const place = attributeAt(tree, path);
  isOwned_ = place.isOwning();
  std::vector<std::string> const former = memberPaths(tree, path);
  before = shownAt(tree, withJson);
  switch (kind) {
    case Kind::write:
      write(tree, place, value, neighbours);
      break;
    case Kind::make:
      make(tree, place, neighbours);
      break;
    case Kind::erase:
      erase(tree, place, neighbours);
      break;
  }
  after = shownAt(tree, withJson);
  if (!isEntry()) return;
  for (std::string const& member : memberPaths(tree, path)) {
    if (std::ranges::find(former, member) == former.end()) entered_.push_back(member);
  }
}

std::optional<ShownValue> Change::shownAt(Zol::ByName const& tree, bool withJson) const {
  try {
    Zol::Ptr<Zol::GenericIf> const there = tree.at(path);
    if (isOwned_ && !entityIn(there)) return std::nullopt;
    return shownValue(there, withJson);
  } catch (Zol::RangeException const&) {
    return std::nullopt;  // No member of the key, or many members.
  }
}

void Change::write(Zol::ByName const& tree, AttributePlace const& place, std::string const& text,
                   Neighbours const& neighbours) const {
  Zol::Ptr<Zol::Entity> neighbour;
  if (place.isReference()) neighbour = neighbourAt(path, neighbours, text, *place.attr->type());
  if (!neighbour) return tree.write(path, text);
  referenceIs(place.holder, std::string(place.attr->name().view()), neighbour);
}

void Change::make(Zol::ByName const& tree, AttributePlace const& place,
                  Neighbours const& neighbours) const {
  Arguments given = arguments;
  if (place.isOwning()) {
    for (ArgumentType const& type : argumentsOf(*place.attr)) {
      auto const argument = std::ranges::find(given, type.name, &Zol::ByName::Argument::name);
      if (argument == given.end() || !type.type->isEntity()) continue;
      auto const neighbour = neighbourAt(path + "(" + type.name + ")", neighbours,
                                         std::get<std::string>(argument->value), *type.type);
      if (neighbour) argument->value = neighbour;
    }
  }
  (void)tree.make(path, given);
}

void Change::erase(Zol::ByName const& tree, AttributePlace const& place,
                   Neighbours const& neighbours) const {
  place.isReference() ? write(tree, place, "None", neighbours) : tree.erase(path);
}

bool Change::isEffective() const {
  if (isEntry() || before.has_value() != after.has_value()) return true;
  return before && before->text != after->text;
}

bool Change::isIn(Zol::ByName const& tree) const {
  if (isEntry()) {
    std::vector<std::string> const members = memberPaths(tree, path);
    return std::ranges::all_of(entered_, [&](std::string const& member) {
      return std::ranges::find(members, member) != members.end();
    });
  }
  std::optional<ShownValue> const shown = shownAt(tree, false);
  if (!shown || !after) return !shown && !after;
  return shown->text == after->text;
}

std::string Change::missing(Zol::ByName const& tree) const {
  if (kind == Kind::make) return path + " has not been added";
  if (kind == Kind::erase) return path + " has not been taken out";
  return path + " has not become " + inQuotes(value) + presentText(tree);
}

std::string Change::undone(Zol::ByName const& tree) const {
  if (kind == Kind::make) return path + " was added but has gone since";
  if (kind == Kind::erase) return path + " was taken out but has come back since";
  return path + " was set to " + inQuotes(value) + " but has changed since" + presentText(tree);
}

std::string Change::presentText(Zol::ByName const& tree) const {
  std::optional<ShownValue> const shown = isEntry() ? std::nullopt : shownAt(tree, false);
  return shown ? ", it is " + shown->shortText() : "";
}

std::string Change::line() const {
  if (isEntry()) return path + ": " + value + " entered";
  auto const text = [](std::optional<ShownValue> const& shown) {
    return shown ? shown->shortText() : "nothing";
  };
  if (isOwned_ && isEffective()) return path + (after ? " added" : " removed");
  if (isOwned_ && after) return path + " (unchanged)";
  if (!isEffective()) return path + ": " + text(after) + " (unchanged)";
  return path + ": " + text(before) + " -> " + text(after);
}

Json Change::json() const {
  return {{"path", path},
          {"before", before ? before->json : Json()},
          {"after", isEntry() ? Json(value)
                    : after   ? after->json
                              : Json()},
          {"changed", isEffective()}};
}

}  // namespace RailSeq
