// What the long-running commands print: their readers may be slow, or may have stopped reading.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <optional>
#include <streambuf>
#include <string>
#include <string_view>

#include "railseq/attach/address.h"
#include "railseq/base/command_error.h"

namespace RailSeq {

// "cannot write: No space left on device"
[[nodiscard]] CommandError writeError(int error);

// Behind `std::cout`: keeps why a write has failed, and drops what could not be written.
class OutputBuffer final : public std::streambuf {
 public:
  explicit OutputBuffer(int fd) : fd_(fd) { setp(block_.data(), block_.data() + block_.size()); }

  // Of the first write that has failed; 0 when none has.
  [[nodiscard]] int error() const { return error_; }

 protected:
  int_type overflow(int_type byte) override;
  int sync() override;

 private:
  int fd_;
  int error_ = 0;
  std::array<char, 16384> block_{};
};

// A stream of the process, written to without waiting, while the mode of the descriptor, which
// others may share, stays as it is.
class Output {
 public:
  explicit Output(int fd);

  // To poll for writable.
  [[nodiscard]] int fd() const { return own_ ? own_.get() : fd_; }
  // Writes what fits now, and gives its size. Nothing after a failure, which `errno` has.
  std::optional<std::size_t> write(std::string_view bytes) const;

 private:
  int fd_;
  // The same pipe or terminal, opened once more; empty where that cannot be.
  Fd own_;
  bool isSocket_ = false;
};

// Waits for the reader, unless it is to stop.
class Printer {
 public:
  // `stopFd` is readable when it is to stop.
  Printer(int fd, int stopFd) : output_(fd), stopFd_(stopFd) {}

  // Nothing is written any more once a write has failed, or was given up.
  void print(std::string_view text);
  // Of the write that has failed; 0 when none has.
  [[nodiscard]] int error() const { return error_; }

 private:
  // False when it is to stop.
  [[nodiscard]] bool waitForReader() const;

  Output output_;
  int stopFd_;
  int error_ = 0;
  bool hasGivenUp_ = false;
};

// The lines of a service, which goes on whoever reads them. A bounded part waits for the reader;
// how many lines were dropped beyond it is written in their place.
class ServiceLog {
 public:
  static constexpr std::size_t kMostWaiting = std::size_t{64} << 10;

  explicit ServiceLog(int fd) : output_(fd) {}

  void line(std::string const& text);
  // Writes what fits now of what waits.
  void flush();
  // To poll for writable; -1 when nothing waits.
  [[nodiscard]] int waitingFd() const { return waiting_.empty() ? -1 : output_.fd(); }

 private:
  struct Piece {
    std::string text;
    // The lines that it stands for.
    std::size_t lines = 1;
  };

  void dropWaiting();

  Output output_;
  std::deque<Piece> waiting_;
  std::size_t bytes_ = 0;
  std::size_t dropped_ = 0;
};

}  // namespace RailSeq
