// Fills the trees of a board. What the trees refuse is told with the place in the file.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "railseq/board/board.h"
#include "railseq/board/siblings.h"
#include "railseq/json/node_reader.h"

namespace RailSeq {

// All operations but `contains` throw `InputError` with the given place.
class TreeFiller {
 public:
  using Arguments = std::vector<Zol::ByName::Argument>;

  TreeFiller(Zol::ByName tree, NodeReader const& reader)
      : tree_(std::move(tree)), reader_(reader) {}

  void make(Position at, std::string const& path, Arguments const& arguments);
  void write(Position at, std::string const& path, std::string const& text);
  // Sets the reference `attribute` of what stands at `holder` to an entity of no tree.
  void refer(Position at, std::string const& holder, std::string const& attribute,
             Zol::Ptr<Zol::Entity> const& entity);
  // Refuses a path that leads to no entity of the type.
  void requireEntity(Position at, std::string const& path, Zol::ZolType const& type) const;
  // Whether the path leads to anything; false for one that cannot.
  [[nodiscard]] bool contains(std::string const& path) const;
  [[nodiscard]] Zol::Ptr<Zol::Entity> sibling(Zol::ZolType const& type, std::string const& name) {
    return siblings_.entity(type, name);
  }

  // Where the file says something that no operation is given.
  void placeIs(std::string const& path, Position at) { places_.emplace(path, at); }
  // All that was placed, by path.
  [[nodiscard]] std::map<std::string, Position> const& places() const { return places_; }

 private:
  void located(Position at, std::function<void()> const& what) const;

  Zol::ByName tree_;
  NodeReader const& reader_;
  Siblings siblings_;
  std::map<std::string, Position> places_;
};

}  // namespace RailSeq
