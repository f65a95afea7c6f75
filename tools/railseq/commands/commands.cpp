// What the commands do, and how they show it.
#include "railseq/commands/commands.h"

#include <algorithm>
#include <iostream>

#include "host/zol/path_steps.h"
#include "railseq/attach/trees.h"
#include "railseq/base/command_error.h"
#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/board/lint.h"
#include "railseq/commands/completion.h"
#include "railseq/commands/types.h"
#include "railseq/values/attribute_values.h"
#include "railseq/values/controllers.h"

namespace RailSeq {

namespace {

using Value = Zol::Ptr<Zol::GenericIf>;

constexpr std::chrono::milliseconds kTick{50};
// A value from before the write may come back for a moment, until the process has got the write.
constexpr std::chrono::milliseconds kUndonePatience{300};

struct Change {
  std::string path;
  std::string value;
  Value before;
  Value after;
  // Of an entry: the members that it has made.
  std::vector<std::string> entered = {};

  [[nodiscard]] bool isEffective() const {
    return !before || !after || shownText(before) != shownText(after);
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

[[nodiscard]] std::vector<std::string> pathsOf(std::vector<Change> const& changes) {
  std::vector<std::string> paths;
  for (Change const& change : changes) paths.push_back(change.path);
  return paths;
}

// Writes to the trees, and notes what that has changed.
void apply(Zol::ByName const& tree, Change& change) {
  std::vector<std::string> const former = memberPaths(tree, change.path);
  change.before = valueAt(tree, change.path);
  tree.write(change.path, change.value);
  change.after = valueAt(tree, change.path);
  if (!change.isEntry()) return;
  for (std::string const& member : memberPaths(tree, change.path)) {
    if (std::ranges::find(former, member) == former.end()) change.entered.push_back(member);
  }
}

// Whether a replica has what the change has made.
[[nodiscard]] bool has(Zol::ByName const& tree, Change const& change) {
  if (change.isEntry()) {
    return std::ranges::all_of(change.entered, [&](std::string const& member) {
      return valueAt(tree, member) != nullptr;
    });
  }
  Value const value = valueAt(tree, change.path);
  return value && shownText(value) == shownText(change.after);
}

// What a replica has in place of what the change has made, as the end of a sentence.
[[nodiscard]] std::string presentText(Zol::ByName const& tree, Change const& change) {
  Value const value = change.isEntry() ? nullptr : valueAt(tree, change.path);
  return value ? ", it is " + quotedText(value) : "";
}

void requireWritable(Trees const& trees, Change const& change) {
  std::string const root = rootName(change.path);
  for (Zol::Ptr<Zol::Entity> const& each : trees.roots) {
    if (each->name().view() != root) continue;
    if (!Zol::Entity::ZolNboAttrLogSa::isReadOnlyReplica(*each)) return;
    throw CommandError(ExitCode::refused, change.path + ": " + trees.attachment->address().text() +
                                              " serves " + root + " read-only");
  }
}

// What was written is sent; then a second replica must get it from the process, which says nothing
// about what it has taken. A value that has come back in place of the one that was written, and
// stays, is the answer too.
void awaitSource(Trees const& trees, std::vector<Change> const& changes,
                 Clock::time_point deadline) {
  Attachment& attachment = *trees.attachment;
  Attachment::Connection const& connection = *attachment.connection();
  auto const timedOut = [&](std::string const& why) {
    throw CommandError(ExitCode::timedOut, attachment.address().text() + ": " + why);
  };
  auto const require = [&](Attachment& at, Attachment::End end) {
    if (end == Attachment::End::lost) throw CommandError(ExitCode::peerLost, at.lossReason());
    return end == Attachment::End::done;
  };
  auto const isSent = [&] { return connection.demuxer()->idle() && !connection.wantsWrite(); };
  if (!require(attachment, attachment.pumpUntil(isSent, deadline))) {
    timedOut("timed out before all was sent");
  }
  // Under another name, or it would take over the replica that was written to.
  Attachment second({.address = attachment.address(), .keptAs = "second replica"});
  second.connect(deadline);
  second.sync(deadline, pathsOf(changes), deadline - Clock::now());
  Zol::ByName const there(second.roots());
  Zol::ByName const here = trees.byName();
  auto const missing = [&changes](auto const& isMissing) {
    auto const found = std::ranges::find_if(changes, isMissing);
    return found == changes.end() ? nullptr : &*found;
  };
  auto const isLate = [&](Change const& change) { return !has(there, change); };
  auto const isUndone = [&](Change const& change) { return isLate(change) && !has(here, change); };
  Clock::time_point undoneSince = Clock::time_point::max();
  for (;;) {
    Clock::time_point const soon = std::min(deadline, Clock::now() + kTick);
    if (require(second, second.pumpUntil([&] { return !missing(isLate); }, soon))) return;
    Clock::time_point const turnsEnd = Clock::now() + kTick;
    while (attachment.connection()->pump() && Clock::now() < turnsEnd) {
    }
    Clock::time_point const now = Clock::now();
    Change const* const undone = missing(isUndone);
    undoneSince = undone ? std::min(undoneSince, now) : Clock::time_point::max();
    if (undone && now - undoneSince >= kUndonePatience) {
      throw CommandError(ExitCode::refused,
                         attachment.address().text() + ": " + undone->path + " was set to " +
                             inQuotes(undone->value) + " but has changed since" +
                             presentText(here, *undone) +
                             ": the process has refused it, or somebody else has written");
    }
    if (now >= deadline) break;
  }
  Change const* const late = missing(isLate);
  if (!late) return;
  timedOut(late->path + " has not become " + inQuotes(late->value) + presentText(there, *late));
}

// Of attributes that are set several times the last value counts.
[[nodiscard]] std::vector<Change> lastOfEach(std::vector<Change> const& changes) {
  std::vector<Change> last;
  for (Change const& change : changes) {
    if (!change.isEntry()) {
      std::erase_if(last, [&](Change const& each) { return each.path == change.path; });
    }
    last.push_back(change);
  }
  return last;
}

void printLines(std::vector<Zol::Ptr<Zol::Entity>> const& roots,
                std::vector<std::string> const& paths, std::ostream& out) {
  for (std::string const& line : treeLines(roots, paths)) out << line << '\n';
}

}  // namespace

int runGet(CommandLine const& line, std::ostream& out) {
  Trees const trees = openTrees(line, deadlineOf(line), line.words);
  Zol::ByName const tree = trees.byName();
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
  Clock::time_point const deadline = deadlineOf(line);
  Trees const trees = openTrees(line, deadline, pathsOf(changes));
  Zol::ByName const tree = trees.byName();
  if (trees.attachment) {
    for (Change const& change : changes) requireWritable(trees, change);
  }
  try {
    for (Change& change : changes) apply(tree, change);
  } catch (...) {
    if (trees.attachment) trees.attachment->abandon();
    throw;
  }
  if (trees.attachment) awaitSource(trees, lastOfEach(changes), deadline);
  if (line.json) {
    Json json = {{"changes", Json::array()}};
    for (Change const& change : changes) json["changes"].push_back(changeJson(change));
    if (line.tree) json["tree"] = treesJson(trees.roots, {});
    out << jsonText(json);
    return 0;
  }
  for (Change const& change : changes) out << changeLine(change) << '\n';
  if (line.tree) printLines(trees.roots, {}, out);
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
  line.json ? void(out << jsonText(treesJson(trees.roots, line.words)))
            : printLines(trees.roots, line.words, out);
  return 0;
}

int runComplete(CommandLine const& line, std::ostream& out) {
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
  if (line.words.empty()) {
    line.json ? out << jsonText(typesJson()) : out << typesText();
    return 0;
  }
  std::vector<Zol::ZolType const*> types;
  if (line.board.empty() && line.address.empty()) {
    for (std::string const& name : line.words) types.push_back(&findType(name));
  } else {
    Trees const trees = openTrees(line, deadlineOf(line), line.words);
    Zol::ByName const tree = trees.byName();
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
