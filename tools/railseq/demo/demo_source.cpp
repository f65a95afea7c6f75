// The source's end: it owns the tree, changes it, and compares what the mirror reports with what it
// did.
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <functional>
#include <iostream>
#include <thread>
#include <vector>

#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/demo/demo_ends.h"
#include "railseq/demo/report_pipe.h"
#include "railseq/values/attribute_values.h"
#include "railseq/values/controllers.h"
#include "railseq/values/tree_text.h"

namespace RailSeq {

namespace {

using Clock = std::chrono::steady_clock;
using Zol::NboAttrLog::Connection;
using Zol::NboAttrLog::MountOptions;

// So long the mirror may be silent while something is awaited of it.
constexpr std::chrono::seconds kPatience{10};
std::string const kText = "set by the demo";

void say(std::string const& line) { std::cout << "source: " << line << std::endl; }

// Another value than the one given, as a plain text.
[[nodiscard]] std::string otherThan(Zol::Ptr<Zol::GenericIf> const& value) {
  std::string const text(Zol::plainText(value.get()).view());
  switch (kindOfValue(*value->type())) {
    case ValueKind::boolean:
      return text == "true" ? "false" : "true";
    case ValueKind::enumeration: {
      std::vector<std::string> const names = attributeNames(*value->type());
      return names.front() == text ? names.back() : names.front();
    }
    case ValueKind::wholeNumber:
      return std::to_string(static_cast<std::uint32_t>(std::stoul(text) + 1));
    default:
      return text == kText ? std::string() : kText;
  }
}

// Once a step has failed, the steps behind it do nothing.
class Source {
 public:
  Source(Board const& board, MirrorProcess const& mirror, std::chrono::milliseconds pause)
      : roots_(board.roots()),
        tree_(board.tree()),
        root_(rootPath(board.config->name().view())),
        mirror_(mirror.pid),
        pause_(pause),
        connection_(Connection::overFd(mirror.logFd, {.ownName = "source", .peerName = "mirror"})),
        report_(mirror.reportFd) {}

  int run();

 private:
  void catchUp();
  void makeChanges();
  void showTrees();
  void change(std::string const& controller, std::string_view attribute);
  void add(std::string const& controller);
  void remove(std::string const& controller);
  void did(std::string const& line);
  void end();
  void compare();

  void await(std::string const& what, std::function<bool()> const& condition);
  void takeReports();
  void waitFor(Clock::time_point deadline) const;
  void fail(std::string const& why) {
    if (failure_.empty()) failure_ = why;
  }
  [[nodiscard]] bool hasFailed() const { return !failure_.empty(); }

