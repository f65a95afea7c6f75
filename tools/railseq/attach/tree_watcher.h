// Listens to every attribute of every entity of some trees, by what the registry knows of them, and
// tells each change by its path.
#pragma once

#include "hwrailseq.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "railseq/base/input_error.h"
#include "railseq/board/tree_json.h"

namespace RailSeq {

// A value as text and, where it was asked for, as JSON.
struct ShownValue {
  // In quotes and cut where it is a text.
  [[nodiscard]] std::string shortText() const { return isText ? inQuotes(text) : text; }

  std::string text;
  bool isText = false;
  Json json;
};

// `withJson`: otherwise the JSON stays null.
[[nodiscard]] ShownValue shownValue(Zol::Ptr<Zol::GenericIf> const& value, bool withJson);

struct TreeChange {
  enum class Kind {
    value,    // what is there, without a change
    changed,  // of a member of an attribute with keys, `before` or `after` may be missing
    added,    // an entity
    removed,
  };

  Kind kind = Kind::changed;
  std::string path;
  // Null when there was, or is, nothing.
  ShownValue const* before = nullptr;
  ShownValue const* after = nullptr;
};

// "PATH: VALUE", "PATH: OLD -> NEW", "PATH added", "PATH removed"
[[nodiscard]] std::string changeText(TreeChange const& change);
[[nodiscard]] Json changeJson(TreeChange const& change);

class WatchedEntity;

class TreeWatcher {
 public:
  using Sink = std::function<void(TreeChange const&)>;

  // Called inside mutators: the sink changes no tree.
  TreeWatcher(Sink sink, bool withJson);
  ~TreeWatcher();

  // Listens to these in place of the roots so far. Those that are the same stay as they are; of the
  // others it is told that they have come, with all they hold, or gone. The first ones are not told
  // of.
  void rootsAre(std::vector<Zol::Ptr<Zol::Entity>> const& roots);
  // Tells all values that there are.
  void tellAll() const;

 private:
  friend class WatchedEntity;

  Sink sink_;
  bool withJson_;
  bool hadRoots_ = false;
  std::map<std::string, std::unique_ptr<WatchedEntity>> roots_;
};

}  // namespace RailSeq
