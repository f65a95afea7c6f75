// Plays a recording to a time, or between two.
#include "railseq/recording/replay.h"

#include <algorithm>
#include <limits>
#include <ostream>

#include "railseq/attach/tree_watcher.h"
#include "railseq/attach/trees.h"
#include "railseq/base/command_error.h"
#include "railseq/base/paths.h"
#include "railseq/recording/recording_player.h"
#include "railseq/recording/recording_time.h"
#include "railseq/recording/tree_difference.h"

namespace RailSeq {

namespace {

// Whether `path` is `at`, or below it.
[[nodiscard]] bool isAtOrBelow(std::string_view path, std::string_view at) {
  if (!path.starts_with(at)) return false;
  std::string_view const rest = path.substr(at.size());
  return rest.empty() || rest.front() == '/' || rest.front() == '[';
}

constexpr std::uint64_t kEnd = std::numeric_limits<std::uint64_t>::max();

using Roots = std::vector<Zol::Ptr<Zol::Entity>>;
using PlayStep = std::function<void(Record const& record)>;

[[nodiscard]] std::vector<std::string> pathsOf(Roots const& roots) {
  std::vector<std::string> paths;
  for (auto const& root : roots) paths.push_back(rootPath(root->name().view()));
  return paths;
}

// A recording as it is played.
class Replay {
 public:
  Replay(ReplayLine const& line, std::ostream& out, std::ostream& notes)
      : line_(line), out_(out), notes_(notes), reader_(line.file) {}

  [[nodiscard]] std::uint64_t timeOf(std::string const& text, std::uint64_t otherwise) const {
    return text.empty() ? otherwise : parseTime(text, reader_.startedAt());
  }

  // Plays what there is up to the time, that included.
  void playTo(RecordingPlayer& player, std::uint64_t time, PlayStep const& step) {
    for (;;) {
      if (!next_) next_ = reader_.next();
      if (!next_ || next_->time > time) break;
      step(*next_);
      next_.reset();
    }
    if (!next_ && time != kEnd && time > reader_.time()) {
      note("the recording ends at " + offsetText(reader_.time()));
    }
    if (std::string const text = player.note(); !text.empty()) {
      note("at " + offsetText(next_ ? time : reader_.time()) + ": " + text);
    }
  }
  void playTo(RecordingPlayer& player, std::uint64_t time) {
    playTo(player, time, [&player](Record const& record) { player.play(record); });
  }

  void note(std::string const& text) {
    if (noted_ != text) notes_ << "railseq: note: " << text << '\n';
    noted_ = text;
  }

  // What is to be said at the end; gives the exit code.
  [[nodiscard]] int finish(RecordingPlayer const& player) {
    if (player.refused() + player.unknown() > 0) {
      note(counted(player.refused(), "message") + " refused, " + std::to_string(player.unknown()) +
           " unknown to this program");
    }
    if (reader_.damage().empty()) {
      if (!next_ && !reader_.hasEnd())
        note("the recorder was stopped before it could end the file");
      return 0;
    }
    notes_ << "railseq: " << reader_.damage() << '\n';
    return static_cast<int>(ExitCode::refused);
  }

  [[nodiscard]] int showTree() {
    RecordingPlayer player;
    playTo(player, timeOf(line_.at, kEnd));
    if (line_.json) {
      out_ << jsonText(treesJson(player.roots(), line_.paths));
    } else {
      for (std::string const& text : treeLines(player.roots(), line_.paths)) out_ << text << '\n';
    }
    return finish(player);
  }

  [[nodiscard]] int showDifference() {
    std::uint64_t const from = timeOf(line_.from, 0);
    std::uint64_t const to = timeOf(line_.to, kEnd);
    requireOrder(from, to);
    RecordingPlayer player;
    playTo(player, from);
    Snapshot const before = snapshot(player);
    playTo(player, to);
    Snapshot const after = snapshot(player);
    requirePaths(player, {&before, &after});
    Json json = Json::array();
    for (TreeChange const& change : differences(before, after)) {
      line_.json ? json.push_back(changeJson(change)) : void(out_ << changeText(change) << '\n');
    }
    if (line_.json) out_ << jsonText(json);
    return finish(player);
  }

  [[nodiscard]] int showChanges();

 private:
  class Changes;

  [[nodiscard]] Snapshot snapshot(RecordingPlayer const& player) const {
    if (line_.paths.empty()) return snapshotOf(player.roots());
    Snapshot all;
    Zol::ByName const tree(player.roots());
    for (std::string const& path : line_.paths) all.merge(snapshotAt(tree, path));
    return all;
  }

