// Runs programs as a shell would.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <functional>
#include <string>

namespace RailSeq {

struct Outcome {
  int exitCode;
  std::string output;
};

// The exit code of a command line and all that it printed, on both streams; `watch` sees what there
// is so far behind each line.
inline Outcome shell(
    std::string const& commandLine,
    std::function<void(std::string const&)> const& watch = [](auto&) {}) {
  std::FILE* const pipe = ::popen((commandLine + " 2>&1").c_str(), "r");
  Outcome run{-1, ""};
  if (!pipe) return run;
  std::array<char, 4096> line{};
  while (std::fgets(line.data(), static_cast<int>(line.size()), pipe)) {
    run.output += line.data();
    watch(run.output);
  }
  int const status = ::pclose(pipe);
  run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

inline Outcome railseq(
    std::string const& arguments,
    std::function<void(std::string const&)> const& watch = [](auto&) {}) {
  return shell(std::string("'") + RAILSEQ_TOOL + "' " + arguments, watch);
}

}  // namespace RailSeq
