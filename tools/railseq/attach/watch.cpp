// Follows a process, and prints.
#include "railseq/attach/watch.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ostream>
#include <utility>

#include "host/zol/path_steps.h"
#include "railseq/attach/follow.h"
#include "railseq/attach/output.h"
#include "railseq/attach/stop_signal.h"
#include "railseq/attach/tree_watcher.h"
#include "railseq/attach/trees.h"
#include "railseq/base/command_error.h"
#include "railseq/base/input_error.h"
#include "railseq/base/paths.h"
#include "railseq/base/wall_clock.h"
#include "railseq/base/wording.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

using End = Attachment::End;
using Zol::NboAttrLog::ConnectionState;

// A tree is printed again this long behind the last time, at the earliest.
constexpr std::chrono::milliseconds kTreePause{400};

// The path of what stands there, without references on the way.
[[nodiscard]] std::string ownPath(Zol::ByName const& tree, std::string const& path) {
  std::string_view holder;
  std::string_view whole;
  for (Zol::PathSteps steps(path, true); !steps.done();) {
    holder = steps.walked();
    if (!steps.next()) break;
    whole = steps.walked();
  }
  // An attribute with keys has no value of its own.
  if (!tree.contains(path)) (void)tree.at(path);
  if (holder.empty()) return path;
  Zol::Ptr<Zol::Entity> const entity = entityIn(tree.at(holder));
  return entity ? std::string(entity->uriPath().view()) + std::string(whole.substr(holder.size()))
                : path;
}

[[nodiscard]] bool isAtOrBelow(std::string const& path, std::string const& top) {
  if (!path.starts_with(top)) return false;
  return path.size() == top.size() || path[top.size()] == '/' || path[top.size()] == '[';
}

// What all three have in common: the signals, and a `Follow` that tells of losses.
class Follower {
 public:
  Follower(WatchOptions const& options, char const* name) : options_(options) {
    follow_.attachment = {.address = parseAddress(options.line.address),
                          .ownName = std::string("railseq ") + name,
                          .onState = [this](auto&, ConnectionState state) { stateIs(state); },
                          .stopFd = stop_.fd(),
                          .outputFd = STDOUT_FILENO,
                          .staleAfter = options.staleAfter};
    follow_.reconnects = options.reconnects;
    follow_.onLost = [this](std::string const& reason) {
      isLost_ = true;
      isStale_ = false;
      tell("lost", reason, reason + "; trying again");
      requireOutput();
    };
    follow_.onNoRoot = [this] {
      if (!std::exchange(hasNoted_, true)) {
        note(follow_.attachment.address.text() + ": the process has mounted no root yet; waiting");
      }
    };
    // An output that nobody reads any more is found out by the poll loop.
    follow_.isDone = [this] { return out_.error() != 0 || isDone(); };
  }
  Follower(Follower const&) = delete;
  Follower& operator=(Follower const&) = delete;

 protected:
  ~Follower() = default;

  [[nodiscard]] virtual bool isDone() = 0;
  // Whether what becomes of the connection stands in the output.
  [[nodiscard]] virtual bool printsEvents() const { return isJson(); }
  // Follows to the end.
  End follow() {
    End const end = runFollow(follow_);
    requireOutput();
    return end;
  }
  [[nodiscard]] WatchOptions const& options() const { return options_; }
  [[nodiscard]] bool isJson() const { return options_.line.json; }
  [[nodiscard]] Follow& settings() { return follow_; }
  // To be called with each `onSynced`.
  void attached(Attachment const& attachment) {
    if (isLost_) tell("attached", "", attachment.address().text() + ": attached again");
    isLost_ = false;
  }
  void print(std::string const& text) { out_.print(text); }
  void printJson(Json const& json) {
    Json line = {{"time", timeText()}};
    line.update(json);
    print(jsonLine(line));
  }

