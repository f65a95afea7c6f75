// What the commands do, and how they show it.
#include "railseq/commands.h"

#include <iostream>

#include "railseq/attribute_values.h"
#include "railseq/completion.h"
#include "railseq/lint.h"
#include "railseq/paths.h"
#include "railseq/tree_json.h"
#include "railseq/tree_text.h"
#include "railseq/types.h"
#include "railseq/wording.h"

namespace RailSeq {

namespace {

using Value = Zol::Ptr<Zol::GenericIf>;

struct Change {
  std::string path;
  std::string value;
  Value before;
  Value after;

  [[nodiscard]] bool isEffective() const {
    return !before || !after || quotedText(before) != quotedText(after);
  }
  // A reference that was entered into a collection, whose path alone does not lead to it.
  [[nodiscard]] bool isEntry() const { return !after; }
};

// The value at the path; null when there is none, or more than one.
[[nodiscard]] Value valueAt(Zol::ByName const& tree, std::string const& path) {
  try {
    return tree.at(path);
  } catch (Zol::RangeException const&) {
    return nullptr;
  }
}

[[nodiscard]] Change parseChange(std::string const& word) {
  std::size_t const mark = findAssignment(word);
  if (mark == std::string::npos) {
    throw InputError("set", "found " + inQuotes(word) + ", expected PATH=VALUE");
  }
  return {.path = word.substr(0, mark), .value = word.substr(mark + 1), .before = {}, .after = {}};
}

[[nodiscard]] std::string changeLine(Change const& change) {
  if (change.isEntry()) return change.path + ": " + change.value + " entered";
  std::string const after = quotedText(change.after);
  if (!change.isEffective()) return change.path + ": " + after + " (unchanged)";
  return change.path + ": " + (change.before ? quotedText(change.before) : "nothing") + " -> " +
         after;
}

[[nodiscard]] Json changeJson(Change const& change) {
  return {{"path", change.path},
          {"before", valueJson(change.before)},
          {"after", change.isEntry() ? Json(change.value) : valueJson(change.after)},
          {"changed", change.isEffective()}};
}

[[nodiscard]] std::vector<std::string> rootsOf(Board const& board) {
  std::vector<std::string> paths;
  for (Zol::Ptr<Zol::Entity> const& root : board.roots()) {
    paths.push_back(rootPath(root->name().view()));
  }
  return paths;
}

void printLines(Zol::ByName const& tree, std::vector<std::string> const& paths, std::ostream& out) {
  std::vector<std::string> lines;
  for (std::string const& path : paths) {
    std::vector<std::string> const more = treeLines(tree, path);
    lines.insert(lines.end(), more.begin(), more.end());
  }
  for (std::string const& line : lines) out << line << '\n';
}

}  // namespace

int runGet(CommandLine const& line, std::ostream& out) {
  Zol::ByName const tree = readBoard(line.board).tree();
  std::string text;
  Json json = Json::object();
  for (std::string const& path : line.words) {
    Value const value = tree.at(path);
    text += shownText(value) + "\n";
    json[path] = valueJson(value);
  }
  out << (line.json ? jsonText(json) : text);
  return 0;
}

int runSet(CommandLine const& line, std::ostream& out) {
  std::vector<Change> changes;
  for (std::string const& word : line.words) changes.push_back(parseChange(word));
  Board const board = readBoard(line.board);
  Zol::ByName const tree = board.tree();
  for (Change& change : changes) {
    change.before = valueAt(tree, change.path);
    tree.write(change.path, change.value);
    change.after = valueAt(tree, change.path);
  }
  if (line.json) {
    Json json = {{"changes", Json::array()}};
    for (Change const& change : changes) json["changes"].push_back(changeJson(change));
    if (line.tree) json["tree"] = boardJson(board);
    out << jsonText(json);
    return 0;
  }
  for (Change const& change : changes) out << changeLine(change) << '\n';
  if (line.tree) printLines(tree, rootsOf(board), out);
  return 0;
}

int runCount(CommandLine const& line, std::ostream& out) {
  Zol::ByName const tree = readBoard(line.board).tree();
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
  Board const board = readBoard(line.board);
  Zol::ByName const tree = board.tree();
  if (!line.json) {
    printLines(tree, line.words.empty() ? rootsOf(board) : line.words, out);
    return 0;
  }
  Json json = line.words.empty() ? boardJson(board) : Json::object();
  for (std::string const& path : line.words) json[path] = jsonAt(tree, path);
  out << jsonText(json);
  return 0;
}

int runComplete(CommandLine const& line, std::ostream& out) {
  std::string const start = line.words.empty() ? std::string() : line.words.front();
  for (std::string const& completion :
       line.board.empty() ? completions(start) : completions(readBoard(line.board).tree(), start)) {
    out << completion << '\n';
  }
  return 0;
}

int runTypes(CommandLine const& line, std::ostream& out) {
  if (line.words.empty()) {
    line.json ? out << jsonText(typesJson()) : out << typesText();
    return 0;
  }
  std::vector<Zol::ZolType const*> types;
  if (line.board.empty()) {
    for (std::string const& name : line.words) types.push_back(&findType(name));
  } else {
    Zol::ByName const tree = readBoard(line.board).tree();
    for (std::string const& path : line.words) {
      Value const value = tree.at(path);
      types.push_back(value ? value->type() : nullptr);
    }
  }
  Json json = Json::object();
  std::string text;
  for (std::size_t i = 0; i < types.size(); ++i) {
    if (i > 0) text += '\n';
    text += typeText(*types[i]);
    json[line.words[i]] = typeJson(*types[i]);
  }
  out << (line.json ? jsonText(json) : text);
  return 0;
}

int runLint(CommandLine const& line, std::ostream& out) {
  Board const board = readBoard(line.board);
  std::vector<std::string> const warnings = lintBoard(board);
  if (line.json) {
    out << jsonText({{"board", line.board}, {"notes", board.notes}, {"warnings", warnings}});
  } else {
    for (std::string const& note : board.notes) out << note << '\n';
    for (std::string const& warning : warnings) {
      out << line.board << ": warning: " << warning << '\n';
    }
    out << line.board << ": " << (warnings.empty() ? "good" : counted(warnings.size(), "warning"))
        << '\n';
  }
  return warnings.empty() ? 0 : 1;
}

}  // namespace RailSeq
