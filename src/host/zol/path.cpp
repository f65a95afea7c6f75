#include "host/zol/path.h"

#include <optional>
#include <vector>

#include "host/zol/dir.h"
#include "host/zol/exception.h"
#include "host/zol/generic/by_name.h"
#include "host/zol/path_steps.h"
#include "host/zol/registry/zol_type.h"
#include "host/zol/value_text.h"

namespace Zol {

namespace {

bool isDir(Entity const* entity) { return dynamic_cast<Dir const*>(entity) != nullptr; }

String8 keyOf(Entity const& entity) {
  ZolType::KeyTextFn const fn = entity.fwkType()->keyTextFn();
  return fn ? fn(entity) : String8(entity.name());
}

// The step from the parent of an entity to it.
void appendStep(std::string& path, Entity const& entity) {
  Entity const* const parent = entity.zolParent();
  if (!parent || isDir(parent)) {
    appendPathText(path, entity.name().view());
    return;
  }
  path += parent->attributeString(entity.parentAttrId()).view();
  ZolAttr const* const held = entity.parentAttr();
  if (held && !held->keyType()) return;
  path += '[';
  appendPathText(path, keyOf(entity).view());
  path += ']';
}

// The path from `entity` up to the outermost holder that `included` takes.
template <class Included>
String8 pathWhile(Entity const& entity, Included included) {
  std::vector<Entity const*> holders;
  for (Entity const* at = &entity; at && included(at); at = at->zolParent()) holders.push_back(at);
  std::string path;
  for (auto it = holders.rbegin(); it != holders.rend(); ++it) {
    if (it != holders.rbegin()) path += '/';
    appendStep(path, **it);
  }
  return path;
}

Ptr<Entity> childAt(Entity& holder, PathStep const& step) {
  if (auto* const dir = dynamic_cast<Dir*>(&holder)) {
    Ptr<Dir::Entry> const entry = step.key ? nullptr : dir->entry(step.name);
    return entry ? entry->entity() : nullptr;
  }
  return childByName(holder, step);
}

[[noreturn]] void throwNone(String8 const& path, String8 const& why) {
  throwRangeException("no entity at " + valueToStrep(path) + ": " + why);
}

}  // namespace

String8 pathBelowDirectories(Entity const& entity) {
  return pathWhile(entity, [](Entity const* holder) { return !isDir(holder); });
}

String8 pathOf(Entity const& entity) {
  if (&entity == &Dir::root()) return "/";
  return pathWhile(entity, [](Entity const*) { return true; });
}

Ptr<Entity> entityAt(String8 const& path) {
  Ptr<Entity> at(&Dir::root());
  PathSteps steps(path.view());
  if (path == "/") return at;
  if (steps.done()) throwNone(path, "it does not begin with '/'");
  while (!steps.done()) {
    String8 const walked(steps.walked());
    std::optional<PathStep> const step = steps.next();
    if (!step) {
      throwNone(path, walked.empty() && !path.view().starts_with('/')
                          ? String8("it does not begin with '/'")
                          : "it is malformed at column " + std::to_string(steps.walked().size()));
    }
    at = childAt(*at, *step);
    if (!at) {
      throwNone(path,
                (walked.empty() ? String8("the directory of the process") : valueToStrep(walked)) +
                    " has no " + valueToStrep(String8(steps.walked().substr(walked.size() + 1))));
    }
  }
  return at;
}

}  // namespace Zol