  std::vector<Zol::Ptr<Zol::Entity>> roots_;
  Zol::ByName tree_;
  std::string root_;
  pid_t mirror_;
  std::chrono::milliseconds pause_;
  Zol::Ptr<Connection> connection_;
  ReportReader report_;
  bool mirrorIsReady_ = false;
  std::string mirrorDigest_;
  std::vector<std::string> did_;
  std::vector<std::string> heard_;
  std::string failure_;
};

int Source::run() {
  say("process " + std::to_string(::getpid()) + " owns the tree " +
      inQuotes(roots_.front()->name().view()) + " with " +
      counted(controllerPaths(tree_, root_).size(), "controller"));
  showTrees();
  say("process " + std::to_string(mirror_) + " is its mirror");
  catchUp();
  makeChanges();
  end();
  compare();
  if (hasFailed()) {
    std::cout << "demo: failed: " << failure_ << std::endl;
    return 1;
  }
  std::cout << "demo: the mirror heard all " << did_.size()
            << " changes and its digest equals the source's" << std::endl;
  return 0;
}

void Source::catchUp() {
  for (Zol::Ptr<Zol::Entity> const& root : roots_) connection_->mountIs(root, MountOptions{});
  await("the mirror's first catch-up", [this] { return mirrorIsReady_; });
  if (!hasFailed()) say("the mirror has caught up; changes follow");
}

void Source::makeChanges() {
  std::vector<std::string> const controllers = controllerPaths(tree_, root_);
  std::string added = memberPath(attributePath(root_, kCollections.front()), "added-by-demo");
  if (!controllers.empty()) {
    std::string const& first = controllers.front();
    change(first, "pollingEnabled");
    change(first, "reloadCauseSortKey");
    change(first, "operationalMode");
    change(first, "description");
    for (std::string_view const collection : kCollections) {
      std::string const members = attributePath(root_, collection);
      if (first.starts_with(members + "[")) added = memberPath(members, "added-by-demo");
    }
  }
  while (tree_.contains(added)) added.insert(added.size() - 1, "+");
  add(added);
  change(added, "location");
  remove(controllers.size() > 1 ? controllers.back() : added);
}

void Source::showTrees() {
  for (Zol::Ptr<Zol::Entity> const& root : roots_) {
    for (std::string const& line : treeLines(tree_, rootPath(root->name().view()))) say(line);
  }
}

void Source::change(std::string const& controller, std::string_view attribute) {
  if (hasFailed()) return;
  std::string const path = attributePath(controller, attribute);
  tree_.write(path, otherThan(tree_.at(path)));
  did(attributeChange(tree_, controller, attribute));
}

void Source::add(std::string const& controller) {
  if (hasFailed()) return;
  tree_.make(controller, {{"customerName", "added by the demo"}});
  did(memberChange(tree_, controller));
}

void Source::remove(std::string const& controller) {
  if (hasFailed()) return;
  // What refers to a controller would keep it, though it stands nowhere any more.
  std::string const name(entityIn(tree_.at(controller))->name().view());
  std::string const entry = memberPath(attributePath(root_, "controller"), name);
  if (tree_.contains(entry)) tree_.erase(entry);
  tree_.erase(controller);
  did(memberChange(tree_, controller));
}

// The pause comes behind the change, when all is said, so that the two lines stand together.
void Source::did(std::string const& line) {
  say(line);
  did_.push_back(line);
  await("the mirror to hear of this change", [this] { return heard_.size() >= did_.size(); });
  Clock::time_point const resume = Clock::now() + pause_;
  while (!hasFailed() && Clock::now() < resume) {
    while (connection_->pump()) {
    }
    takeReports();
    // Without the mirror nothing could end the wait early.
    if (!connection_->isOpen()) return;
    waitFor(resume);
  }
}

void Source::await(std::string const& what, std::function<bool()> const& condition) {
  Clock::time_point const deadline = Clock::now() + kPatience;
  while (!hasFailed()) {
    while (connection_->pump()) {
    }
    takeReports();
    if (condition() && !connection_->wantsWrite()) return;
    if (!connection_->isOpen()) {
      fail("while waiting for " + what + ": " + connection_->error());
    } else if (Clock::now() >= deadline) {
      fail("waited too long for " + what);
    } else {
      waitFor(deadline);
    }
  }
}

// Until the log or the mirror's pipe wants attention, at the latest until the deadline.
void Source::waitFor(Clock::time_point deadline) const {
  auto const left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  std::array<pollfd, 2> waited{pollfd{connection_->isOpen() ? connection_->fd() : -1, POLLIN, 0},
                               pollfd{report_.atEnd() ? -1 : report_.fd(), POLLIN, 0}};
  if (connection_->wantsWrite()) waited[0].events |= POLLOUT;
  ::poll(waited.data(), waited.size(), std::max(0, static_cast<int>(left.count())));
}

void Source::takeReports() {
  while (std::optional<Report> const report = report_.next()) {
    switch (report->kind) {
      case Report::Kind::ready:
        mirrorIsReady_ = true;
        break;
      case Report::Kind::change:
        heard_.push_back(report->text);
        std::cout << "mirror: " << report->text << std::endl;
        break;
      case Report::Kind::tree:
        std::cout << "mirror: " << report->text << std::endl;
        break;
      case Report::Kind::digest:
        mirrorDigest_ = report->text;
        std::cout << "mirror digest " << report->text << std::endl;
        break;
      case Report::Kind::ended:
        std::cout << "mirror: the log has ended (" << report->text
                  << "); the tree at its end:" << std::endl;
        break;
    }
  }
}

// Closes the log and hears the mirror out. A mirror that hangs is ended.
void Source::end() {
  if (!hasFailed()) say("closes the log");
  connection_->close();
  Clock::time_point const deadline = Clock::now() + kPatience;
  for (takeReports(); !report_.atEnd() && Clock::now() < deadline; takeReports()) {
    waitFor(deadline);
  }
  if (!report_.atEnd()) {
    fail("the mirror did not end");
    ::kill(mirror_, SIGKILL);
  }
  int status = 0;
  ::waitpid(mirror_, &status, 0);
  if (WIFSIGNALED(status)) {
    fail("the mirror was ended by signal " + std::to_string(WTERMSIG(status)));
  } else if (WEXITSTATUS(status) != 0) {
    fail("the mirror ended with exit code " + std::to_string(WEXITSTATUS(status)));
  }
}

void Source::compare() {
  std::string const digest = digestText(roots_);
  std::cout << "source digest " << digest << std::endl;
  if (heard_ != did_) fail("the mirror heard other changes than the source made");
  if (mirrorDigest_ != digest) fail("the mirror's digest differs from the source's");
}

}  // namespace

int runSource(Board const& board, MirrorProcess const& mirror, std::chrono::milliseconds pause) {
  return Source(board, mirror, pause).run();
}

}  // namespace RailSeq
