// The command line of railseq.
#include <CLI/CLI.hpp>
#include <chrono>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "host/zol/exception.h"
#include "railseq/address.h"
#include "railseq/command_error.h"
#include "railseq/commands.h"
#include "railseq/decode.h"
#include "railseq/demo.h"
#include "railseq/health.h"
#include "railseq/input_error.h"
#include "railseq/recording.h"
#include "railseq/replay.h"
#include "railseq/serve.h"
#include "railseq/watch.h"

namespace {

using RailSeq::CommandLine;

using RailSeq::ExitCode;

constexpr int kRefused = static_cast<int>(ExitCode::refused);
constexpr int kBadUsage = static_cast<int>(ExitCode::badInput);
constexpr unsigned int kLongestPause = 60000;

constexpr char const* kPathHelp =
    "\nA path begins with the name of a root; each further step is an attribute, with the key of a "
    "member in brackets. railseq tree shows them all.\n";
constexpr char const* kAddressHelp =
    "\nADDRESS is that of a process that hosts trees, such as railseq serve: unix:PATH or "
    "tcp:HOST:PORT.\n";
constexpr char const* kExitCodes =
    "\nExit codes: 0 good; 1 a path or a value that cannot be; 2 a bad board file or address, or "
    "bad "
    "usage; 3 the process cannot be reached or has gone; 4 timed out.";
constexpr double kLongestTimeout = 1e9;

struct Tool {
  CLI::App app{"Hosts and shows the shared state model of power-sequencing controllers."};
  CommandLine line;
  unsigned int pause = 0;
  RailSeq::RecordLine record;
  RailSeq::ReplayLine replay;
  RailSeq::DecodeLine decode;
  RailSeq::ServeOptions serve;
  RailSeq::WatchOptions watch;
  bool follows = false;
  bool endsWithPeer = false;

  CLI::App& command(char const* name, char const* what, std::string const& footer,
                    std::function<int()> run) {
    CLI::App* const sub = app.add_subcommand(name, what);
    sub->footer(footer);
    runs.emplace_back(sub, std::move(run));
    return *sub;
  }
  // A command on the paths of a board or of a process.
  CLI::App& treeCommand(char const* name, char const* what, std::string const& footer,
                        std::function<int()> run) {
    CLI::App& sub =
        command(name, what, footer + kPathHelp + kAddressHelp + kExitCodes, [this, name, run] {
          takeAddress();
          if (line.board.empty() && line.address.empty()) {
            throw RailSeq::InputError(name,
                                      "expected --board FILE, or an ADDRESS as the first word");
          }
          return run();
        });
    addBoard(sub, "Board description, a JSON file of either form");
    return sub;
  }
  // A command on a process alone.
  CLI::App& addressCommand(char const* name, char const* what, std::string const& footer,
                           std::function<int()> run) {
    CLI::App& sub = command(name, what, footer, std::move(run));
    sub.add_option("ADDRESS", line.address, "unix:PATH or tcp:HOST:PORT")
        ->type_name("")
        ->required();
    sub.add_flag("--json", line.json, "Answer in JSON");
    return sub;
  }
  void addBoard(CLI::App& sub, char const* what) {
    sub.add_option("--board", line.board, what)->type_name("FILE");
    addTimeout(sub, "Seconds that a process may take to answer, by default 10");
  }
  CLI::Option* addTimeout(CLI::App& sub, char const* what) {
    return sub.add_option("--timeout", line.timeout, what)
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, kLongestTimeout));
  }
  // The first word, when it is one and no board was given.
  void takeAddress() {
    if (!line.board.empty() || line.words.empty()) return;
    if (!RailSeq::isAddress(line.words.front())) return;
    line.address = line.words.front();
    line.words.erase(line.words.begin());
  }
  [[nodiscard]] RailSeq::WatchOptions const& watchOptions() {
    watch.line = line;
    watch.reconnects = !endsWithPeer;
    return watch;
  }
  void addReconnect(CLI::App& sub) {
    sub.add_flag("--no-reconnect", endsWithPeer,
                 "End with exit code 3 when the process is lost, in place of trying again");
  }
  CLI::Option& words(CLI::App& sub, char const* name, char const* what) {
    return *sub.add_option(name, line.words, what)->type_name("");
  }

  std::vector<std::pair<CLI::App*, std::function<int()>>> runs;
};

