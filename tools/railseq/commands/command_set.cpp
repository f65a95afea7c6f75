// Builds commands of the kinds that there are.
#include "railseq/commands/command_set.h"

#include <charconv>

#include "railseq/attach/address.h"
#include "railseq/base/input_error.h"
#include "railseq/base/wording.h"

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

[[nodiscard]] std::vector<std::string> optionsOf(CLI::App const& app) {
  std::vector<std::string> names;
  for (CLI::Option const* const option : app.get_options()) {
    for (std::string const& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

}  // namespace

CommandSet::CommandSet() { app.set_version_flag("--version", "railseq " RAILSEQ_VERSION); }

CLI::App& CommandSet::command(char const* name, std::string const& what, std::string const& footer,
                              std::function<int()> run) {
  CLI::App* const sub = app.add_subcommand(name, what);
  sub->footer(footer);
  runs.emplace_back(sub, std::move(run));
  return *sub;
}

CLI::App& CommandSet::treeCommand(char const* name, std::string const& what,
                                  std::string const& footer, std::function<int()> run,
                                  bool needsWords) {
  CLI::App& sub = command(
      name, what, footer + kPathHelp + kAddressHelp + kExitCodes, [this, name, run, needsWords] {
        takeAddress(name);
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

void CommandSet::takeAddress(char const* command) {
  if (line.words.empty() || !isAddress(line.words.front())) return;
  if (!line.board.empty()) {
    throw InputError(command, "found the address " + inQuotes(line.words.front()) +
                                  " beside --board, expected one of the two");
  }
  line.address = line.words.front();
  line.words.erase(line.words.begin());
}

std::string CommandSet::complaint(CLI::ParseError const& error) const {
  std::vector<CLI::App*> const given = app.get_subcommands();
  CLI::App const& at = given.empty() ? app : *given.front();
  std::string const name = given.empty() ? "" : at.get_name() + ": ";
  std::string const help = "; see railseq " + (given.empty() ? "" : at.get_name() + " ") + "--help";
  std::vector<std::string> const extras = at.remaining();
  bool const isExtra = dynamic_cast<CLI::ExtrasError const*>(&error) != nullptr;
  if (!isExtra || extras.empty()) return name + error.what() + help;
  std::string const& extra = extras.front();
  if (extra.starts_with('-')) {
    return name + "unknown option " + inQuotes(extra) + ", expected " +
           suggestion(extra, optionsOf(at)) + help;
  }
  if (!given.empty()) return name + "found " + inQuotes(extra) + ", expected no more words" + help;
  std::vector<std::string> commands;
  for (auto const& [sub, runIt] : runs) commands.push_back(sub->get_name());
  return "unknown command " + inQuotes(extra) + ", expected " + suggestion(extra, commands) + help;
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
