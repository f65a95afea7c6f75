// Makes the two processes of the demonstration.
#include "railseq/demo/demo.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <system_error>
#include <vector>

#include "railseq/demo/demo_ends.h"

namespace RailSeq {

namespace {

[[noreturn]] void throwSystemError(char const* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

int runDemo(std::string const& boardFile, std::chrono::milliseconds pause) {
  Board const board = readBoard(boardFile);
  for (std::string const& note : board.notes) std::cout << note << '\n';

  std::array<int, 2> log{};
  std::array<int, 2> report{};
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, log.data()) != 0) throwSystemError("socketpair");
  if (::pipe(report.data()) != 0) throwSystemError("pipe");
  // Either end is to learn from its calls that the other has gone.
  std::signal(SIGPIPE, SIG_IGN);
  // What waits in the buffer now would otherwise be printed by both processes.
  if (!std::cout.flush()) return 0;  // told at the end of all
  pid_t const mirror = ::fork();
  if (mirror < 0) throwSystemError("fork");
  if (mirror == 0) {
    ::close(log[0]);
    ::close(report[0]);
    std::vector<Zol::Name> names;
    for (Zol::Ptr<Zol::Entity> const& root : board.roots()) names.push_back(root->name());
    return runMirror(names, log[1], report[1]);
  }
  ::close(log[1]);
  ::close(report[1]);
  return runSource(board, {.pid = mirror, .logFd = log[0], .reportFd = report[0]}, pause);
}

}  // namespace RailSeq