void addCommands(Tool& tool) {
  CLI::App& demo = tool.command(
      "demo", "Load a board, mirror it in a second process, make changes and compare both trees.",
      "Example:\n  railseq demo examples/boards/switch-2ucd.json\n\n"
      "Exit codes: 0 the mirror heard every change and is equal; 1 it did not, is not, or died; "
      "2 the board cannot be read, or bad usage.",
      [&tool] { return RailSeq::runDemo(tool.line.board, std::chrono::milliseconds(tool.pause)); });
  demo.add_option("BOARD", tool.line.board, "Board description, a JSON file of either form")
      ->type_name("")
      ->required();
  demo.add_option("--pause", tool.pause, "Milliseconds to wait behind each change, to read along")
      ->check(CLI::Range(kLongestPause));

  CLI::App& get = tool.treeCommand(
      "get", "Print the values at paths, one a line.",
      "Examples:\n"
      "  railseq get unix:/run/agent 'switch/realUcd9012Controller[main]/location'\n"
      "  railseq get --board b.json 'switch/realUcd9012Controller[main]/location'\n"
      "  railseq get --board b.json --json 'switch/dexoDesc[main-bus]/busId'\n",
      [&tool] { return RailSeq::runGet(tool.line, std::cout); });
  get.add_flag("--json", tool.line.json, "Answer in JSON");
  tool.words(get, "WORDS", "ADDRESS, then paths of values").required();

  CLI::App& set = tool.treeCommand(
      "set",
      "Set attributes in the order given, and print what changed. A board file stays as it is; a "
      "process must be served for writing, and has taken all when this ends with 0.",
      "Examples:\n"
      "  railseq set unix:/run/agent 'switch/realUcd9012Controller[main]/ready=true'\n"
      "  railseq set --board b.json 'switch/realUcd9012Controller[main]/pollingEnabled=false'\n"
      "  railseq set --board b.json --tree "
      "'switch/realUcd9012Controller[main]/voltageRail[0]/overrideVoutUvLimit=11.4'\n",
      [&tool] { return RailSeq::runSet(tool.line, std::cout); });
  set.add_flag("--json", tool.line.json, "Answer in JSON");
  tool.words(set, "WORDS", "ADDRESS, then assignments PATH=VALUE").required();
  set.add_flag("--tree", tool.line.tree, "Show the trees afterwards");

  CLI::App& count = tool.treeCommand(
      "count", "Print the numbers of members of attributes with keys, one a line.",
      "Examples:\n"
      "  railseq count tcp:[::1]:7000 'switch/realUcd9012Controller'\n"
      "  railseq count --board b.json 'switch/realUcd9012Controller[main]/voltageRail'\n",
      [&tool] { return RailSeq::runCount(tool.line, std::cout); });
  count.add_flag("--json", tool.line.json, "Answer in JSON");
  tool.words(count, "WORDS", "ADDRESS, then paths of attributes, without a key at the end")
      .required();

  CLI::App& tree = tool.treeCommand(
      "tree",
      "Print what stands at paths and below; without a path, all. With --json and without "
      "a path, that is a board file again.",
      "Examples:\n"
      "  railseq tree unix:/run/agent\n"
      "  railseq tree unix:/run/agent --follow 'switch/realUcd9012Controller[main]'\n"
      "  railseq tree --board b.json 'switch/realUcd9012Controller[main]/voltageRail'\n"
      "  railseq tree --board public-form.json --json > own-form.json\n",
      [&tool] {
        if (!tool.follows) return RailSeq::runTree(tool.line, std::cout);
        if (tool.line.address.empty()) {
          throw RailSeq::InputError("tree", "--follow needs an ADDRESS");
        }
        return RailSeq::runTreeFollow(tool.watchOptions());
      });
  tree.add_flag("--json", tool.line.json, "Answer in JSON");
  tree.add_flag("--follow", tool.follows, "Print it again behind changes, until it is ended");
  tool.addReconnect(tree);
  tool.words(tree, "WORDS", "ADDRESS, then paths");

  CLI::App& types = tool.command(
      "types",
      "List the types of the model in the order of their registration, or show the attributes of "
      "types.",
      std::string("Examples:\n  railseq types\n  railseq types ControllerConfig\n"
                  "  railseq types --board b.json 'switch/realUcd9012Controller[main]'\n\n"
                  "Exit codes: 0 good; 1 no such type, or a path that cannot be; 2 a bad board "
                  "file or address, or bad usage; 3 the process cannot be reached; 4 timed out."),
      [&tool] {
        tool.takeAddress();
        return RailSeq::runTypes(tool.line, std::cout);
      });
  tool.addBoard(types, "Take the names for paths of this board");
  types.add_flag("--json", tool.line.json, "Answer in JSON");
  tool.words(
      types, "TYPE",
      "Bare or full names, such as ControllerConfig; with --board or behind an ADDRESS, paths");

  CLI::App& lint =
      tool.command("lint", "Check a board description.",
                   "Example:\n  railseq lint examples/boards/switch-2ucd.json\n\n"
                   "Exit codes: 0 good; 1 there are warnings; 2 it cannot be read, or bad usage.",
                   [&tool] { return RailSeq::runLint(tool.line, std::cout); });
  lint.add_option("BOARD", tool.line.board, "Board description, a JSON file of either form")
      ->type_name("")
      ->required();
  lint.add_flag("--json", tool.line.json, "Answer in JSON");

  CLI::App& complete = tool.command(
      "complete", "Print the completions of the beginning of a path, or of PATH=VALUE, one a line.",
      "Examples:\n  railseq complete config/dexo\n"
      "  railseq complete --board b.json 'switch/realUcd9012Controller['\n\n"
      "Exit codes: 0 good, also without a completion; 2 a bad board file, or bad usage.",
      [&tool] {
        tool.takeAddress();
        return RailSeq::runComplete(tool.line, std::cout);
      });
  tool.addBoard(complete, "Board; without one or an ADDRESS, the types alone are asked");
  tool.words(complete, "WORDS", "ADDRESS, then what is there of the path").expected(0, 2);
}

