// What the words and options of most commands are read into.
#pragma once

#include <string>
#include <vector>

namespace RailSeq {

struct CommandLine {
  // The board file; empty when none was given.
  std::string board;
  // The process to attach to; empty when none was given.
  std::string address = {};
  // Seconds that an answer may take.
  double timeout = 10;
  // Whether they were given.
  bool hasTimeout = false;
  // Paths, assignments or names of types.
  std::vector<std::string> words;
  bool json = false;
  // After `set`: show the trees.
  bool tree = false;
};

}  // namespace RailSeq
