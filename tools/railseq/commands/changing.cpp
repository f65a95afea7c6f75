// The commands that change trees: they read changes, make them, and see that a process has them.
#include <algorithm>
#include <ostream>

#include "railseq/attach/trees.h"
#include "railseq/base/command_error.h"
#include "railseq/base/input_error.h"
#include "railseq/base/paths.h"
#include "railseq/commands/change.h"
#include "railseq/commands/commands.h"
#include "railseq/values/controllers.h"

namespace RailSeq {

namespace {

using Changes = std::vector<Change>;

constexpr std::chrono::milliseconds kTick{50};
// A value from before the change may come back for a moment, until the process has got the change.
constexpr std::chrono::milliseconds kUndonePatience{300};

[[nodiscard]] std::vector<std::string> pathsOf(Changes const& changes) {
  std::vector<std::string> paths;
  for (Change const& change : changes) paths.push_back(change.path);
  return paths;
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

// What was changed is sent; then a second replica must get it from the process, which says nothing
// about what it has taken. What has come back in place of the change, and stays, is the answer too.
void awaitSource(Trees const& trees, Changes const& changes, Clock::time_point deadline) {
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
  auto const isLate = [&](Change const& change) { return !change.isIn(there); };
  auto const isUndone = [&](Change const& change) { return isLate(change) && !change.isIn(here); };
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
                         attachment.address().text() + ": " + undone->undone(here) +
                             ": the process has refused it, or somebody else has written");
    }
    if (now >= deadline) break;
  }
  if (Change const* const late = missing(isLate)) timedOut(late->missing(there));
}

// Of attributes that are set several times the last value counts.
[[nodiscard]] Changes lastOfEach(Changes const& changes) {
  Changes last;
  for (Change const& change : changes) {
    if (!change.isEntry()) {
      std::erase_if(last, [&](Change const& each) { return each.path == change.path; });
    }
    last.push_back(change);
  }
  return last;
}

// To take out what stands at an attribute with keys is to take out each member.
[[nodiscard]] Changes expanded(Change const& change, Zol::ByName const& tree) {
  if (change.kind != Change::Kind::erase) return {change};
  AttributePlace const place = attributeAt(tree, change.path);
  if (!place.attr || !place.attr->keyType() || place.hasKey) return {change};
  Changes changes;
  for (std::string const& member : memberPaths(tree, change.path)) {
    changes.emplace_back(Change::Kind::erase, member);
  }
  return changes.empty() ? Changes{change} : changes;
}

[[nodiscard]] int runChanges(CommandLine const& line, Changes const& wanted, std::ostream& out) {
  Clock::time_point const deadline = deadlineOf(line);
  Trees const trees = openTrees(line, deadline, pathsOf(wanted));
  Zol::ByName const tree = trees.byName();
  if (trees.attachment) {
    for (Change const& change : wanted) requireWritable(trees, change);
  }
  Neighbours const neighbours(trees.roots);
  Changes changes;
  try {
    for (Change const& each : wanted) {
      for (Change change : expanded(each, tree)) {
        change.apply(tree, neighbours, line.json);
        changes.push_back(std::move(change));
      }
    }
  } catch (...) {
    if (trees.attachment) trees.attachment->abandon();
    throw;
  }
  if (trees.attachment) awaitSource(trees, lastOfEach(changes), deadline);
  if (line.json) {
    Json json = {{"changes", Json::array()}};
    for (Change const& change : changes) json["changes"].push_back(change.json());
    if (line.tree) json["tree"] = treesJson(trees.roots, {});
    out << jsonText(json);
    return 0;
  }
  for (Change const& change : changes) out << change.line() << '\n';
  if (!line.tree) return 0;
  for (std::string const& text : treeLines(trees.roots, {})) out << text << '\n';
  return 0;
}

}  // namespace

int runSet(CommandLine const& line, std::ostream& out) {
  Changes changes;
  for (std::string const& word : line.words) {
    std::size_t const mark = findAssignment(word);
    if (mark == std::string::npos) {
      throw InputError("set", "found " + inQuotes(word) + ", expected PATH=VALUE");
    }
    changes.emplace_back(Change::Kind::write, word.substr(0, mark), word.substr(mark + 1));
  }
  return runChanges(line, changes, out);
}

int runMake(CommandLine const& line, std::ostream& out) {
  Changes changes;
  for (std::string const& word : line.words) {
    std::size_t const mark = findAssignment(word);
    if (mark == std::string::npos) {
      changes.emplace_back(Change::Kind::make, word);
      continue;
    }
    if (changes.empty()) {
      throw InputError("make", "found " + inQuotes(word) + ", expected a PATH in front of it");
    }
    std::string const name = word.substr(0, mark);
    Change::Arguments& arguments = changes.back().arguments;
    if (std::ranges::find(arguments, name, &Zol::ByName::Argument::name) != arguments.end()) {
      throw InputError("make", "found " + inQuotes(name) + " again, expected each NAME once");
    }
    arguments.push_back({name, word.substr(mark + 1)});
  }
  return runChanges(line, changes, out);
}

int runErase(CommandLine const& line, std::ostream& out) {
  Changes changes;
  for (std::string const& word : line.words) changes.emplace_back(Change::Kind::erase, word);
  return runChanges(line, changes, out);
}

}  // namespace RailSeq
