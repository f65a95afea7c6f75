// A board: the trees that a board file describes.
#pragma once

#include "hwrailseq.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "railseq/base/input_error.h"

namespace RailSeq {

using Hardware::Ucd9012::Config;
using Hardware::Ucd9012::Status;

struct Board {
  // The roots, as far as they are there; the configuration first.
  [[nodiscard]] std::vector<Zol::Ptr<Zol::Entity>> roots() const;
  // The same by name.
  [[nodiscard]] Zol::ByName tree() const { return Zol::ByName(roots()); }

  Zol::Ptr<Config> config;
  // Null when the file has no status side.
  Zol::Ptr<Status> status;
  // One line each, with its place in the file: what was read but has no place in a tree.
  std::vector<std::string> notes;
  // Where the file says what stands at a path, as far as it says anything of it.
  std::map<std::string, Position> places;
};

// Reads a board file of either form, told apart by its keys. Throws `InputError`; a board is given
// whole or not at all.
[[nodiscard]] Board readBoard(std::string const& file);
// The same for a text that is already in memory; `file` is only used in messages.
[[nodiscard]] Board parseBoard(std::string const& file, std::string_view text);

}  // namespace RailSeq
