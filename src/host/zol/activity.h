// Queued delivery: listeners that wish to hear of changes later, when their owner's loop says so.
#pragma once

#include <deque>

#include "host/zol/notifiee.h"

namespace Zol {

// Whether the delivery that a listener is in the midst of has been handed over. One delivery of the
// queue is one call of a slot; what changes meanwhile is queued again.
class ActivitySm {
 public:
  void arm() noexcept { armed_ = true; }
  void disarm() noexcept { armed_ = false; }
  // True once after each `arm`.
  bool take() noexcept { return std::exchange(armed_, false); }

 private:
  bool armed_ = false;
};

// Handed to the listeners of an activity.
class ActivityConfig {
 public:
  explicit ActivityConfig(Activity& activity) : activity_(activity) {}
  [[nodiscard]] Activity& activity() const noexcept { return activity_; }

 private:
  Activity& activity_;
};

// A queue of listeners with changes that they have not heard of. The owner's loop runs it:
//
//   generic->activityIs( activity );    // from now on its changes wait
//   ...
//   activity->run();
class ZOL_EXPORT Activity : public PtrInterface {
 public:
  Activity() : config_(*this) {}
  ~Activity() override;

  // Queues a listener, which is held until it has been served.
  void listenerEnq(PtrInterface::NotifieeConst* listener);
  [[nodiscard]] bool empty() const noexcept { return queue_.empty(); }
  // Serves each listener that is queued now, in order, through its `handleNotification`; one that
  // is queued meanwhile waits for the next call. An exception of a listener goes to its
  // `handleNotificationException()`, and what that throws to the caller; the listeners behind it
  // stay queued. False when none was queued.
  bool run();

 private:
  ActivityConfig config_;
  std::deque<Ptr<PtrInterface::NotifieeConst>> queue_;
};

}  // namespace Zol
