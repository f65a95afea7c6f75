// One change of some trees, and how it is told.
#pragma once

#include "hwrailseq.h"

#include <optional>
#include <string>
#include <vector>

#include "railseq/attach/tree_watcher.h"
#include "railseq/board/tree_json.h"
#include "railseq/values/references.h"

namespace RailSeq {

struct Change {
  enum class Kind { write, make, erase };
  using Arguments = std::vector<Zol::ByName::Argument>;

  Change(Kind itsKind, std::string itsPath, std::string itsValue = {})
      : kind(itsKind), path(std::move(itsPath)), value(std::move(itsValue)) {}

  // Makes the change, and sees what was there and what is there now. Throws as `Zol::ByName`.
  void apply(Zol::ByName const& tree, Neighbours const& neighbours, bool withJson);

  [[nodiscard]] bool isEffective() const;
  // A reference that was entered into a collection, whose path alone does not lead to it.
  [[nodiscard]] bool isEntry() const { return kind == Kind::write && !after; }
  // Whether a replica has what the change has made.
  [[nodiscard]] bool isIn(Zol::ByName const& tree) const;
  // What a replica has in place of it: "PATH has not become \"x\", it is \"y\"".
  [[nodiscard]] std::string missing(Zol::ByName const& tree) const;
  // What has come back in place of it: "PATH was set to \"x\" but has changed since, it is \"y\"".
  [[nodiscard]] std::string undone(Zol::ByName const& tree) const;

  // "PATH: OLD -> NEW", "PATH added", "PATH removed"
  [[nodiscard]] std::string line() const;
  [[nodiscard]] Json json() const;

  Kind kind;
  std::string path;
  // Of a write.
  std::string value;
  // Of what is made: plain texts.
  Arguments arguments;
  // Nothing where nothing stands.
  std::optional<ShownValue> before;
  std::optional<ShownValue> after;

 private:
  [[nodiscard]] std::optional<ShownValue> shownAt(Zol::ByName const& tree, bool withJson) const;
  void write(Zol::ByName const& tree, AttributePlace const& place, std::string const& text,
             Neighbours const& neighbours) const;
  void make(Zol::ByName const& tree, AttributePlace const& place,
            Neighbours const& neighbours) const;
  void erase(Zol::ByName const& tree, AttributePlace const& place,
             Neighbours const& neighbours) const;

  // What a replica has, as the end of a sentence.
  [[nodiscard]] std::string presentText(Zol::ByName const& tree) const;

  // An entity that is made and taken out stands there, and no value.
  bool isOwned_ = false;
  // Of an entry: the members that it has made.
  std::vector<std::string> entered_;
};

}  // namespace RailSeq