void addServe(Tool& tool) {
  CLI::App& serve = tool.command(
      "serve", "Host the trees of a board for any number of peers, until SIGINT or SIGTERM.",
      "Examples:\n"
      "  railseq serve examples/boards/switch-2ucd.json --listen unix:/tmp/agent\n"
      "  railseq serve examples/boards/switch-2ucd.json --listen tcp:[::1]:0 --writable\n\n"
      "Prints \"serving ROOT, ROOT at ADDRESS\" once it listens; of a port 0, with the port that "
      "was "
      "free. Everybody who can connect can read, and with --writable write: there is no "
      "password.\n\n"
      "Exit codes: 0 ended by a signal; 1 it cannot listen there; 2 a bad board file or address, "
      "or "
      "bad usage.",
      [&tool] { return RailSeq::runServe(tool.serve); });
  serve.add_option("BOARD", tool.serve.board, "Board description, a JSON file of either form")
      ->type_name("")
      ->required();
  serve.add_option("--listen", tool.serve.address, "unix:PATH or tcp:HOST:PORT")
      ->type_name("ADDRESS")
      ->required();
  serve.add_flag("--writable", tool.serve.isWritable, "Peers may write");
}

void addAttached(Tool& tool) {
  CLI::App& watch = tool.addressCommand(
      "watch", "Print each change of attributes and members as it comes, until it is ended.",
      std::string("Examples:\n"
                  "  railseq watch unix:/run/agent\n"
                  "  railseq watch unix:/run/agent --json 'switch/realUcd9012Controller[main]'\n"
                  "\nWhen the process goes, it is tried again, at most 5 s later each time; what "
                  "differs then is printed.\n") +
          kAddressHelp +
          "\nExit codes: 0 ended by a signal, or its output was closed; 1 a path that cannot be; 2 "
          "a "
          "bad address, or bad usage; 3 with --no-reconnect, the process cannot be reached or has "
          "gone.",
      [&tool] { return RailSeq::runWatch(tool.watchOptions()); });
  tool.words(watch, "PATH", "What to watch, with all below; without a path, all");
  watch.add_flag("--initial", tool.watch.tellsInitial, "Print all values first");
  tool.addReconnect(watch);

  CLI::App& wait = tool.addressCommand(
      "wait", "Wait until an attribute has a value.",
      std::string("Example:\n"
                  "  railseq wait unix:/run/agent --timeout 30 "
                  "'switch/realUcd9012Controller[main]/ready=true'\n"
                  "\nThe path may come into being later, and so may the process.\n") +
          kAddressHelp +
          "\nExit codes: 0 it has the value; 1 ended by a signal, or a value that it can never "
          "have; "
          "2 a bad address, or bad usage; 3 with --no-reconnect, the process cannot be reached or "
          "has "
          "gone; 4 timed out.",
      [&tool] { return RailSeq::runWait(tool.watchOptions()); });
  tool.words(wait, "PATH=VALUE", "The value as get prints it").required()->expected(1);
  CLI::Option* const timeout =
      tool.addTimeout(wait, "Seconds to wait at most; without it there is no end");
  wait.callback([&tool, timeout] {
    if (timeout->count() == 0) tool.line.timeout = 0;
  });
  tool.addReconnect(wait);

  CLI::App& health =
      tool.addressCommand("health", "Print how a serving process sees each of its connections.",
                          std::string("Examples:\n  railseq health unix:/run/agent\n"
                                      "  railseq health --json tcp:127.0.0.1:7000\n") +
                              kAddressHelp +
                              "\nExit codes: 0 good; 1 the process gives no report; 2 a bad "
                              "address, or bad usage; 3 it "
                              "cannot be reached; 4 timed out.",
                          [&tool] { return RailSeq::runHealth(tool.line, std::cout); });
  tool.addTimeout(health, "Seconds that the process may take to answer, by default 10");
}

