// The built program as a child that runs beside the test.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>
#include <vector>

namespace RailSeq {

// Both of its output streams go into one text. It is killed with this object.
class RunningTool {
 public:
  explicit RunningTool(std::vector<std::string> arguments) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) return;
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDERR_FILENO);
    arguments.insert(arguments.begin(), RAILSEQ_TOOL);
    std::vector<char*> words;
    for (std::string& word : arguments) words.push_back(word.data());
    words.push_back(nullptr);
    EXPECT_EQ(::posix_spawn(&pid_, RAILSEQ_TOOL, &actions, nullptr, words.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    output_ = pipe[0];
  }
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
  bool readSome() {
    static constexpr int kPatience = 30000;
    pollfd waited{output_, POLLIN, 0};
    if (::poll(&waited, 1, kPatience) <= 0) return false;
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
