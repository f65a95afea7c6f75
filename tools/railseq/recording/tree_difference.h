// What differs between a tree at one time and at another, by name.
#pragma once

#include "hwrailseq.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "railseq/attach/tree_watcher.h"
#include "railseq/base/wording.h"

namespace RailSeq {

// What stands at one path.
struct Standing {
  // An entity that stands here itself, rather than a reference to it.
  bool isEntity = false;
  // Of an entity its class and name.
  ShownValue value;
};

struct PathOrder {
  bool operator()(std::string_view a, std::string_view b) const { return comesBefore(a, b); }
};

// All paths of trees, or of a part of one, with what stands there.
using Snapshot = std::map<std::string, Standing, PathOrder>;

// At the path and below; empty when nothing is there.
[[nodiscard]] Snapshot snapshotAt(Zol::ByName const& tree, std::string const& path);
[[nodiscard]] Snapshot snapshotOf(std::vector<Zol::Ptr<Zol::Entity>> const& roots);

// In the order of the paths. What is below an entity that was added or removed goes with it. The
// values are those of the snapshots, which must outlive what is given.
[[nodiscard]] std::vector<TreeChange> differences(Snapshot const& before, Snapshot const& after);

}  // namespace RailSeq
