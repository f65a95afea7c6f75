// Completion over trees and over types.
#include "railseq/commands/completion.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/zol/path_steps.h"
#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

using Zol::ZolAttr;
using Zol::ZolType;

[[nodiscard]] std::array<std::pair<std::string, ZolType const*>, 2> roots() {
  return {{{"config", Hardware::Ucd9012::Config::_fwkType()},
           {"status", Hardware::Ucd9012::Status::_fwkType()}}};
}

// The type of what stands at a path in any tree; null when nothing can.
[[nodiscard]] ZolType const* typeAt(std::string_view path) {
  Zol::PathSteps steps(path, true);
  std::optional<Zol::PathStep> const first = steps.next();
  if (!first || first->key) return nullptr;
  ZolType const* type = nullptr;
  for (auto const& [name, rootType] : roots()) {
    if (name == first->name) type = rootType;
  }
  while (type && !steps.done()) {
    std::optional<Zol::PathStep> const step = steps.next();
    if (!step) return nullptr;
    Zol::Ptr<ZolAttr> const attr = type->attr(Zol::Name(step->name));
    bool const fits = attr && (attr->keyType() != nullptr) == step->key.has_value();
    type = fits ? attr->type() : nullptr;
  }
  return type;
}

[[nodiscard]] std::vector<std::string> beginningWith(std::string const& start,
                                                     std::vector<std::string> candidates) {
  std::erase_if(candidates,
                [&start](std::string const& candidate) { return !candidate.starts_with(start); });
  return candidates;
}

[[nodiscard]] std::vector<std::string> assignments(std::string const& path, ZolType const* type) {
  if (!type) return {};
  std::vector<std::string> values;
  if (kindOfValue(*type) == ValueKind::boolean) values = {"true", "false"};
  if (kindOfValue(*type) == ValueKind::enumeration) values = attributeNames(*type);
  for (std::string& value : values) value.insert(0, path + "=");
  return values;
}

}  // namespace

std::vector<std::string> completions(Zol::ByName const& tree, std::string const& start) {
  std::size_t const mark = findAssignment(start);
  if (mark == std::string::npos) {
    std::vector<std::string> paths = tree.complete(start);
    std::ranges::sort(paths, comesBefore);
    return paths;
  }
  std::string const path = start.substr(0, mark);
  try {
    Zol::Ptr<Zol::GenericIf> const value = tree.at(path);
    return beginningWith(start, assignments(path, value ? value->type() : nullptr));
  } catch (Zol::RangeException const&) {
    return {};
  }
}

std::vector<std::string> completions(std::string const& start) {
  std::size_t const mark = findAssignment(start);
  if (mark != std::string::npos) {
    std::string const path = start.substr(0, mark);
    return beginningWith(start, assignments(path, typeAt(path)));
  }
  std::size_t const end = start.rfind('/');
  std::vector<std::string> paths;
  if (end == std::string::npos) {
    for (auto const& [name, type] : roots()) paths.push_back(name);
    return beginningWith(start, paths);
  }
  std::string const holder = start.substr(0, end);
  ZolType const* const type = typeAt(holder);
  if (!type || !type->isEntity()) return {};
  for (auto attr = type->attributeQIteratorConst(); attr; ++attr) {
    if (!attr->flags().has(Zol::AttrFlags::kByName)) continue;
    paths.push_back(attributePath(holder, attr->name().view()) + (attr->keyType() ? "[" : ""));
  }
  return beginningWith(start, paths);
}

}  // namespace RailSeq
