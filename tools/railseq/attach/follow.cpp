// The loop of connections.
#include "railseq/attach/follow.h"

#include <algorithm>
#include <random>

#include "railseq/base/command_error.h"

namespace RailSeq {

namespace {

using End = Attachment::End;
using Zol::NboAttrLog::ConnectionState;

// One attempt may take so long until the peer's hello.
constexpr std::chrono::seconds kHelloPatience{5};
constexpr std::chrono::milliseconds kTick{200};
constexpr std::chrono::milliseconds kNoRootPatience{1000};

// From the peer's hello on until all roots are there.
End awaitRoots(Follow const& follow, Attachment& attachment) {
  Clock::time_point const soon = std::min(follow.deadline, Clock::now() + kNoRootPatience);
  End const end = attachment.pumpUntil([&attachment] { return attachment.hasRoots(); }, soon);
  if (end != End::done && end != End::timedOut) return end;
  if (end == End::timedOut && follow.onNoRoot) follow.onNoRoot();
  return attachment.awaitRoots(follow.paths, Attachment::kRootPatience, follow.deadline);
}

// One connection, up to its end. Throws `CommandError` when it is lost.
End runOnce(Follow const& follow, Attachment& attachment, bool& wasSynced) {
  Clock::time_point const helloBy = std::min(follow.deadline, Clock::now() + kHelloPatience);
  if (!attachment.connect(helloBy)) return End::stopped;
  Attachment::Connection const& connection = *attachment.connection();
  End end = attachment.pumpUntil(
      [&connection] { return connection.state() != ConnectionState::connecting; }, helloBy);
  if (end == End::timedOut && Clock::now() < follow.deadline) {
    throw CommandError(ExitCode::peerLost, attachment.address().text() + ": no hello within " +
                                               std::to_string(kHelloPatience.count()) + " seconds");
  }
  if (end == End::done) end = awaitRoots(follow, attachment);
  if (end == End::done) {
    wasSynced = true;
    if (follow.onSynced) follow.onSynced(attachment);
    std::vector<Zol::Ptr<Zol::Entity>> roots;
    auto const look = [&] {
      std::vector<Zol::Ptr<Zol::Entity>> present = attachment.roots();
      if (!connection.isOpen() || present == roots) return;
      roots = std::move(present);
      if (follow.onRoots) follow.onRoots(attachment);
    };
    auto const isDone = [&] {
      look();
      return follow.isDone();
    };
    look();
    do {
      end = attachment.pumpUntil(isDone, std::min(follow.deadline, Clock::now() + kTick));
    } while (end == End::timedOut && Clock::now() < follow.deadline);
  }
  if (end == End::lost) throw CommandError(ExitCode::peerLost, attachment.lossReason());
  return end;
}

}  // namespace

Clock::duration Backoff::next() {
  static std::minstd_rand generator{std::random_device{}()};
  std::uniform_real_distribution<double> part(0.5, 1.0);
  std::chrono::duration<double> const pause = pause_ * part(generator);
  pause_ = std::min(2 * pause_, kLongest);
  return std::chrono::duration_cast<Clock::duration>(pause);
}

End runFollow(Follow const& follow) {
  Attachment attachment(follow.attachment);
  Backoff backoff;
  std::string lastReason;
  for (;;) {
    bool wasSynced = false;
    try {
      return runOnce(follow, attachment, wasSynced);
    } catch (CommandError const& loss) {
      if (!follow.reconnects || loss.code() == ExitCode::badInput) throw;
      if (wasSynced) {
        backoff.reset();
        lastReason.clear();
      }
      if (follow.onLost && loss.what() != lastReason) follow.onLost(loss.what());
      lastReason = loss.what();
    }
    Clock::time_point const again = Clock::now() + backoff.next();
    if (!attachment.pause(std::min(again, follow.deadline))) return End::stopped;
    if (Clock::now() >= follow.deadline) return End::timedOut;
  }
}

}  // namespace RailSeq