 private:
  void stateIs(ConnectionState state) {
    std::string const address = follow_.attachment.address.text();
    if (state == ConnectionState::stale) {
      isStale_ = true;
      tell("stale", "", address + ": no sign of life for some time");
    } else if (state != ConnectionState::closed && std::exchange(isStale_, false)) {
      tell("alive", "", address + ": signs of life again");
    }
  }
  void note(std::string const& line) { notes_.print("railseq: " + line + "\n"); }
  // Throws for what could not be written; that the reader has gone is no failure.
  void requireOutput() const {
    if (out_.error() != 0 && out_.error() != EPIPE) throw writeError(out_.error());
  }
  void tell(char const* event, std::string const& reason, std::string const& line) {
    if (!printsEvents()) return note(line);
    Json json = {{"event", event}};
    if (!reason.empty()) json["reason"] = reason;
    printJson(std::move(json));
  }

  WatchOptions const& options_;
  StopSignal stop_;
  Printer out_{STDOUT_FILENO, stop_.fd()};
  Printer notes_{STDERR_FILENO, stop_.fd()};
  Follow follow_;
  bool isLost_ = false;
  bool isStale_ = false;
  // That there is no root.
  bool hasNoted_ = false;
};

class Watch final : Follower {
 public:
  explicit Watch(WatchOptions const& options)
      : Follower(options, "watch"),
        watcher_([this](TreeChange const& change) { tell(change); }, options.line.json) {
    settings().paths = options.line.words;
    settings().onSynced = [this](Attachment& attachment) { attached(attachment); };
    settings().onRoots = [this](Attachment& attachment) { rootsAre(attachment.roots()); };
  }

  int run() {
    (void)follow();
    return 0;
  }

 private:
  void rootsAre(std::vector<Zol::Ptr<Zol::Entity>> const& roots) {
    if (!isBegun_) {
      Zol::ByName const tree(roots);
      for (std::string const& path : options().line.words) tops_.push_back(ownPath(tree, path));
    }
    watcher_.rootsAre(roots);
    if (!isBegun_ && options().tellsInitial) watcher_.tellAll();
    isBegun_ = true;
  }
  void tell(TreeChange const& change) {
    auto const isTop = [&](std::string const& top) { return isAtOrBelow(change.path, top); };
    if (!tops_.empty() && std::ranges::none_of(tops_, isTop)) return;
    isJson() ? printJson(changeJson(change)) : print(changeText(change) + "\n");
  }
  [[nodiscard]] bool isDone() override { return false; }

  std::vector<std::string> tops_;
  bool isBegun_ = false;
  TreeWatcher watcher_;
};

class TreeFollow final : Follower {
 public:
  explicit TreeFollow(WatchOptions const& options)
      : Follower(options, "tree"),
        watcher_([this](TreeChange const&) { hasChanged_ = true; }, false) {
    settings().paths = options.line.words;
    settings().onSynced = [this](Attachment& attachment) { attached(attachment); };
    settings().onRoots = [this](Attachment& attachment) {
      roots_ = attachment.roots();
      watcher_.rootsAre(roots_);
      if (!isBegun_) show();
      isBegun_ = true;
    };
  }

  int run() {
    (void)follow();
    return 0;
  }

 private:
  [[nodiscard]] bool isDone() override {
    if (hasChanged_ && Clock::now() - shownAt_ >= kTreePause) show();
    return false;
  }
  // What has changed may stand elsewhere.
  void show() {
    Json present = rendering();
    if (present != shown_) {
      if (isJson()) {
        printJson(present);
      } else {
        print((isBegun_ ? "--- " + timeText() + "\n" : "") + present.get<std::string>());
      }
      shown_ = std::move(present);
    }
    hasChanged_ = false;
    shownAt_ = Clock::now();
  }
  // An object, or a text. A path that leads nowhere any more, or not yet, is told in place of its
  // tree.
  [[nodiscard]] Json rendering() const {
    std::vector<std::string> const& paths = options().line.words;
    try {
      if (isJson()) return {{"tree", treesJson(roots_, paths)}};
      std::string text;
      for (std::string const& line : treeLines(roots_, paths)) text += line + "\n";
      return text;
    } catch (Zol::RangeException const& error) {
      if (!isBegun_) throw;
      if (isJson()) return {{"error", error.what()}};
      return error.what() + std::string("\n");
    }
  }

