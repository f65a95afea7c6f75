// The command line of railseq.
#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <chrono>
#include <exception>
#include <iostream>
#include <string>

#include "host/zol/exception.h"
#include "railseq/attach/output.h"
#include "railseq/base/command_error.h"
#include "railseq/base/input_error.h"
#include "railseq/commands/command_set.h"
#include "railseq/demo/demo.h"

namespace {

using RailSeq::CommandSet;

using RailSeq::ExitCode;

constexpr int kRefused = static_cast<int>(ExitCode::refused);
constexpr int kBadUsage = static_cast<int>(ExitCode::badInput);
constexpr unsigned int kLongestPause = 60000;

void addCommands(CommandSet& tool) {
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

  RailSeq::addChangingCommands(tool);

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
      },
      false);
  tree.add_flag("--json", tool.line.json, "Answer in JSON");
  tree.add_flag("--follow", tool.follows, "Print it again when it has changed, until it is ended");
  tool.addReconnect(tree);
  tool.words(tree, "WORDS", "ADDRESS, then paths");

  CLI::App& types = tool.command(
      "types",
      "List the types of the model in the order of their registration, or show the attributes of "
      "types. With a board or an ADDRESS, the types of what stands there.",
      std::string("Examples:\n  railseq types\n  railseq types ControllerConfig\n"
                  "  railseq types unix:/run/agent\n"
                  "  railseq types --board b.json 'switch/realUcd9012Controller[main]'\n\n"
                  "Exit codes: 0 good; 1 no such type, or a path that cannot be; 2 a bad board "
                  "file or address, or bad usage; 3 the process cannot be reached; 4 timed out."),
      [&tool] {
        tool.takeAddress("types");
        return RailSeq::runTypes(tool.line, std::cout);
      });
  tool.addBoard(types, "The types of this board, or of what stands at paths of it");
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
        tool.takeAddress("complete");
        return RailSeq::runComplete(tool.line, std::cout);
      });
  tool.addBoard(complete, "Board; without one or an ADDRESS, the types alone are asked");
  tool.words(complete, "WORDS", "ADDRESS, then what is there of the path");
}

int run(int argc, char** argv) {
  CommandSet tool;
  tool.app.name("railseq");
  tool.app.require_subcommand(0, 1);
  tool.app.footer(
      "Example:\n  railseq tree --board examples/boards/switch-2ucd.json\n\n"
      "railseq COMMAND --help tells more. Exit codes: 0 good; 1 see the command; 2 bad input or "
      "usage; 3 a process cannot be reached or has gone; 4 timed out.");
  addCommands(tool);
  RailSeq::addAttachingCommands(tool);
  RailSeq::addRecordingCommands(tool);
  try {
    tool.app.parse(argc, argv);
  } catch (CLI::ParseError const& error) {
    if (error.get_exit_code() == 0) return tool.app.exit(error);
    std::cerr << "railseq: " << tool.complaint(error) << '\n';
    return kBadUsage;
  }
  for (auto const& [sub, runIt] : tool.runs) {
    if (sub->parsed()) return runIt();
  }
  std::cerr << "railseq: a command is required; railseq --help shows them\n";
  return kBadUsage;
}

// A descriptor that is opened later would otherwise take the place of a standard stream that is
// closed, and get what is printed.
void openStandardStreams() {
  for (int const fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(fd, F_GETFD) < 0 && errno == EBADF) (void)::open("/dev/null", O_RDWR);
  }
}

// The exit code, with which what could not be written is a failure. That the reader has gone is
// none: it has had enough.
[[nodiscard]] int withOutput(int exitCode, RailSeq::OutputBuffer const& output) {
  std::cout.flush();
  if (output.error() == 0 || output.error() == EPIPE) return exitCode;
  std::cerr << "railseq: " << RailSeq::writeError(output.error()).what() << '\n';
  return exitCode == 0 ? kRefused : exitCode;
}

[[nodiscard]] int guardedRun(int argc, char** argv) {
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

}  // namespace

int main(int argc, char** argv) {
  openStandardStreams();
  RailSeq::OutputBuffer output(STDOUT_FILENO);
  std::streambuf* const former = std::cout.rdbuf(&output);
  int const exitCode = withOutput(guardedRun(argc, argv), output);
  std::cout.rdbuf(former);
  return exitCode;
}
