// Opens the trees of a command, and shows them.
#include "railseq/attach/trees.h"

#include "railseq/base/paths.h"
#include "railseq/board/board.h"
#include "railseq/values/tree_text.h"

namespace RailSeq {

namespace {

using Roots = std::vector<Zol::Ptr<Zol::Entity>>;

[[nodiscard]] std::vector<std::string> pathsOf(Roots const& roots) {
  std::vector<std::string> paths;
  for (Zol::Ptr<Zol::Entity> const& root : roots) paths.push_back(rootPath(root->name().view()));
  return paths;
}

// Whether the roots have a place in a board each.
[[nodiscard]] bool isBoard(Roots const& roots, Board& board) {
  for (Zol::Ptr<Zol::Entity> const& root : roots) {
    auto const config = Zol::ptrCast<Config>(root);
    auto const status = Zol::ptrCast<Status>(root);
    if (config ? board.config != nullptr : !status || board.status) return false;
    if (config) board.config = config;
    if (status) board.status = status;
  }
  return board.config != nullptr;
}

}  // namespace

std::vector<std::string> Trees::rootPaths() const { return pathsOf(roots); }

Clock::time_point deadlineOf(CommandLine const& line) {
  return Clock::now() +
         std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(line.timeout));
}

Trees openTrees(CommandLine const& line, Clock::time_point deadline,
                std::vector<std::string> const& paths) {
  if (line.address.empty()) return {.roots = readBoard(line.board).roots()};
  Trees trees;
  trees.attachment =
      std::make_unique<Attachment>(Attachment::Options{.address = parseAddress(line.address)});
  trees.attachment->connect(deadline);
  Clock::duration const patience =
      line.hasTimeout ? deadline - Clock::now() : Attachment::kRootPatience;
  trees.attachment->sync(deadline, paths, patience);
  trees.roots = trees.attachment->roots();
  return trees;
}

std::vector<std::string> treeLines(Roots const& roots, std::vector<std::string> const& paths) {
  Zol::ByName const tree(roots);
  std::vector<std::string> lines;
  for (std::string const& path : paths.empty() ? pathsOf(roots) : paths) {
    std::vector<std::string> const more = treeLines(tree, path);
    lines.insert(lines.end(), more.begin(), more.end());
  }
  return lines;
}

Json treesJson(Roots const& roots, std::vector<std::string> const& paths) {
  Board board;
  if (paths.empty() && isBoard(roots, board)) return boardJson(board);
  Zol::ByName const tree(roots);
  Json json = Json::object();
  for (std::string const& path : paths.empty() ? pathsOf(roots) : paths) {
    json[path] = jsonAt(tree, path);
  }
  return json;
}

}  // namespace RailSeq
