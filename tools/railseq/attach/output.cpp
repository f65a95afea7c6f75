// Writes without waiting, or waits for more than the reader.
#include "railseq/attach/output.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <system_error>

#include "railseq/base/wording.h"

namespace RailSeq {

CommandError writeError(int error) {
  return {ExitCode::refused, "cannot write: " + std::generic_category().message(error)};
}

OutputBuffer::int_type OutputBuffer::overflow(int_type byte) {
  if (sync() != 0) return traits_type::eof();
  if (!traits_type::eq_int_type(byte, traits_type::eof())) sputc(traits_type::to_char_type(byte));
  return traits_type::not_eof(byte);
}

int OutputBuffer::sync() {
  std::string_view rest(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  while (!rest.empty()) {
    ssize_t const count = ::write(fd_, rest.data(), rest.size());
    if (count >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      // Somebody else has made the descriptor non-blocking.
      pollfd waited{fd_, POLLOUT, 0};
      ::poll(&waited, 1, -1);
    } else if (errno != EINTR) {
      if (error_ == 0) error_ = errno;
      break;
    }
  }
  setp(block_.data(), block_.data() + block_.size());
  return rest.empty() ? 0 : -1;
}

Output::Output(int fd) : fd_(fd) {
  struct stat about {};
  if (::fstat(fd, &about) != 0) return;
  isSocket_ = S_ISSOCK(about.st_mode);
  if (!S_ISFIFO(about.st_mode) && !S_ISCHR(about.st_mode)) return;
  std::string const path = "/proc/self/fd/" + std::to_string(fd);
  own_ = Fd(::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

std::optional<std::size_t> Output::write(std::string_view bytes) const {
  for (;;) {
    ssize_t count = 0;
    if (isSocket_) {
      count = ::send(fd_, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    } else if (own_) {
      count = ::write(own_.get(), bytes.data(), bytes.size());
    } else {
      // A pipe that is writable takes this much without waiting.
      pollfd waited{fd_, POLLOUT, 0};
      if (::poll(&waited, 1, 0) == 0) return 0;
      count = ::write(fd_, bytes.data(), std::min<std::size_t>(bytes.size(), PIPE_BUF));
    }
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno == EAGAIN || errno == EWOULDBLOCK) return 0;
    if (errno != EINTR) return std::nullopt;
  }
}

void Printer::print(std::string_view text) {
  while (!text.empty() && error_ == 0 && !hasGivenUp_) {
    std::optional<std::size_t> const written = output_.write(text);
    if (!written) {
      error_ = errno;
      return;
    }
    text.remove_prefix(*written);
    if (*written == 0) hasGivenUp_ = !waitForReader();
  }
}

bool Printer::waitForReader() const {
  std::array<pollfd, 2> waited{pollfd{output_.fd(), POLLOUT, 0}, pollfd{stopFd_, POLLIN, 0}};
  ::poll(waited.data(), waited.size(), -1);
  return waited[1].revents == 0;
}

void ServiceLog::line(std::string const& text) {
  flush();
  // What was dropped is told first.
  if (dropped_ > 0 || bytes_ + text.size() >= kMostWaiting) {
    ++dropped_;
    return;
  }
  waiting_.push_back({text + '\n'});
  bytes_ += text.size() + 1;
  flush();
}

void ServiceLog::flush() {
  for (;;) {
    if (waiting_.empty()) {
      if (dropped_ == 0) return;
      waiting_.push_back({"railseq: " + counted(dropped_, "line") +
                              " dropped here, which nobody had read in time\n",
                          dropped_});
      bytes_ = waiting_.front().text.size();
      dropped_ = 0;
    }
    Piece& front = waiting_.front();
    std::optional<std::size_t> const written = output_.write(front.text);
    if (!written) return dropWaiting();
    if (*written == 0) return;
    front.text.erase(0, *written);
    bytes_ -= *written;
    if (front.text.empty()) waiting_.pop_front();
  }
}

void ServiceLog::dropWaiting() {
  for (Piece const& piece : waiting_) dropped_ += piece.lines;
  waiting_.clear();
  bytes_ = 0;
}

}  // namespace RailSeq
