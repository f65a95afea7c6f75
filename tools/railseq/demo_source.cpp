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

#include "railseq/change_listener.h"
#include "railseq/controller_attributes.h"
#include "railseq/demo_ends.h"
#include "railseq/report_pipe.h"
#include "railseq/wording.h"

namespace RailSeq {

namespace {

using Clock = std::chrono::steady_clock;
using Zol::NboAttrLog::Connection;
using Zol::NboAttrLog::MountOptions;

// So long the mirror may be silent while something is awaited of it.
constexpr std::chrono::seconds kPatience{10};
std::string const kText = "set by the demo";

void say(std::string const& line) { std::cout << "source: " << line << std::endl; }

// Another value than the one given.
[[nodiscard]] AttributeValue otherThan(ControllerAttribute const& attribute,
                                       AttributeValue const& value) {
  switch (attribute.kind) {
    case ValueKind::boolean:
      return !std::get<bool>(value);
    case ValueKind::number:
      return std::get<std::uint32_t>(value) + 1;
    case ValueKind::text:
      return std::get<std::string>(value) == kText ? std::string() : kText;
    case ValueKind::enumeration:
      break;
  }
  std::vector<std::string> const names = attribute.enumerators();
  return names.front() == std::get<std::string>(value) ? names.back() : names.front();
}

// Once a step has failed, the steps behind it do nothing.
class Source {
 public:
  Source(BoardDescription const& board, MirrorProcess const& mirror,
         std::chrono::milliseconds pause)
      : board_(board),
        mirror_(mirror.pid),
        pause_(pause),
        config_(makeConfig(board)),
        connection_(Connection::overFd(mirror.logFd, {.ownName = "source", .peerName = "mirror"})),
        report_(mirror.reportFd) {}

  int run();

 private:
  void catchUp();
  void makeChanges();
  void change(Zol::Ptr<ControllerConfig> const& controller, std::string_view attribute);
  void add(Chip chip, std::string const& name);
  void remove(Chip chip, std::string const& name);
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

  BoardDescription const& board_;
  pid_t mirror_;
  std::chrono::milliseconds pause_;
  Zol::Ptr<Config> config_;
  Zol::Ptr<Connection> connection_;
  ReportReader report_;
  bool mirrorIsReady_ = false;
  std::string mirrorDigest_;
  std::vector<std::string> did_;
  std::vector<std::string> heard_;
  std::string failure_;
};

int Source::run() {
  say("process " + std::to_string(::getpid()) + " owns the tree " + inQuotes(board_.configName) +
      " with " + counted(board_.controllers.size(), "controller"));
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
  connection_->mountIs(config_, MountOptions{});
  await("the mirror's first catch-up", [this] { return mirrorIsReady_; });
  if (!hasFailed()) say("the mirror has caught up; changes follow");
}

void Source::makeChanges() {
  Chip const chip = board_.controllers.empty() ? Chip::ucd9012 : board_.controllers.front().chip;
  if (!board_.controllers.empty()) {
    Zol::Ptr<ControllerConfig> const first =
        findController(*config_, chip, board_.controllers.front().name);
    change(first, "pollingEnabled");
    change(first, "reloadCauseSortKey");
    change(first, "operationalMode");
    change(first, "description");
  }
  std::string added = "added-by-demo";
  while (findController(*config_, chip, added)) added += "+";
  add(chip, added);
  change(findController(*config_, chip, added), "location");
  if (board_.controllers.size() > 1) {
    remove(board_.controllers.back().chip, board_.controllers.back().name);
  } else {
    remove(chip, added);
  }
}

void Source::change(Zol::Ptr<ControllerConfig> const& controller, std::string_view attribute) {
  if (hasFailed()) return;
  ControllerAttribute const& row = *findControllerAttribute(attribute);
  row.write(*controller, otherThan(row, row.read(*controller)));
  did(attributeChange(*controller, attribute));
}

void Source::add(Chip chip, std::string const& name) {
  if (hasFailed()) return;
  addController(*config_, chip, name, "added by the demo");
  did(memberChange(*config_, chip, name, "added"));
}

void Source::remove(Chip chip, std::string const& name) {
  if (hasFailed()) return;
  removeController(*config_, chip, name);
  did(memberChange(*config_, chip, name, "removed"));
}

// The pause comes behind the change, when all is said, so that the two lines stand together.
void Source::did(std::string const& line) {
  say(line);
  did_.push_back(line);
  await("the mirror to hear of this change", [this] { return heard_.size() >= did_.size(); });
  Clock::time_point const resume = Clock::now() + pause_;
  while (!hasFailed() && Clock::now() < resume && connection_->isOpen()) {
    while (connection_->pump()) {
    }
    takeReports();
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
  std::string const digest = digestText(Zol::digest(*config_));
  std::cout << "source digest " << digest << std::endl;
  if (heard_ != did_) fail("the mirror heard other changes than the source made");
  if (mirrorDigest_ != digest) fail("the mirror's digest differs from the source's");
}

}  // namespace

int runSource(BoardDescription const& board, MirrorProcess const& mirror,
              std::chrono::milliseconds pause) {
  return Source(board, mirror, pause).run();
}

}  // namespace RailSeq