void addRecordingCommands(Tool& tool) {
  RailSeq::RecordLine& line = tool.record;
  CLI::App& record = tool.command(
      "record",
      "Record what a process sends that hosts trees, from its full state on, until SIGINT or "
      "SIGTERM. A source that goes and comes back is recorded on in the same file.",
      "Examples:\n"
      "  railseq record unix:/run/agent.sock night.rec\n"
      "  railseq record tcp:10.0.0.7:7000 hour.rec --for 3600 --max-bytes 100000000\n\n"
      "Exit codes: 0 good; 2 a bad address, a file that is there already or cannot be written, or "
      "bad usage; 3 the source cannot be reached, or was lost at the end; 4 it did not answer in "
      "time.",
      [&tool] { return RailSeq::runRecord(tool.record, std::cout); });
  record.add_option("ADDRESS", line.address, "unix:PATH or tcp:HOST:PORT")
      ->type_name("")
      ->required();
  record.add_option("FILE", line.file, "Where to write the recording")->type_name("")->required();
  record.add_option("--for", line.seconds, "End after so many seconds")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.001, RailSeq::kLongestRecording));
  record.add_option("--max-bytes", line.maxBytes, "End before the file is longer than this")
      ->type_name("N")
      ->check(CLI::Range(RailSeq::kLeastMaxBytes, std::uint64_t{1} << 50));
  record.add_flag("--force", line.force, "Replace a file that is there");

  CLI::App& replay = tool.command(
      "replay",
      "Show the trees of a recording as they were at a time, what differs between two times, or "
      "every change.",
      "Examples:\n"
      "  railseq replay night.rec                                   # at the end\n"
      "  railseq replay night.rec --at 12.5 'switch/realUcd9012Controller[main]'\n"
      "  railseq replay night.rec --from 2026-11-22T03:10:00Z --to 2026-11-22T03:20:00Z\n"
      "  railseq replay night.rec --changes\n\n"
      "A time is seconds from the beginning of the recording, or a time of day as above. "
      "What is to be known besides, such as a state that is not complete, stands on standard "
      "error.\n\n"
      "Exit codes: 0 good; 1 a path that cannot be, or the file is damaged and was read up to the "
      "damage; 2 no recording, or bad usage.",
      [&tool] { return RailSeq::runReplay(tool.replay, std::cout, std::cerr); });
  replay.add_option("FILE", tool.replay.file, "Recording")->type_name("")->required();
  replay.add_option("PATH", tool.replay.paths, "Paths; without one, all")->type_name("");
  replay.add_option("--at", tool.replay.at, "The state at this time")->type_name("TIME");
  replay.add_option("--from", tool.replay.from, "What differs from this time on")
      ->type_name("TIME");
  replay.add_option("--to", tool.replay.to, "... up to this time; otherwise to the end")
      ->type_name("TIME");
  replay.add_flag("--changes", tool.replay.changes, "Every change, with its time");
  replay.add_flag("--json", tool.replay.json,
                  "Answer in JSON; with --changes one object a line, else one document");

  CLI::App& decode = tool.command(
      "decode", "Print the messages of a recording, one a line, with names and values.",
      "Examples:\n  railseq decode night.rec\n"
      "  railseq decode --json night.rec | jq 'select(.attribute == \"pollingEnabled\")'\n\n"
      "<- is from the source, -> from the recorder, -- what happened to the connection.\n\n"
      "Exit codes: 0 good; 1 the file is damaged and was read up to the damage; 2 no recording, or "
      "bad usage.",
      [&tool] { return RailSeq::runDecode(tool.decode, std::cout, std::cerr); });
  decode.add_option("FILE", tool.decode.file, "Recording")->type_name("")->required();
  decode.add_flag("--json", tool.decode.json, "Answer in JSON, one object a line");
}

