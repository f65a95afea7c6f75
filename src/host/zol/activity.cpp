#include "host/zol/activity.h"

namespace Zol {

Activity::~Activity() = default;

void Activity::listenerEnq(PtrInterface::NotifieeConst* listener) { queue_.emplace_back(listener); }

bool Activity::run() {
  Ptr<Activity> const hold(this);
  std::size_t const count = queue_.size();
  for (std::size_t i = 0; i < count && !queue_.empty(); ++i) {
    Ptr<PtrInterface::NotifieeConst> const listener = std::move(queue_.front());
    queue_.pop_front();
    ActivitySm* const delivery = listener->actsm();
    if (delivery) delivery->arm();
    try {
      listener->handleNotification(&config_);
    } catch (...) {
      if (delivery) delivery->disarm();
      listener->handleNotificationException();
    }
    if (delivery) delivery->disarm();
  }
  return count != 0;
}

}  // namespace Zol
