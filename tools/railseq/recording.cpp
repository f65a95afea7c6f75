// Attaches to a source, again and again, and writes down both directions.
#include "railseq/recording.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <optional>
#include <ostream>

#include "railseq/attachment.h"
#include "railseq/command_error.h"
#include "railseq/paths.h"
#include "railseq/stop_signal.h"
#include "railseq/wording.h"

namespace RailSeq {

namespace {

// Kept free of what the source sends, for the records at the end.
constexpr std::uint64_t kReserve = 1024;
// A source may give a long reason.
constexpr std::size_t kLongestReason = 300;

constexpr std::chrono::seconds kConnectTime{5};
constexpr std::chrono::milliseconds kFirstPause{100};
constexpr std::chrono::milliseconds kLongestPause{5000};

[[nodiscard]] std::uint64_t now() {
  auto const sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(
      std::chrono::duration_cast<std::chrono::nanoseconds>(sinceEpoch).count());
}

// One run of the command.
class RecordRun {
 public:
  RecordRun(RecordLine const& line, std::ostream& out)
      : line_(line),
        out_(out),
        attachment_({.address = parseAddress(line.address),
                     .ownName = "railseq record",
                     .wrap = [this](auto transport) { return wrapped(std::move(transport)); },
                     .stopFd = stop_.fd()}) {}

  int run() {
    if (!attachment_.connect(Clock::now() + kConnectTime)) {
      out_ << "stopped before the source was reached; no file was written\n";
      return static_cast<int>(ExitCode::peerLost);
    }
    out_ << "recording " << line_.address << " to " << line_.file << std::endl;
    std::string why = recordOne();
    while (why.empty() && reconnect()) why = recordOne();
    bool const isLost = !attachment_.connection()->isOpen();
    if (why.empty()) why = Clock::now() >= deadline_ ? "the time is over" : "stopped";
    attachment_.close();
    recorder_->ended(why);
    tellSummary(why);
    return static_cast<int>(isLost ? ExitCode::peerLost : ExitCode::good);
  }

 private:
  std::unique_ptr<Recorder::Transport> wrapped(std::unique_ptr<Recorder::Transport> transport) {
    if (!recorder_) {
      recorder_.emplace(line_.file, line_.force, line_.maxBytes);
      if (line_.seconds > 0) {
        deadline_ = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                       std::chrono::duration<double>(line_.seconds));
      }
    }
    ++connections_;
    return recorder_->connected(line_.address, std::move(transport));
  }

  // Records until the connection is lost; otherwise gives the reason to end.
  [[nodiscard]] std::string recordOne() {
    bool isTold = false;
    auto const isOver = [&] {
      if (!isTold && attachment_.isSynced()) {
        isTold = true;
        pause_ = kFirstPause;
        tellSynced();
      }
      return recorder_->isFull();
    };
    switch (attachment_.pumpUntil(isOver, deadline_)) {
      case Attachment::End::done:
        return "the file has the " + counted(line_.maxBytes, "byte") + " allowed";
      case Attachment::End::timedOut:
        return "the time is over";
      case Attachment::End::stopped:
        return "stopped";
      case Attachment::End::lost:
        break;
    }
    std::string const reason = attachment_.connection()->error().substr(0, kLongestReason);
    recorder_->lost(reason);
    if (recorder_->isFull())
      return "the file has the " + counted(line_.maxBytes, "byte") + " allowed";
    out_ << "lost: " << reason << "; trying again" << std::endl;
    return "";
  }

  // False when it is time to end.
  [[nodiscard]] bool reconnect() {
    for (;;) {
      if (!attachment_.pause(std::min(deadline_, Clock::now() + pause_))) return false;
      if (Clock::now() >= deadline_) return false;
      pause_ = std::min(pause_ * 2, kLongestPause);
      try {
        return attachment_.connect(std::min(deadline_, Clock::now() + kConnectTime));
      } catch (CommandError const&) {
        // Not there yet.
      }
    }
  }

  void tellSynced() {
    std::string names;
    for (auto const& root : attachment_.roots()) {
      names += (names.empty() ? "" : ", ") + rootPath(root->name().view());
    }
    out_ << "the full state of " << names << " is there; changes follow" << std::endl;
  }

  void tellSummary(std::string const& why) {
    char seconds[40];
    std::snprintf(seconds, sizeof seconds, "%.1f s", static_cast<double>(recorder_->time()) / 1e9);
    out_ << why << ": " << line_.file << " has " << counted(recorder_->file().records(), "record")
         << " in " << counted(recorder_->file().size(), "byte") << ", " << seconds << ", "
         << counted(connections_, "connection") << std::endl;
  }

  RecordLine const& line_;
  std::ostream& out_;
  StopSignal stop_;
  std::optional<Recorder> recorder_;
  std::size_t connections_ = 0;
  Clock::time_point deadline_ = Clock::time_point::max();
  std::chrono::milliseconds pause_ = kFirstPause;
  // Last, so that it ends before what it writes to.
  Attachment attachment_;
};

}  // namespace

// What is read and written goes to the file first.
class Recorder::Tee final : public Transport {
 public:
  Tee(Recorder& recorder, std::unique_ptr<Transport> carrier)
      : recorder_(recorder), carrier_(std::move(carrier)) {}

  Result read(std::span<std::uint8_t> to) override {
    std::size_t const room = std::min(to.size(), recorder_.room());
    if (room == 0) return {};
    Result result = carrier_->read(to.first(room));
    note(RecordKind::received, to, result);
    return result;
  }
  Result write(std::span<std::uint8_t const> from) override {
    Result result = carrier_->write(from);
    note(RecordKind::sent, from, result);
    return result;
  }
  [[nodiscard]] int fd() const override { return carrier_->fd(); }
  void close() override { carrier_->close(); }

 private:
  void note(RecordKind kind, std::span<std::uint8_t const> bytes, Result const& result) {
    if (result.bytes == 0) return;
    recorder_.write(kind, {reinterpret_cast<char const*>(bytes.data()), result.bytes});
  }

  Recorder& recorder_;
  std::unique_ptr<Transport> carrier_;
};

Recorder::Recorder(std::string const& file, bool replace, std::uint64_t maxBytes)
    : start_(std::chrono::steady_clock::now()),
      maxBytes_(maxBytes == 0 ? std::numeric_limits<std::uint64_t>::max()
                              : std::max(maxBytes, kLeastMaxBytes)),
      writer_(file, now(), replace) {}

std::unique_ptr<Recorder::Transport> Recorder::connected(std::string const& to,
                                                         std::unique_ptr<Transport> transport) {
  write(RecordKind::connected, to);
  return std::make_unique<Tee>(*this, std::move(transport));
}

std::uint64_t Recorder::time() const {
  auto const since = std::chrono::steady_clock::now() - start_;
  return static_cast<std::uint64_t>(
      std::chrono::duration_cast<std::chrono::nanoseconds>(since).count());
}

std::size_t Recorder::room() const {
  std::uint64_t const taken = writer_.size() + kReserve + kRecordOverhead;
  return taken >= maxBytes_ ? 0
                            : static_cast<std::size_t>(
                                  std::min<std::uint64_t>(maxBytes_ - taken, kMaxRecordBytes));
}

int runRecord(RecordLine const& line, std::ostream& out) { return RecordRun(line, out).run(); }

}  // namespace RailSeq
