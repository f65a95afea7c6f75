// The command line of the commands that host trees, or stay with a process that does.
#include <iostream>
#include <string>

#include "railseq/attach/health.h"
#include "railseq/commands/command_set.h"

namespace RailSeq {

namespace {

void addServe(CommandSet& tool) {
  CLI::App& serve = tool.command(
      "serve", "Host the trees of a board for any number of peers, until SIGINT or SIGTERM.",
      "Examples:\n"
      "  railseq serve examples/boards/switch-2ucd.json --listen unix:/tmp/agent\n"
      "  railseq serve examples/boards/switch-2ucd.json --listen tcp:[::1]:0 --writable\n\n"
      "Prints \"serving ROOT, ROOT at ADDRESS\" once it listens; of a port 0, with the port that "
      "was free. Everybody who can connect can read, and with --writable write: there is no "
      "password. When nobody reads what it prints, it goes on, and tells later how many lines were "
      "dropped.\n\n"
      "Exit codes: 0 ended by a signal; 1 it cannot listen there; 2 a bad board file or address, "
      "or bad usage.",
      [&tool] { return runServe(tool.serve); });
  serve.add_option("BOARD", tool.serve.board, "Board description, a JSON file of either form")
      ->type_name("")
      ->required();
  serve.add_option("--listen", tool.serve.address, "unix:PATH or tcp:HOST:PORT")
      ->type_name("ADDRESS")
      ->required();
  serve.add_flag("--writable", tool.serve.isWritable, "Peers may write");
}

void addAttached(CommandSet& tool) {
  CLI::App& watch = tool.addressCommand(
      "watch", "Print each change of attributes and members as it comes, until it is ended.",
      std::string(
          "Examples:\n"
          "  railseq watch unix:/run/agent\n"
          "  railseq watch unix:/run/agent --json 'switch/realUcd9012Controller[main]'\n"
          "\nWhen the process goes, it is tried again, at most 5 s later each time; what "
          "differs then is printed. Roots that it mounts later are followed, too. It waits for the "
          "reader of its output, and takes in no changes meanwhile.\n") +
          kAddressHelp +
          "\nExit codes: 0 ended by a signal, or its output was closed; 1 a path that cannot be; 2 "
          "a bad address, or bad usage; 3 with --no-reconnect, the process cannot be reached or "
          "has "
          "gone.",
      [&tool] { return runWatch(tool.watchOptions()); });
  tool.words(watch, "PATH", "What to watch, with all below; without a path, all");
  watch.add_flag("--initial", tool.watch.tellsInitial, "Print all values first");
  tool.addReconnect(watch);

  CLI::App& wait = tool.addressCommand(
      "wait", "Wait until an attribute has a value.",
      std::string(
          "Example:\n"
          "  railseq wait unix:/run/agent --timeout 30 "
          "'switch/realUcd9012Controller[main]/ready=true'\n"
          "\nThe path may come into being later, and so may the process; an attribute that its "
          "entity does not have ends the wait at once. With --json the value is printed.\n") +
          kAddressHelp +
          "\nExit codes: 0 it has the value; 1 ended by a signal, or a path or a value that can "
          "never be; 2 a bad address, or bad usage; 3 with --no-reconnect, the process cannot be "
          "reached or "
          "has gone; 4 timed out.",
      [&tool] { return runWait(tool.watchOptions(), std::cout); });
  tool.words(wait, "PATH=VALUE", "The value as get prints it").required()->expected(1);
  tool.addTimeout(wait, "Seconds to wait at most; without it there is no end");
  tool.addReconnect(wait);

  CLI::App& health =
      tool.addressCommand("health", "Print how a serving process sees each of its connections.",
                          std::string("Examples:\n  railseq health unix:/run/agent\n"
                                      "  railseq health --json tcp:127.0.0.1:7000\n") +
                              kAddressHelp +
                              "\nExit codes: 0 good; 1 the process gives no report; 2 a bad "
                              "address, or bad usage; 3 it "
                              "cannot be reached; 4 timed out.",
                          [&tool] { return runHealth(tool.line, std::cout); });
  tool.addTimeout(health, "Seconds that the process may take to answer, by default 10");
}

}  // namespace

void addAttachingCommands(CommandSet& tool) {
  addServe(tool);
  addAttached(tool);
}

}  // namespace RailSeq
