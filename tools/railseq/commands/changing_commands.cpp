// The command line of the commands that change trees.
#include <iostream>

#include "railseq/commands/command_set.h"

namespace RailSeq {

namespace {

constexpr char const* kHowItChanges =
    " A board file stays as it is; a process must be served for writing, and has taken all when "
    "this ends with 0. It ends with 1 when something else has come back.";

void addChangeOptions(CommandSet& tool, CLI::App& command, char const* words) {
  command.add_flag("--json", tool.line.json, "Answer in JSON");
  tool.words(command, "WORDS", words).required();
  command.add_flag("--tree", tool.line.tree, "Show the trees afterwards");
}

}  // namespace

void addChangingCommands(CommandSet& tool) {
  CLI::App& set = tool.treeCommand(
      "set",
      std::string("Set attributes in the order given, and print what changed.") + kHowItChanges,
      "Examples:\n"
      "  railseq set unix:/run/agent 'switch/realUcd9012Controller[main]/ready=true'\n"
      "  railseq set --board b.json 'switch/realUcd9012Controller[main]/pollingEnabled=false'\n"
      "  railseq set --board b.json --tree "
      "'switch/realUcd9012Controller[main]/voltageRail[0]/overrideVoutUvLimit=11.4'\n"
      "  railseq set --board b.json \"switch/realUcd9012Controller[main]/voltageRail[1]/"
      "sensorMib=Entity('EntityMib::Sensor', 'VoltageSensor12V')\"\n",
      [&tool] { return runSet(tool.line, std::cout); });
  addChangeOptions(tool, set, "ADDRESS, then assignments PATH=VALUE");

  CLI::App& make = tool.treeCommand(
      "make",
      std::string("Make entities in the order given, each with the arguments of its constructor "
                  "that stand behind it, and print what was added.") +
          kHowItChanges,
      "Examples:\n"
      "  railseq make unix:/run/agent 'switch/realUcd9012Controller[main]/voltageRail[7]'\n"
      "  railseq make --board b.json 'switch/realPsocController[fan]' customerName=J7 "
      "'dexoDesc=switch/dexoDesc[main-bus]'\n"
      "  railseq make --board b.json --tree 'switch/dexoDesc[bus]' busId=3 deviceId=80 "
      "'switch/realPsocController[fan]' 'dexoDesc=switch/dexoDesc[bus]'\n\n"
      "An argument left out is null, zero or empty; railseq types tells the constructor parameters "
      "of a type.\n",
      [&tool] { return runMake(tool.line, std::cout); });
  addChangeOptions(tool, make, "ADDRESS, then paths, each with its arguments NAME=VALUE");

  CLI::App& erase = tool.treeCommand(
      "erase",
      std::string("Take out members, single entities and references in the order given, and print "
                  "what has gone.") +
          kHowItChanges,
      "Examples:\n"
      "  railseq erase unix:/run/agent 'switch/realUcd9012Controller[main]/voltageRail[1]'\n"
      "  railseq erase --board b.json --tree 'switch/realUcd9012Controller[main]/reloadCause'\n\n"
      "At an attribute with keys, without a key, all members.\n",
      [&tool] { return runErase(tool.line, std::cout); });
  addChangeOptions(tool, erase, "ADDRESS, then paths");
}

}  // namespace RailSeq
