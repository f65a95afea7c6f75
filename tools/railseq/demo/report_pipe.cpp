// Writing and reading of report lines.
#include "railseq/demo/report_pipe.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

namespace RailSeq {

ReportWriter::~ReportWriter() { ::close(fd_); }

void ReportWriter::write(Report::Kind kind, std::string const& text) {
  std::string const line = static_cast<char>(kind) + text + '\n';
  std::string_view rest = line;
  while (!rest.empty() && !broken_) {
    ssize_t const written = ::write(fd_, rest.data(), rest.size());
    if (written >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      broken_ = true;
    }
  }
}

ReportReader::~ReportReader() { ::close(fd_); }

std::optional<Report> ReportReader::next() {
  if (lines_.empty() && !ended_) receive();
  if (lines_.empty()) return std::nullopt;
  Report report = std::move(lines_.front());
  lines_.pop_front();
  return report;
}

void ReportReader::receive() {
  pollfd waiting{fd_, POLLIN, 0};
  if (::poll(&waiting, 1, 0) <= 0) return;
  std::array<char, 4096> block;
  ssize_t const count = ::read(fd_, block.data(), block.size());
  if (count < 0) {
    ended_ = errno != EINTR;
    return;
  }
  if (count == 0) ended_ = true;
  partial_.append(block.data(), static_cast<std::size_t>(count));
  for (std::size_t end = partial_.find('\n'); end != std::string::npos; end = partial_.find('\n')) {
    if (end > 0)
      lines_.push_back({static_cast<Report::Kind>(partial_[0]), partial_.substr(1, end - 1)});
    partial_.erase(0, end + 1);
  }
}

}  // namespace RailSeq
