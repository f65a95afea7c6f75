// What the commands do, and how they show it.
#include "railseq/commands/commands.h"

#include <ostream>

#include "railseq/attach/trees.h"
#include "railseq/base/wording.h"
#include "railseq/board/lint.h"
#include "railseq/commands/completion.h"
#include "railseq/commands/types.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

int runGet(CommandLine const& line, std::ostream& out) {
  Trees const trees = openTrees(line, deadlineOf(line), line.words);
  Zol::ByName const tree = trees.byName();
  std::string text;
  Json json = Json::object();
  for (std::string const& path : line.words) {
    Zol::Ptr<Zol::GenericIf> const value = tree.at(path);
    text += shownText(value) + "\n";
    json[path] = valueJson(value);
  }
  out << (line.json ? jsonText(json) : text);
  return 0;
}

int runCount(CommandLine const& line, std::ostream& out) {
  Trees const trees = openTrees(line, deadlineOf(line), line.words);
  Zol::ByName const tree = trees.byName();
  std::string text;
  Json json = Json::object();
  for (std::string const& path : line.words) {
    std::uint32_t const count = tree.count(path);
    text += std::to_string(count) + "\n";
    json[path] = count;
  }
  out << (line.json ? jsonText(json) : text);
  return 0;
}

int runTree(CommandLine const& line, std::ostream& out) {
  Trees const trees = openTrees(line, deadlineOf(line), line.words);
  if (line.json) {
    out << jsonText(treesJson(trees.roots, line.words));
    return 0;
  }
  for (std::string const& text : treeLines(trees.roots, line.words)) out << text << '\n';
  return 0;
}

int runComplete(CommandLine const& line, std::ostream& out) {
  if (line.words.size() > 1) {
    throw InputError("complete", "found " + inQuotes(line.words[1]) +
                                     " behind the beginning of a path, expected no more");
  }
  std::string const start = line.words.empty() ? std::string() : line.words.front();
  bool const hasTrees = !line.board.empty() || !line.address.empty();
  for (std::string const& completion :
       hasTrees ? completions(openTrees(line, deadlineOf(line), {}).byName(), start)
                : completions(start)) {
    out << completion << '\n';
  }
  return 0;
}

int runTypes(CommandLine const& line, std::ostream& out) {
  bool const hasTrees = !line.board.empty() || !line.address.empty();
  Trees const trees = hasTrees ? openTrees(line, deadlineOf(line), line.words) : Trees{};
  if (line.words.empty()) {
    TypeList const types = hasTrees ? typesIn(trees.roots) : modelTypes();
    out << (line.json ? jsonText(typesJson(types)) : typesText(types));
    return 0;
  }
  Zol::ByName const tree = trees.byName();
  Json json = Json::object();
  std::string text;
  for (std::string const& word : line.words) {
    Zol::ZolType const& type = hasTrees ? *tree.at(word)->type() : findType(word);
    text += (text.empty() ? "" : "\n") + typeText(type);
    json[word] = typeJson(type);
  }
  out << (line.json ? jsonText(json) : text);
  return 0;
}

int runLint(CommandLine const& line, std::ostream& out) {
  Board const board = readBoard(line.board);
  std::vector<std::string> warnings;
  for (Warning const& warning : lintBoard(board)) warnings.push_back(warning.line(line.board));
  if (line.json) {
    out << jsonText({{"board", line.board}, {"notes", board.notes}, {"warnings", warnings}});
  } else {
    for (std::string const& note : board.notes) out << note << '\n';
    for (std::string const& warning : warnings) out << warning << '\n';
    out << line.board << ": " << (warnings.empty() ? "good" : counted(warnings.size(), "warning"))
        << '\n';
  }
  return warnings.empty() ? 0 : 1;
}

}  // namespace RailSeq
