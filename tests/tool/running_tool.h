// The built program as a child that runs beside the test.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <functional>
#include <string>
#include <vector>

namespace RailSeq {

// Both of its output streams go into one text. It is killed with this object.
class RunningTool {
 public:
  // With a size, there is room for so much that is not read.
  explicit RunningTool(std::vector<std::string> arguments, int outputSize = 0) {
    arguments.insert(arguments.begin(), RAILSEQ_TOOL);
    std::vector<char*> words;
    for (std::string& word : arguments) words.push_back(word.data());
    words.push_back(nullptr);
    start(
        [&words] {
          ::execv(RAILSEQ_TOOL, words.data());
          return 127;
        },
        outputSize);
  }
  // Does in a process of its own what cannot be asked for on a command line.
  explicit RunningTool(std::function<int()> const& run) { start(run); }
  RunningTool(RunningTool const&) = delete;
  RunningTool& operator=(RunningTool const&) = delete;
  ~RunningTool() {
    if (pid_ > 0) (void)end(SIGKILL);
    closeOutput();
  }

  [[nodiscard]] std::string const& text() const { return text_; }
  // Reads until the mark stands behind all that was awaited so far; gives what stands before it
  // since then.
  std::string awaits(std::string const& mark) {
    std::size_t at = text_.find(mark, awaited_);
    while (at == std::string::npos && readSome()) at = text_.find(mark, awaited_);
    if (at == std::string::npos) {
      ADD_FAILURE() << "no \"" << mark << "\" in: " << text_;
      return {};
    }
    std::string const before = text_.substr(awaited_, at - awaited_);
    awaited_ = at + mark.size();
    return before;
  }
  // Reads what is there now; true when the mark stands behind all that was awaited so far.
  [[nodiscard]] bool has(std::string const& mark) {
    while (readSome(0)) {
    }
    return text_.find(mark, awaited_) != std::string::npos;
  }
  // Waits until it has printed all that there is room for.
  void awaitsFullOutput() const {
    int const size = ::fcntl(output_, F_GETPIPE_SZ);
    int waiting = 0;
    for (int tries = 0; tries < kPatience && waiting < size / 2; tries += 10) {
      ::poll(nullptr, 0, 10);
      ::ioctl(output_, FIONREAD, &waiting);
    }
    EXPECT_GE(waiting, size / 2);
  }
  // Sends a signal and waits for the end, without reading anything; gives the exit code, -1 when it
  // does not end in time.
  int endUnread(int signal) {
    ::kill(pid_, signal);
    int status = 0;
    for (int tries = 0; tries < kPatience / 3; tries += 10) {
      if (::waitpid(pid_, &status, WNOHANG) == pid_) {
        pid_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
      }
      ::poll(nullptr, 0, 10);
    }
    return -1;
  }
  // Nobody reads what it prints any more.
  void closeOutput() {
    if (output_ >= 0) ::close(output_);
    output_ = -1;
  }
  // Sends a signal, unless 0, and waits; gives the exit code, -1 when a signal has ended it.
  int end(int signal = 0) {
    if (signal != 0) ::kill(pid_, signal);
    while (output_ >= 0 && signal != SIGKILL && readSome()) {
    }
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  static constexpr int kPatience = 30000;

  void start(std::function<int()> const& run, int outputSize = 0) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) return;
    if (outputSize > 0) {
      EXPECT_EQ(::fcntl(pipe[0], F_SETPIPE_SZ, outputSize), outputSize);
    }
    pid_ = ::fork();
    if (pid_ == 0) {
      ::dup2(pipe[1], STDOUT_FILENO);
      ::dup2(pipe[1], STDERR_FILENO);
      ::_exit(run());
    }
    ::close(pipe[1]);
    output_ = pipe[0];
  }
  bool readSome(int patience = kPatience) {
    pollfd waited{output_, POLLIN, 0};
    if (::poll(&waited, 1, patience) <= 0) return false;
    std::array<char, 4096> block{};
    ssize_t const count = ::read(output_, block.data(), block.size());
    if (count <= 0) return false;
    text_.append(block.data(), static_cast<std::size_t>(count));
    return true;
  }

  pid_t pid_ = 0;
  int output_ = -1;
  std::string text_;
  std::size_t awaited_ = 0;
};

}  // namespace RailSeq
