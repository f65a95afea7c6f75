// What differs between a tree at one time and at another, by name.
#pragma once

#include "hwrailseq.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "railseq/tree_json.h"
#include "railseq/wording.h"

namespace RailSeq {

// What stands at one path.
struct Standing {
  // An entity that stands here itself, rather than a reference to it.
  bool isEntity = false;
  // The value for people; of an entity its class and name.
  std::string text;
  // The same in whole: the text of a long value is cut.
  Json json;

  friend bool operator==(Standing const&, Standing const&) = default;
};

struct PathOrder {
  bool operator()(std::string_view a, std::string_view b) const { return comesBefore(a, b); }
};

// All paths of trees, or of a part of one, with what stands there.
using Snapshot = std::map<std::string, Standing, PathOrder>;

// At the path and below; empty when nothing is there.
[[nodiscard]] Snapshot snapshotAt(Zol::ByName const& tree, std::string const& path);
[[nodiscard]] Snapshot snapshotOf(std::vector<Zol::Ptr<Zol::Entity>> const& roots);

struct Difference {
  enum class Kind { changed, added, removed };

  // "board/x/y: 1 -> 2", "board/x[m] added", "board/x[m]/y[3] = 2 added", "board/x[m] removed"
  [[nodiscard]] std::string line() const;
  [[nodiscard]] Json json() const;

  Kind kind = Kind::changed;
  std::string path;
  Standing before;
  Standing after;
};

// In the order of the paths. What is below an entity that was added or removed goes with it.
[[nodiscard]] std::vector<Difference> differences(Snapshot const& before, Snapshot const& after);

// Whether `path` is `at`, or below it.
[[nodiscard]] bool isAtOrBelow(std::string_view path, std::string_view at);

}  // namespace RailSeq
