// Blocks the signals and takes them from a descriptor.
#include "railseq/attach/stop_signal.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace RailSeq {

StopSignal::StopSignal() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  ::sigprocmask(SIG_BLOCK, &signals, &former_);
  std::signal(SIGPIPE, SIG_IGN);
  fd_ = Fd(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
  if (!fd_) throw std::system_error(errno, std::generic_category(), "signalfd");
}

// A signal that has come has done its work.
StopSignal::~StopSignal() {
  signalfd_siginfo signal{};
  while (::read(fd_.get(), &signal, sizeof signal) > 0) {
  }
  ::sigprocmask(SIG_SETMASK, &former_, nullptr);
}

}  // namespace RailSeq