int run(int argc, char** argv) {
  Tool tool;
  tool.app.name("railseq");
  tool.app.require_subcommand(0, 1);
  tool.app.footer(
      "Example:\n  railseq tree --board examples/boards/switch-2ucd.json\n\n"
      "railseq COMMAND --help tells more. Exit codes: 0 good; 1 see the command; 2 bad input or "
      "usage; 3 a process cannot be reached or has gone; 4 timed out.");
  addCommands(tool);
  addRecordingCommands(tool);
  addServe(tool);
  addAttached(tool);
  try {
    tool.app.parse(argc, argv);
  } catch (CLI::ParseError const& error) {
    return tool.app.exit(error) == 0 ? 0 : kBadUsage;
  }
  for (auto const& [sub, runIt] : tool.runs) {
    if (sub->parsed()) return runIt();
  }
  std::cerr << "railseq: a command is required; railseq --help shows them\n";
  return kBadUsage;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (RailSeq::CommandError const& error) {
    std::cerr << "railseq: " << error.what() << '\n';
    return static_cast<int>(error.code());
  } catch (Zol::Exception const& error) {
    std::cerr << "railseq: " << error.what() << '\n';
    return kRefused;
  } catch (std::exception const& error) {
    std::cerr << "railseq: " << error.what() << '\n';
    return kBadUsage;
  }
}
