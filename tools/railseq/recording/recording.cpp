// Attaches to a source, again and again, and writes down both directions.
#include "railseq/recording/recording.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <optional>

#include "railseq/attach/follow.h"
#include "railseq/attach/output.h"
#include "railseq/attach/stop_signal.h"
#include "railseq/base/command_error.h"
#include "railseq/base/paths.h"
#include "railseq/base/wording.h"

namespace RailSeq {

namespace {

// Kept free of what the source sends, for the records at the end.
constexpr std::uint64_t kReserve = 1024;
// A source may give a long reason.
constexpr std::size_t kLongestReason = 300;

[[nodiscard]] std::uint64_t now() {
  auto const sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(
      std::chrono::duration_cast<std::chrono::nanoseconds>(sinceEpoch).count());
}

// One run of the command.
class RecordRun {
 public:
  explicit RecordRun(RecordLine const& line) : line_(line) {
    follow_.attachment = {.address = parseAddress(line.address),
                          .ownName = "railseq record",
                          .wrap = [this](auto transport) { return wrapped(std::move(transport)); },
                          .onState =
                              [this](auto& connection, auto state) {
                                if (state == ConnectionState::closed) lost(connection.error());
                              },
                          .stopFd = stop_.fd()};
    // A source that was never there is not waited for.
    follow_.reconnects = false;
    follow_.onSynced = [this](Attachment& attachment) { synced(attachment); };
    follow_.isDone = [this] { return recorder_->isFull(); };
    follow_.onLost = [this](std::string const& reason) { tell(reason + "; trying again"); };
  }
  RecordRun(RecordRun const&) = delete;
  RecordRun& operator=(RecordRun const&) = delete;

  int run() {
    Attachment::End end = Attachment::End::done;
    try {
      end = runFollow(follow_);
    } catch (CommandError const&) {
      if (recorder_ && !recorder_->isFull()) recorder_->ended("never complete");
      if (!recorder_ || !recorder_->isFull()) throw;
    }
    if (!recorder_) {
      tell("stopped before " + line_.address + " was reached; no file was written");
      return static_cast<int>(ExitCode::peerLost);
    }
    std::string const why = end == Attachment::End::stopped    ? "stopped"
                            : end == Attachment::End::timedOut ? "time is up"
                                                               : "full";
    recorder_->ended(why);
    tellSummary(why);
    return static_cast<int>(isLost_ ? ExitCode::peerLost : ExitCode::good);
  }

 private:
  using ConnectionState = Zol::NboAttrLog::ConnectionState;

  std::unique_ptr<Recorder::Transport> wrapped(std::unique_ptr<Recorder::Transport> transport) {
    if (!recorder_) {
      recorder_.emplace(line_.file, line_.force, line_.maxBytes);
      if (line_.seconds > 0) {
        follow_.deadline = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                              std::chrono::duration<double>(line_.seconds));
      }
      tell("recording " + line_.address + " to " + line_.file);
    }
    ++connections_;
    return recorder_->connected(line_.address, std::move(transport));
  }

  void synced(Attachment const& attachment) {
    follow_.reconnects = true;
    isLost_ = false;
    std::string names;
    for (auto const& root : attachment.roots()) {
      names += (names.empty() ? "" : ", ") + rootPath(root->name().view());
    }
    tell("the full state of " + names + " is there; changes follow");
  }

  void lost(std::string const& reason) {
    if (recorder_->isFull()) {
      follow_.reconnects = false;
      return;
    }
    isLost_ = true;
    recorder_->lost(reason.substr(0, kLongestReason));
  }

  // A recording goes on whoever reads what is told of it.
  void tell(std::string const& line) { out_.line(line); }
  void tellSummary(std::string const& why) {
    char seconds[40];
    std::snprintf(seconds, sizeof seconds, "%.1f s", static_cast<double>(recorder_->time()) / 1e9);
    tell(why + ": " + line_.file + " has " + counted(recorder_->file().records(), "record") +
         " in " + counted(recorder_->file().size(), "byte") + ", " + seconds + ", " +
         counted(connections_, "connection"));
  }

  RecordLine const& line_;
  ServiceLog out_{STDOUT_FILENO};
  StopSignal stop_;
  std::optional<Recorder> recorder_;
  std::size_t connections_ = 0;
  bool isLost_ = false;
  Follow follow_;
};

}  // namespace

// What is read and written goes to the file first.
class Recorder::Tee final : public Transport {
 public:
  Tee(Recorder& recorder, std::unique_ptr<Transport> carrier)
      : recorder_(recorder), carrier_(std::move(carrier)) {}

  Result read(std::span<std::uint8_t> to) override {
    std::size_t const room = std::min(to.size(), recorder_.room());
    // The connection is not to wait for what will never be read.
    if (room == 0) return {Result::State::ended, 0, "the recording is full"};
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

int runRecord(RecordLine const& line) { return RecordRun(line).run(); }

}  // namespace RailSeq
