// The trees that a command works on: of a board file, or of a process at an address.
#pragma once

#include "hwrailseq.h"

#include <memory>
#include <vector>

#include "railseq/attach/attachment.h"
#include "railseq/base/command_line.h"
#include "railseq/board/tree_json.h"

namespace RailSeq {

struct Trees {
  std::vector<Zol::Ptr<Zol::Entity>> roots;
  // Of an address: what keeps the trees up to date; null for a board.
  std::unique_ptr<Attachment> attachment = nullptr;

  [[nodiscard]] Zol::ByName byName() const { return Zol::ByName(roots); }
  [[nodiscard]] std::vector<std::string> rootPaths() const;
};

// The end of the time that the line allows.
[[nodiscard]] Clock::time_point deadlineOf(CommandLine const& line);

// Reads the board, or attaches and waits until all is there. A root that one of the paths begins
// with, and that the process has not mounted yet, is waited for a moment, or up to the deadline
// where the line gives a time. Throws `InputError`, and `CommandError` when the process cannot be
// reached in time.
[[nodiscard]] Trees openTrees(CommandLine const& line, Clock::time_point deadline,
                              std::vector<std::string> const& paths);

// The lines of what stands at the paths; without paths, of all.
[[nodiscard]] std::vector<std::string> treeLines(std::vector<Zol::Ptr<Zol::Entity>> const& roots,
                                                 std::vector<std::string> const& paths);
// The same as JSON. Of all of at most one configuration and one status it is a board.
[[nodiscard]] Json treesJson(std::vector<Zol::Ptr<Zol::Entity>> const& roots,
                             std::vector<std::string> const& paths);

}  // namespace RailSeq
