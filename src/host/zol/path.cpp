#include "host/zol/path.h"

#include <optional>
#include <vector>

#include "host/zol/dir.h"
#include "host/zol/exception.h"
#include "host/zol/registry/zol_type.h"
#include "host/zol/value_text.h"

namespace Zol {

namespace {

constexpr std::string_view kMarks = "/[]\\";

void appendEscaped(std::string& path, std::string_view text) {
  for (char const byte : text) {
    if (kMarks.find(byte) != std::string_view::npos) path += '\\';
    path += byte;
  }
}

bool isDir(Entity const* entity) { return dynamic_cast<Dir const*>(entity) != nullptr; }

String8 keyOf(Entity const& entity) {
  ZolType::KeyTextFn const fn = entity.fwkType()->keyTextFn();
  return fn ? fn(entity) : String8(entity.name());
}

// The step from the parent of an entity to it.
void appendStep(std::string& path, Entity const& entity) {
  Entity const* const parent = entity.zolParent();
  if (!parent || isDir(parent)) {
    appendEscaped(path, entity.name().view());
    return;
  }
  path += parent->attributeString(entity.parentAttrId()).view();
  ZolAttr const* const held = entity.parentAttr();
  if (held && !held->keyType()) return;
  path += '[';
  appendEscaped(path, keyOf(entity).view());
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

struct Step {
  std::string name;
  std::optional<std::string> key;
};

// Reads a path step by step. `at` is the index of the next byte.
class Steps {
 public:
  explicit Steps(std::string_view path) : path_(path) {}

  [[nodiscard]] bool done() const noexcept { return at_ >= path_.size(); }
  [[nodiscard]] std::string_view walked() const noexcept { return path_.substr(0, at_); }

  // What a path is made of, or nothing if it breaks the rules there.
  std::optional<Step> next() {
    if (path_[at_] != '/') return std::nullopt;
    ++at_;
    Step step;
    if (!append(step.name)) return std::nullopt;
    if (done() || path_[at_] == '/') return step;
    if (path_[at_] != '[') return std::nullopt;
    ++at_;
    step.key.emplace();
    if (!append(*step.key) || done() || path_[at_] != ']') return std::nullopt;
    ++at_;
    return step;
  }

 private:
  // Takes bytes up to the next mark.
  bool append(std::string& text) {
    for (; !done(); ++at_) {
      if (path_[at_] == '\\') {
        if (++at_ == path_.size()) return false;
      } else if (kMarks.find(path_[at_]) != std::string_view::npos) {
        break;
      }
      text += path_[at_];
    }
    return true;
  }

  std::string_view path_;
  std::size_t at_ = 0;
};

Ptr<Entity> childAt(Entity& holder, Step const& step) {
  if (auto* const dir = dynamic_cast<Dir*>(&holder)) {
    Ptr<Dir::Entry> const entry = step.key ? nullptr : dir->entry(step.name);
    return entry ? entry->entity() : nullptr;
  }
  String8 const key(step.key.value_or(""));
  for (ZolType const* type = holder.fwkType(); type; type = type->baseType()) {
    if (!type->childFn()) continue;
    Ptr<Entity> child = type->childFn()(holder, step.name, step.key ? &key : nullptr);
    if (child) return child;
  }
  return nullptr;
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
  Steps steps(path.view());
  if (path == "/") return at;
  if (steps.done()) throwNone(path, "it does not begin with '/'");
  while (!steps.done()) {
    String8 const walked(steps.walked());
    std::optional<Step> const step = steps.next();
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