  static void requireOrder(std::uint64_t from, std::uint64_t to) {
    if (from > to) {
      throw InputError("--from", offsetText(from) + " is later than --to, " + offsetText(to));
    }
  }

  // Refuses a path that has never been there.
  void requirePaths(RecordingPlayer const& player, std::vector<Snapshot const*> const& seen) const {
    for (std::string const& path : line_.paths) {
      auto const has = [&path](Snapshot const* snapshot) {
        return std::ranges::any_of(*snapshot,
                                   [&path](auto const& at) { return isAtOrBelow(at.first, path); });
      };
      if (std::ranges::none_of(seen, has)) {
        Zol::ByName(player.roots()).walk(path, [](auto const&, auto const&) {});
      }
    }
  }

  ReplayLine const& line_;
  std::ostream& out_;
  std::ostream& notes_;
  RecordingReader reader_;
  // Read, and later than what was asked for so far.
  std::optional<Record> next_;
  std::string noted_;
};

// Tells each change as it happens, once the trees have been there for the first time.
class Replay::Changes {
 public:
  Changes(Replay& replay, std::uint64_t from)
      : replay_(replay),
        from_(from),
        player_([this](RecordingPlayer::Frame const&, std::function<void()> const& apply) {
          apply();
          observe();
        }),
        watcher_([this](TreeChange const& change) { tell(change); }, replay.line_.json) {}

  [[nodiscard]] RecordingPlayer& player() { return player_; }

  void play(Record const& record) {
    time_ = record.time;
    if (record.kind == RecordKind::lost) event("lost", "reason", record.bytes);
    if (record.kind == RecordKind::ended) event("ended", "reason", record.bytes);
    player_.play(record);
    observe();
    if (record.kind == RecordKind::connected) event("connected", "address", record.bytes);
  }

 private:
  void observe() {
    if (player_.isComplete() == isComplete_) return;
    isComplete_ = player_.isComplete();
    if (!isComplete_) return;
    std::string names;
    for (std::string const& path : pathsOf(player_.roots())) {
      names += (names.empty() ? "" : ", ") + path;
    }
    event("complete", "roots", names);
    watcher_.rootsAre(player_.roots());
  }

  void tell(TreeChange const& change) {
    auto const isWanted = [&change](std::string const& wanted) {
      return isAtOrBelow(change.path, wanted) || isAtOrBelow(wanted, change.path);
    };
    auto const& paths = replay_.line_.paths;
    if (time_ < from_ || (!paths.empty() && std::ranges::none_of(paths, isWanted))) return;
    if (replay_.line_.json) return write(changeJson(change));
    replay_.out_ << offsetText(time_) << "  " << changeText(change) << '\n';
  }

  void event(char const* what, char const* name, std::string const& text) {
    if (time_ < from_) return;
    if (replay_.line_.json) return write({{"event", what}, {name, text}});
    replay_.out_ << offsetText(time_) << "  -- " << what << (text.empty() ? "" : ": ") << text
                 << '\n';
  }

  void write(Json const& json) {
    Json line = timeJson(replay_.reader_.startedAt(), time_);
    line.update(json);
    replay_.out_ << jsonLine(line);
  }

  Replay& replay_;
  std::uint64_t from_;
  std::uint64_t time_ = 0;
  bool isComplete_ = false;
  RecordingPlayer player_;
  TreeWatcher watcher_;
};

int Replay::showChanges() {
  std::uint64_t const from = timeOf(line_.from, 0);
  std::uint64_t const to = timeOf(line_.to, kEnd);
  requireOrder(from, to);
  if (!line_.json) out_ << "recording begun " << clockText(reader_.startedAt()) << '\n';
  Changes changes(*this, from);
  playTo(changes.player(), to, [&changes](Record const& record) { changes.play(record); });
  return finish(changes.player());
}

}  // namespace

int runReplay(ReplayLine const& line, std::ostream& out, std::ostream& notes) {
  bool const hasSpan = !line.from.empty() || !line.to.empty();
  if (!line.at.empty() && (hasSpan || line.changes)) {
    throw InputError("--at", "goes without --from, --to and --changes");
  }
  Replay replay(line, out, notes);
  return line.changes ? replay.showChanges()
         : hasSpan    ? replay.showDifference()
                      : replay.showTree();
}

}  // namespace RailSeq
