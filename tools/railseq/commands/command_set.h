// What the definitions of the commands on the command line have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "railseq/attach/serve.h"
#include "railseq/attach/watch.h"
#include "railseq/commands/commands.h"
#include "railseq/recording/decode.h"
#include "railseq/recording/recording.h"
#include "railseq/recording/replay.h"

namespace RailSeq {

inline constexpr char const* kAddressHelp =
    "\nADDRESS is that of a process that hosts trees, such as railseq serve: unix:PATH or "
    "tcp:HOST:PORT.\n";
// The commands, and what their options are read into.
struct CommandSet {
  CommandSet();

  CLI::App app{"Hosts and shows the shared state model of power-sequencing controllers."};
  CommandLine line;
  unsigned int pause = 0;
  ServeOptions serve;
  WatchOptions watch;
  bool follows = false;
  bool endsWithPeer = false;
  RecordLine record;
  ReplayLine replay;
  DecodeLine decode;

  CLI::App& command(char const* name, std::string const& what, std::string const& footer,
                    std::function<int()> run);
  // A command on the paths of a board or of a process.
  CLI::App& treeCommand(char const* name, std::string const& what, std::string const& footer,
                        std::function<int()> run, bool needsWords = true);
  // A command on a process alone.
  CLI::App& addressCommand(char const* name, char const* what, std::string const& footer,
                           std::function<int()> run);
  void addBoard(CLI::App& sub, char const* what);
  void addTimeout(CLI::App& sub, char const* what);
  void addReconnect(CLI::App& sub);
  CLI::Option& words(CLI::App& sub, char const* name, char const* what);
  // The first word, when it is one. Throws `InputError` when there is a board, too.
  void takeAddress(char const* command);
  // What is wrong with the command line, with what was expected where that is known.
  [[nodiscard]] std::string complaint(CLI::ParseError const& error) const;
  [[nodiscard]] WatchOptions const& watchOptions();

  std::vector<std::pair<CLI::App*, std::function<int()>>> runs;
};

// set, make and erase.
void addChangingCommands(CommandSet& tool);
// serve, watch, wait and health.
void addAttachingCommands(CommandSet& tool);
// record, replay and decode.
void addRecordingCommands(CommandSet& tool);

}  // namespace RailSeq