  std::vector<Zol::Ptr<Zol::Entity>> roots_;
  bool isBegun_ = false;
  bool hasChanged_ = false;
  // Null: nothing.
  Json shown_;
  Clock::time_point shownAt_;
  TreeWatcher watcher_;
};

class Wait final : Follower {
 public:
  explicit Wait(WatchOptions const& options) : Follower(options, "wait") {
    settings().attachment.outputFd = -1;
    std::string const& word = options.line.words.front();
    std::size_t const mark = findAssignment(word);
    if (mark == std::string::npos || mark == 0) {
      throw InputError("wait", "found " + inQuotes(word) + ", expected PATH=VALUE");
    }
    path_ = word.substr(0, mark);
    wanted_ = word.substr(mark + 1);
    if (options.line.hasTimeout) settings().deadline = deadlineOf(options.line);
    settings().onSynced = [this](Attachment& attachment) {
      attached(attachment);
      attachment_ = &attachment;
    };
  }

  int run(std::ostream& out) {
    End const end = follow();
    if (end == End::done) {
      if (isJson()) out << jsonText({{path_, found_}});
      return 0;
    }
    if (end == End::stopped) throw CommandError(ExitCode::refused, path_ + ": ended by a signal");
    throw CommandError(ExitCode::timedOut, path_ + ": timed out; " +
                                               (last_.empty() ? "nothing was heard of it" : last_));
  }

 private:
  // The value alone is its output.
  [[nodiscard]] bool printsEvents() const override { return false; }
  [[nodiscard]] bool isDone() override {
    Zol::ByName const tree(attachment_->roots());
    Zol::Ptr<Zol::GenericIf> value;
    try {
      value = tree.at(path_);
    } catch (Zol::RangeException const& error) {
      requirePossible(tree);
      last_ = error.what();
      return false;
    }
    last_ = "its last value is " + quotedText(value);
    if (!isWanted(value)) return false;
    found_ = valueJson(value);
    return true;
  }
  // Compared by the text that the type gives the value: 11.50 is 11.5, and 'False' is false. What
  // is no value of the type can never come: told at once.
  [[nodiscard]] bool isWanted(Zol::Ptr<Zol::GenericIf> const& value) const {
    Zol::String8 const text = Zol::plainText(value.get());
    if (shownText(value) == wanted_ || text.view() == wanted_) return true;
    if (!value || value->type()->isEntity()) return false;
    try {
      return Zol::plainText(Zol::fromPlainText(*value->type(), wanted_).get()) == text;
    } catch (Zol::Exception const& error) {
      Zol::throwRangeException(path_ + ": " + error.what());
    }
  }
  // Throws for a step that what is there in front of it does not have. A root, a member or an
  // entity that is not there may still come.
  void requirePossible(Zol::ByName const& tree) const {
    for (Zol::PathSteps steps(path_, true); !steps.done();) {
      bool const isRoot = steps.walked().empty();
      bool const isWellFormed = steps.next().has_value();
      std::string_view const here = isWellFormed ? steps.walked() : path_;
      try {
        if (!tree.contains(here)) return;
        (void)tree.at(here);
      } catch (Zol::RangeException const&) {
        if (isRoot && isWellFormed) return;
        throw;
      }
    }
  }

  std::string path_;
  std::string wanted_;
  std::string last_;
  Json found_;
  Attachment* attachment_ = nullptr;
};

}  // namespace

int runWatch(WatchOptions const& options) { return Watch(options).run(); }

int runTreeFollow(WatchOptions const& options) { return TreeFollow(options).run(); }

int runWait(WatchOptions const& options, std::ostream& out) { return Wait(options).run(out); }

}  // namespace RailSeq
