// Compares what stands at the paths of two snapshots.
#include "railseq/recording/tree_difference.h"

#include "railseq/base/paths.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

[[nodiscard]] Standing standingOf(std::string const& path, Zol::Ptr<Zol::GenericIf> const& value) {
  Zol::Ptr<Zol::Entity> const entity = entityIn(value);
  if (!entity || !(entity->uriPath() == Zol::String8(path))) {
    return {false, shownValue(value, true)};
  }
  std::string const type(entity->fwkType()->name().view());
  return {true,
          {.text = type + " " + inQuotes(entity->name().view()),
           .isText = false,
           .json = {{"type", type}, {"name", entity->name().view()}}}};
}

// Whether an entity above the path stands in one snapshot alone.
[[nodiscard]] bool isBelowEntityOf(std::string const& path, Snapshot const& one,
                                   Snapshot const& other) {
  for (std::size_t end = path.rfind('/'); end != std::string::npos && end > 0;
       end = path.rfind('/', end - 1)) {
    std::string const above = path.substr(0, end);
    auto const found = one.find(above);
    if (found == one.end() || !found->second.isEntity) continue;
    auto const there = other.find(above);
    if (there == other.end() || !there->second.isEntity) return true;
  }
  return false;
}

}  // namespace

Snapshot snapshotAt(Zol::ByName const& tree, std::string const& path) {
  Snapshot all;
  try {
    tree.walk(path, [&all](std::string const& at, Zol::Ptr<Zol::GenericIf> const& value) {
      all[at] = standingOf(at, value);
    });
  } catch (Zol::RangeException const&) {
    // There is nothing at the path.
  }
  return all;
}

Snapshot snapshotOf(std::vector<Zol::Ptr<Zol::Entity>> const& roots) {
  Snapshot all;
  Zol::ByName const tree(roots);
  for (Zol::Ptr<Zol::Entity> const& root : roots) {
    all.merge(snapshotAt(tree, rootPath(root->name().view())));
  }
  return all;
}

std::vector<TreeChange> differences(Snapshot const& before, Snapshot const& after) {
  using Kind = TreeChange::Kind;
  std::vector<TreeChange> all;
  auto const add = [&](std::string const& path, Standing const* was, Standing const* is) {
    bool const wasEntity = was && was->isEntity;
    bool const isEntity = is && is->isEntity;
    // A single child that is not there stands as None.
    Kind const kind = wasEntity == isEntity ? Kind::changed
                      : isEntity            ? Kind::added
                                            : Kind::removed;
    if (!is && isBelowEntityOf(path, before, after)) return;
    if (!was && isBelowEntityOf(path, after, before)) return;
    all.push_back({kind, path, was ? &was->value : nullptr, is ? &is->value : nullptr});
  };
  auto was = before.begin();
  auto is = after.begin();
  while (was != before.end() || is != after.end()) {
    bool const isGone =
        is == after.end() || (was != before.end() && comesBefore(was->first, is->first));
    bool const isNew =
        was == before.end() || (is != after.end() && comesBefore(is->first, was->first));
    if (isGone) {
      add(was->first, &was->second, nullptr);
    } else if (isNew) {
      add(is->first, nullptr, &is->second);
    } else if (was->second.isEntity != is->second.isEntity ||
               was->second.value.text != is->second.value.text ||
               was->second.value.json != is->second.value.json) {
      add(is->first, &was->second, &is->second);
    }
    if (!isNew) ++was;
    if (!isGone) ++is;
  }
  return all;
}

}  // namespace RailSeq
