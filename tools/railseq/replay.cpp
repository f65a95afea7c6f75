// Plays a recording to a time, or between two.
#include "railseq/replay.h"

#include <algorithm>
#include <limits>
#include <ostream>

#include "railseq/command_error.h"
#include "railseq/log_message.h"
#include "railseq/paths.h"
#include "railseq/recording_player.h"
#include "railseq/recording_time.h"
#include "railseq/tree_difference.h"
#include "railseq/tree_json.h"
#include "railseq/tree_text.h"

namespace RailSeq {

namespace {

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
      note("the recording ends at " + timeText(reader_.time()));
    }
    if (std::string const text = player.note(); !text.empty()) {
      note("at " + timeText(next_ ? time : reader_.time()) + ": " + text);
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
    Zol::ByName const tree(player.roots());
    std::vector<std::string> const paths =
        line_.paths.empty() ? pathsOf(player.roots()) : line_.paths;
    if (line_.json) {
      out_ << jsonText(treeJson(player.roots(), tree));
    } else {
      std::vector<std::string> lines;
      for (std::string const& path : paths)
        std::ranges::copy(treeLines(tree, path), std::back_inserter(lines));
      for (std::string const& text : lines) out_ << text << '\n';
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
    for (Difference const& difference : differences(before, after)) {
      line_.json ? json.push_back(difference.json()) : void(out_ << difference.line() << '\n');
    }
    if (line_.json) out_ << jsonText(json);
    return finish(player);
  }

  [[nodiscard]] int showChanges();

 private:
  class Changes;

  // A board file again, if the roots are those of a board and no path is given.
  [[nodiscard]] Json treeJson(Roots const& roots, Zol::ByName const& tree) const {
    Board board;
    for (auto const& root : roots) {
      if (auto const config = Zol::ptrCast<Config>(root); config && !board.config) {
        board.config = config;
      } else if (auto const status = Zol::ptrCast<Status>(root); status && !board.status) {
        board.status = status;
      }
    }
    bool const isBoard = board.config && board.roots().size() == roots.size();
    if (line_.paths.empty() && isBoard) return boardJson(board);
    Json json = Json::object();
    for (std::string const& path : line_.paths.empty() ? pathsOf(roots) : line_.paths) {
      json[path] = jsonAt(tree, path);
    }
    return json;
  }

  [[nodiscard]] Snapshot snapshot(RecordingPlayer const& player) const {
    if (line_.paths.empty()) return snapshotOf(player.roots());
    Snapshot all;
    Zol::ByName const tree(player.roots());
    for (std::string const& path : line_.paths) all.merge(snapshotAt(tree, path));
    return all;
  }

  static void requireOrder(std::uint64_t from, std::uint64_t to) {
    if (from > to) {
      throw InputError("--from", timeText(from) + " is later than --to, " + timeText(to));
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

// Tells each change as it happens. While the source sends what it has to begin with, nothing is
// told; what differs afterwards from what was there before is told then.
class Replay::Changes {
 public:
  Changes(Replay& replay, std::uint64_t from)
      : replay_(replay),
        from_(from),
        player_([this](RecordingPlayer::Frame const& frame, std::function<void()> const& apply) {
          frameArrived(frame, apply);
        }) {}

  [[nodiscard]] RecordingPlayer& player() { return player_; }

  void play(Record const& record) {
    time_ = record.time;
    if (record.kind == RecordKind::connected) reader_ = {};
    player_.play(record);
    observe();
    if (record.kind == RecordKind::connected) event("connected", record.bytes);
    if (record.kind == RecordKind::lost) event("lost", record.bytes);
    if (record.kind == RecordKind::ended) event("ended", record.bytes);
  }

 private:
  void frameArrived(RecordingPlayer::Frame const& frame, std::function<void()> const& apply) {
    if (!frame.fromSource) return;
    LogMessage const message = reader_.read(frame.bytes, player_.connection());
    if (!player_.isComplete() || message.target.empty()) {
      apply();
      return observe();
    }
    Snapshot const before = snapshotAt(Zol::ByName(player_.roots()), message.target);
    apply();
    tell(before, snapshotAt(Zol::ByName(player_.roots()), message.target));
    observe();
  }

  void observe() {
    if (player_.isComplete() == isComplete_) return;
    isComplete_ = player_.isComplete();
    if (!isComplete_) {
      before_ = snapshotOf(player_.roots());
      return;
    }
    std::string names;
    for (std::string const& path : pathsOf(player_.roots())) {
      names += (names.empty() ? "" : ", ") + path;
    }
    event("complete", names);
    if (isAgain_) tell(before_, snapshotOf(player_.roots()));
    isAgain_ = true;
    before_.clear();
  }

  void tell(Snapshot const& before, Snapshot const& after) {
    if (time_ < from_) return;
    for (Difference const& difference : differences(before, after)) {
      if (!concerns(difference.path)) continue;
      if (replay_.line_.json) {
        Json json = timeJson();
        json.update(difference.json());
        write(json);
      } else {
        replay_.out_ << timeText(time_) << "  " << difference.line() << '\n';
      }
    }
  }

  void event(char const* what, std::string const& about) {
    if (time_ < from_) return;
    if (replay_.line_.json) {
      Json json = timeJson();
      json["event"] = what;
      json["about"] = about;
      return write(json);
    }
    replay_.out_ << timeText(time_) << "  -- " << what << (about.empty() ? "" : ": ") << about
                 << '\n';
  }

  [[nodiscard]] bool concerns(std::string const& path) const {
    auto const& paths = replay_.line_.paths;
    return paths.empty() || std::ranges::any_of(paths, [&path](std::string const& wanted) {
             return isAtOrBelow(path, wanted) || isAtOrBelow(wanted, path);
           });
  }

  [[nodiscard]] Json timeJson() const {
    return {{"time", static_cast<double>(time_) / 1e9},
            {"clock", clockText(replay_.reader_.startedAt() + time_)}};
  }
  void write(Json const& json) { replay_.out_ << jsonLine(json); }

  Replay& replay_;
  std::uint64_t from_;
  std::uint64_t time_ = 0;
  LogMessageReader reader_;
  bool isComplete_ = false;
  bool isAgain_ = false;
  // The trees when they were complete the last time.
  Snapshot before_;
  RecordingPlayer player_;
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
