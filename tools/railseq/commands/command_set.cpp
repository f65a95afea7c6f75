// Builds commands of the kinds that there are.
#include "railseq/commands/command_set.h"

#include <charconv>

#include "railseq/attach/address.h"
#include "railseq/base/input_error.h"

namespace RailSeq {

namespace {

constexpr char const* kPathHelp =
    "\nA path begins with the name of a root; each further step is an attribute, with the key of a "
    "member in brackets. railseq tree shows them all.\n";
constexpr char const* kExitCodes =
    "\nExit codes: 0 good; 1 a path or a value that cannot be; 2 a bad board file or address, or "
    "bad usage; 3 the process cannot be reached or has gone; 4 timed out.";
constexpr double kLongestTimeout = 1e9;

// What is wrong with a timeout; a range of CLI11 takes "nan".
std::string badTimeout(std::string const& text) {
  double seconds = -1;
  std::from_chars(text.data(), text.data() + text.size(), seconds);
  bool const isGood = seconds >= 0 && seconds <= kLongestTimeout;
  return isGood ? "" : "found " + text + ", expected seconds from 0 to 1000000000";
}

}  // namespace

CLI::App& CommandSet::command(char const* name, char const* what, std::string const& footer,
                              std::function<int()> run) {
  CLI::App* const sub = app.add_subcommand(name, what);
  sub->footer(footer);
  runs.emplace_back(sub, std::move(run));
  return *sub;
}

CLI::App& CommandSet::treeCommand(char const* name, char const* what, std::string const& footer,
                                  std::function<int()> run, bool needsWords) {
  CLI::App& sub = command(
      name, what, footer + kPathHelp + kAddressHelp + kExitCodes, [this, name, run, needsWords] {
        takeAddress();
        if (line.board.empty() && line.address.empty()) {
          throw InputError(name, "expected --board FILE, or an ADDRESS as the first word");
        }
        if (needsWords && line.words.empty()) {
          throw InputError(name, "expected a word behind the ADDRESS");
        }
        return run();
      });
  addBoard(sub, "Board description, a JSON file of either form");
  return sub;
}

CLI::App& CommandSet::addressCommand(char const* name, char const* what, std::string const& footer,
                                     std::function<int()> run) {
  CLI::App& sub = command(name, what, footer, std::move(run));
  sub.add_option("ADDRESS", line.address, "unix:PATH or tcp:HOST:PORT")->type_name("")->required();
  sub.add_flag("--json", line.json, "Answer in JSON");
  return sub;
}

void CommandSet::addBoard(CLI::App& sub, char const* what) {
  sub.add_option("--board", line.board, what)->type_name("FILE");
  addTimeout(sub,
             "Seconds that a process may take to answer, by default 10, and to mount the root of a "
             "path, by default 0.2");
}

void CommandSet::addTimeout(CLI::App& sub, char const* what) {
  sub.add_option("--timeout", line.timeout, what)
      ->type_name("SECONDS")
      ->check(&badTimeout)
      ->each([this](std::string const&) { line.hasTimeout = true; });
}

void CommandSet::takeAddress() {
  if (!line.board.empty() || line.words.empty()) return;
  if (!isAddress(line.words.front())) return;
  line.address = line.words.front();
  line.words.erase(line.words.begin());
}

WatchOptions const& CommandSet::watchOptions() {
  watch.line = line;
  watch.reconnects = !endsWithPeer;
  return watch;
}

void CommandSet::addReconnect(CLI::App& sub) {
  sub.add_flag("--no-reconnect", endsWithPeer,
               "End with exit code 3 when the process is lost, in place of trying again");
}

CLI::Option& CommandSet::words(CLI::App& sub, char const* name, char const* what) {
  return *sub.add_option(name, line.words, what)->type_name("");
}

}  // namespace RailSeq
