// The command line of railseq.
#include <CLI/CLI.hpp>
#include <chrono>
#include <exception>
#include <iostream>
#include <string>

#include "railseq/demo.h"
#include "railseq/input_error.h"
#include "railseq/types.h"

namespace {

constexpr int kBadUsage = 2;
constexpr unsigned int kLongestPause = 60000;

int run(int argc, char** argv) {
  CLI::App app{"Hosts and shows the shared state model of power-sequencing controllers."};
  app.name("railseq");
  app.require_subcommand(0, 1);
  app.footer("Exit codes: 0 good; 1 see the command; 2 bad input or usage.");

  std::string board;
  unsigned int pause = 0;
  CLI::App* const demo = app.add_subcommand(
      "demo", "Load a board, mirror it in a second process, make changes and compare both trees.");
  demo->footer(
      "Exit codes: 0 the mirror heard every change and is equal; 1 it did not, is not, or died; "
      "2 the board cannot be read, or bad usage.");
  demo->add_option("BOARD", board, "Board description, a JSON file of either form")->required();
  demo->add_option("--pause", pause, "Milliseconds to wait behind each change, to read along")
      ->check(CLI::Range(kLongestPause));

  std::string type;
  CLI::App* const types = app.add_subcommand(
      "types",
      "List the types of the model in the order of their registration, or show the attributes of "
      "one type.");
  types->footer("Exit codes: 0 good; 1 no such type; 2 bad usage.");
  types->add_option("TYPE", type, "Bare or full name, such as ControllerConfig");

  try {
    app.parse(argc, argv);
  } catch (CLI::ParseError const& error) {
    return app.exit(error) == 0 ? 0 : kBadUsage;
  }
  if (demo->parsed()) return RailSeq::runDemo(board, std::chrono::milliseconds(pause));
  if (types->parsed()) {
    return type.empty() ? RailSeq::listTypes(std::cout)
                        : RailSeq::showType(type, std::cout, std::cerr);
  }
  std::cerr << "railseq: a command is required; railseq --help shows them\n";
  return kBadUsage;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (std::exception const& error) {
    std::cerr << "railseq: " << error.what() << '\n';
    return kBadUsage;
  }
}
