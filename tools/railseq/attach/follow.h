// Stays attached to an address: connects again, each time a little later, when the peer is lost.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "railseq/attach/attachment.h"

namespace RailSeq {

struct Follow {
  Attachment::Options attachment;
  // False: the loss of the peer ends all with a `CommandError`.
  bool reconnects = true;
  Clock::time_point deadline = Clock::time_point::max();
  // The roots that these begin with are waited for a moment.
  std::vector<std::string> paths = {};
  // The peer has said hello, and then mounted no root for a moment.
  std::function<void()> onNoRoot = nullptr;
  // All roots have arrived, for the first time or again.
  std::function<void(Attachment&)> onSynced = nullptr;
  // Behind it, and whenever there are other roots.
  std::function<void(Attachment&)> onRoots = nullptr;
  // Asked behind each turn, and some times a second, while all roots are there; true ends all.
  std::function<bool()> isDone = nullptr;
  // Told the reason of a loss, the same of attempts in a row only once.
  std::function<void(std::string const& reason)> onLost = nullptr;
};

// `done`, `timedOut` or `stopped`.
[[nodiscard]] Attachment::End runFollow(Follow const& follow);

// The next pause before an attempt: twice the last one up to a bound, less a random part, so that
// many clients of one server do not come back at once.
class Backoff {
 public:
  [[nodiscard]] Clock::duration next();
  // The attempt was a success.
  void reset() { pause_ = kFirst; }

 private:
  static constexpr std::chrono::milliseconds kFirst{100};
  static constexpr std::chrono::milliseconds kLongest{5000};

  std::chrono::milliseconds pause_ = kFirst;
};

}  // namespace RailSeq
