// Follows a process, and prints.
#include "railseq/attach/watch.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <sstream>

#include "host/zol/path_steps.h"
#include "railseq/attach/follow.h"
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

// One line, at once. An output that nobody reads is found out by the poll loop.
void printLine(std::string const& line) { std::cout << line << std::endl; }

void note(std::string const& line) { std::cerr << "railseq: " << line << std::endl; }

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
                          .outputFd = STDOUT_FILENO};
    follow_.reconnects = options.reconnects;
    follow_.onLost = [this](std::string const& reason) {
      isLost_ = true;
      tell("lost", reason, reason + "; trying again");
    };
  }
  Follower(Follower const&) = delete;
  Follower& operator=(Follower const&) = delete;

 protected:
  ~Follower() = default;

  [[nodiscard]] WatchOptions const& options() const { return options_; }
  [[nodiscard]] bool isJson() const { return options_.line.json; }
  [[nodiscard]] Follow& follow() { return follow_; }
  // To be called with each `onSynced`.
  void attached(Attachment const& attachment) {
    if (isLost_) tell("attached", "", attachment.address().text() + ": attached again");
    isLost_ = false;
  }
  static void printJson(Json json) {
    Json line = {{"time", timeText()}};
    line.update(json);
    printLine(line.dump(-1, ' ', false, Json::error_handler_t::replace));
  }

 private:
  void stateIs(ConnectionState state) {
    if (state == ConnectionState::stale) {
      tell("stale", "", follow_.attachment.address.text() + ": no sign of life for some time");
    }
  }
  void tell(char const* event, std::string const& reason, std::string const& line) const {
    if (!isJson()) return note(line);
    Json json = {{"event", event}};
    if (!reason.empty()) json["reason"] = reason;
    printJson(std::move(json));
  }

  WatchOptions const& options_;
  StopSignal stop_;
  Follow follow_;
  bool isLost_ = false;
};

class Watch final : Follower {
 public:
  explicit Watch(WatchOptions const& options)
      : Follower(options, "watch"),
        watcher_([this](TreeChange const& change) { print(change); }, options.line.json) {
    follow().onSynced = [this](Attachment& attachment) { synced(attachment); };
    follow().isDone = [] { return false; };
  }

  int run() {
    (void)runFollow(follow());
    return 0;
  }

 private:
  void synced(Attachment& attachment) {
    attached(attachment);
    if (!isBegun_) {
      Zol::ByName const tree(attachment.roots());
      for (std::string const& path : options().line.words) tops_.push_back(ownPath(tree, path));
    }
    watcher_.rootsAre(attachment.roots());
    if (!isBegun_ && options().tellsInitial) watcher_.tellAll();
    isBegun_ = true;
  }
  void print(TreeChange const& change) const {
    auto const isTop = [&](std::string const& top) { return isAtOrBelow(change.path, top); };
    if (!tops_.empty() && std::ranges::none_of(tops_, isTop)) return;
    isJson() ? printJson(changeJson(change)) : printLine(changeText(change));
  }

  std::vector<std::string> tops_;
  bool isBegun_ = false;
  TreeWatcher watcher_;
};

class TreeFollow final : Follower {
 public:
  explicit TreeFollow(WatchOptions const& options)
      : Follower(options, "tree"),
        watcher_([this](TreeChange const&) { hasChanged_ = true; }, false) {
    follow().onSynced = [this](Attachment& attachment) {
      attached(attachment);
      roots_ = attachment.roots();
      watcher_.rootsAre(roots_);
      if (!isBegun_) print();
      isBegun_ = true;
    };
    follow().isDone = [this] {
      if (hasChanged_ && Clock::now() - printed_ >= kTreePause) print();
      return false;
    };
  }

  int run() {
    (void)runFollow(follow());
    return 0;
  }

 private:
  // A path that leads nowhere any more, or not yet, is told in place of its tree.
  void print() {
    std::vector<std::string> const& paths = options().line.words;
    if (isJson()) {
      Json json = Json::object();
      try {
        json["tree"] = treesJson(roots_, paths);
      } catch (Zol::RangeException const& error) {
        if (!isBegun_) throw;
        json["error"] = std::string(error.what());
      }
      printJson(std::move(json));
    } else {
      std::ostringstream out;
      if (isBegun_) out << "--- " << timeText() << '\n';
      try {
        for (std::string const& line : treeLines(roots_, paths)) out << line << '\n';
      } catch (Zol::RangeException const& error) {
        if (!isBegun_) throw;
        out << error.what() << '\n';
      }
      std::cout << out.str() << std::flush;
    }
    hasChanged_ = false;
    printed_ = Clock::now();
  }

  std::vector<Zol::Ptr<Zol::Entity>> roots_;
  bool isBegun_ = false;
  bool hasChanged_ = false;
  Clock::time_point printed_;
  TreeWatcher watcher_;
};

class Wait final : Follower {
 public:
  explicit Wait(WatchOptions const& options) : Follower(options, "wait") {
    follow().attachment.outputFd = -1;
    std::string const& word = options.line.words.front();
    std::size_t const mark = findAssignment(word);
    if (mark == std::string::npos) {
      throw InputError("wait", "found " + inQuotes(word) + ", expected PATH=VALUE");
    }
    path_ = word.substr(0, mark);
    wanted_ = word.substr(mark + 1);
    if (options.line.timeout >= 0) follow().deadline = deadlineOf(options.line);
    follow().onSynced = [this](Attachment& attachment) {
      attached(attachment);
      attachment_ = &attachment;
    };
    follow().isDone = [this] { return hasValue(); };
  }

  int run() {
    End const end = runFollow(follow());
    if (end == End::done) return 0;
    if (end == End::stopped) throw CommandError(ExitCode::refused, path_ + ": ended by a signal");
    throw CommandError(ExitCode::timedOut, path_ + ": timed out; " +
                                               (last_.empty() ? "nothing was heard of it" : last_));
  }

 private:
  // Compared by the text that the type gives the value: 11.50 is 11.5, and 'False' is false.
  [[nodiscard]] bool hasValue() {
    Zol::ByName const tree(attachment_->roots());
    Zol::Ptr<Zol::GenericIf> value;
    try {
      value = tree.at(path_);
    } catch (Zol::RangeException const& error) {
      last_ = error.what();
      return false;
    }
    last_ = "its last value is " + quotedText(value);
    if (shownText(value) == wanted_ || Zol::plainText(value.get()).view() == wanted_) return true;
    if (!value || value->type()->isEntity()) return false;
    // What is no value of the type can never come: told at once.
    return Zol::plainText(Zol::fromPlainText(*value->type(), wanted_).get()) ==
           Zol::plainText(value.get());
  }

  std::string path_;
  std::string wanted_;
  std::string last_;
  Attachment* attachment_ = nullptr;
};

}  // namespace

int runWatch(WatchOptions const& options) { return Watch(options).run(); }

int runTreeFollow(WatchOptions const& options) { return TreeFollow(options).run(); }

int runWait(WatchOptions const& options) { return Wait(options).run(); }

}  // namespace RailSeq
