// Feeds the bytes of a recording to connections, frame by frame.
#include "railseq/recording/recording_player.h"

#include <algorithm>
#include <optional>

#include "railseq/recording/recording_time.h"

namespace RailSeq {

namespace {

using Zol::NboAttrLog::kLengthSize;
using Zol::NboAttrLog::Transport;

// What a frame may have: as much as the recorder's own connection took in.
[[nodiscard]] std::size_t longestFrame() { return Zol::NboAttrLog::ConnectionOptions{}.maxFrame; }

// The length of the frame at the front, which may not be whole yet; nothing while even that is
// missing.
[[nodiscard]] std::optional<std::size_t> frameLength(std::string_view bytes) {
  if (bytes.size() < kLengthSize) return std::nullopt;
  std::size_t length = 0;
  for (char const byte : bytes.substr(0, kLengthSize)) {
    length = (length << 8U) | static_cast<unsigned char>(byte);
  }
  return length;
}

// Takes the whole frames off the front of the bytes; false at a length that no frame has.
template <class Take>
bool takeFrames(std::string& bytes, Take const& take) {
  std::size_t at = 0;
  bool isGood = true;
  while (std::optional<std::size_t> const length =
             frameLength(std::string_view(bytes).substr(at))) {
    isGood = *length != 0 && *length <= longestFrame();
    if (!isGood || bytes.size() - at - kLengthSize < *length) break;
    take(std::string_view(bytes).substr(at, kLengthSize + *length));
    at += kLengthSize + *length;
  }
  bytes.erase(0, at);
  return isGood;
}

}  // namespace

// What was recorded goes in, and nothing comes out.
class RecordingPlayer::Tape {
 public:
  class Reel final : public Transport {
   public:
    explicit Reel(std::shared_ptr<Tape> tape) : tape_(std::move(tape)) {}
    Result read(std::span<std::uint8_t> to) override {
      std::string& waiting = tape_->bytes;
      std::size_t const count = std::min(to.size(), waiting.size());
      if (count == 0 && tape_->hasEnded) return {Result::State::ended, 0, {}};
      if (count == 0) return {};
      std::copy_n(waiting.begin(), count, to.begin());
      waiting.erase(0, count);
      return {Result::State::moved, count, {}};
    }
    Result write(std::span<std::uint8_t const> from) override {
      return {Result::State::moved, from.size(), {}};
    }
    [[nodiscard]] int fd() const override { return -1; }
    void close() override {}

   private:
    std::shared_ptr<Tape> tape_;
  };

  std::string bytes;
  bool hasEnded = false;
};

// Each player has a source of its own, so that two of them never share entities.
RecordingPlayer::RecordingPlayer(FrameHook hook) : hook_(std::move(hook)) {
  static unsigned int made = 0;
  peerName_ = Zol::format("recording %u", ++made);
  if (!hook_) hook_ = [](Frame const&, std::function<void()> const& apply) { apply(); };
}

RecordingPlayer::~RecordingPlayer() {
  if (connection_) connection_->close();
  connection_ = nullptr;
  formerRoots_.clear();
  Zol::NboAttrLog::forgetPeer(peerName_);
}

void RecordingPlayer::play(Record const& record) {
  time_ = record.time;
  switch (record.kind) {
    case RecordKind::connected:
      return connect();
    case RecordKind::received:
      return takeIn(record.bytes);
    case RecordKind::sent:
      return takeSent(record.bytes);
    case RecordKind::lost:
      return lose(record.bytes);
    case RecordKind::ended:
      return;
  }
}

void RecordingPlayer::connect() {
  lose("");
  formerRoots_ = roots();
  refused_ = refused();
  unknown_ = unknown();
  ++connections_;
  tape_ = std::make_shared<Tape>();
  connection_ = Connection::over(std::make_unique<Tape::Reel>(tape_), {.peerName = peerName_});
  isComplete_ = false;
  received_.clear();
  sent_.clear();
}

void RecordingPlayer::takeIn(std::string_view bytes) {
  if (!connection_ || !connection_->isOpen()) return;
  received_ += bytes;
  auto const take = [this](std::string_view frame) {
    if (!connection_->isOpen()) return;
    hook_({frame.substr(kLengthSize), true}, [&] { feed(frame); });
  };
  // The connection says itself what is wrong with a length.
  if (!takeFrames(received_, take)) feed(std::exchange(received_, {}));
}

void RecordingPlayer::takeSent(std::string_view bytes) {
  sent_ += bytes;
  auto const take = [this](std::string_view frame) {
    hook_({frame.substr(kLengthSize), false}, [] {});
  };
  if (!takeFrames(sent_, take)) sent_.clear();
}

void RecordingPlayer::feed(std::string_view bytes) {
  tape_->bytes += bytes;
  while (connection_->pump()) {
  }
  if (!connection_->isOpen()) {
    lostAt_ = time_;
    lossReason_ = connection_->error();
    return;
  }
  isComplete_ = connection_->state() == Zol::NboAttrLog::ConnectionState::live;
  if (!isComplete_) return;
  wasComplete_ = true;
  formerRoots_.clear();
}

void RecordingPlayer::lose(std::string const& reason) {
  if (!connection_ || !connection_->isOpen()) return;
  tape_->hasEnded = true;
  feed(std::exchange(received_, {}));
  if (!reason.empty()) lossReason_ = reason;
}

std::vector<Zol::Ptr<Zol::Entity>> RecordingPlayer::roots() const {
  std::vector<Zol::Ptr<Zol::Entity>> roots;
  if (connection_) {
    for (Zol::Name const& name : connection_->mountedNames()) {
      roots.push_back(connection_->mounted(name));
    }
  }
  for (Zol::Ptr<Zol::Entity> const& former : formerRoots_) {
    bool const isBack = std::ranges::any_of(
        roots, [&former](auto const& root) { return root->name() == former->name(); });
    if (!isBack) roots.push_back(former);
  }
  return roots;
}

std::string RecordingPlayer::note() const {
  if (!connection_) return "nothing had been received";
  std::string const before = wasComplete_ ? "" : "; the state was never complete";
  if (!connection_->isOpen()) {
    return "the source was lost at " + offsetText(lostAt_) + " (" + lossReason_ +
           "): the state is the last one received" + before;
  }
  if (isComplete_) return "";
  return formerRoots_.empty()
             ? "the state is incomplete: the source was still sending what it had to begin with"
             : "the state is in part that of before the source was lost at " + offsetText(lostAt_) +
                   ": it was still sending what it had afterwards";
}

std::uint64_t RecordingPlayer::refused() const {
  return refused_ + (connection_ ? connection_->counters().refused : 0);
}

std::uint64_t RecordingPlayer::unknown() const {
  return unknown_ + (connection_ ? connection_->counters().unknown : 0);
}

}  // namespace RailSeq
