// The command line of the commands around recordings.
#include <iostream>

#include "railseq/commands/command_set.h"

namespace RailSeq {

void addRecordingCommands(CommandSet& tool) {
  RecordLine& line = tool.record;
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
      [&tool] { return runRecord(tool.record); });
  record.add_option("ADDRESS", line.address, "unix:PATH or tcp:HOST:PORT")
      ->type_name("")
      ->required();
  record.add_option("FILE", line.file, "Where to write the recording")->type_name("")->required();
  record.add_option("--for", line.seconds, "End after so many seconds")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.001, kLongestRecording));
  record.add_option("--max-bytes", line.maxBytes, "End before the file is longer than this")
      ->type_name("N")
      ->check(CLI::Range(kLeastMaxBytes, std::uint64_t{1} << 50));
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
      [&tool] { return runReplay(tool.replay, std::cout, std::cerr); });
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
      [&tool] { return runDecode(tool.decode, std::cout, std::cerr); });
  decode.add_option("FILE", tool.decode.file, "Recording")->type_name("")->required();
  decode.add_flag("--json", tool.decode.json, "Answer in JSON, one object a line");
}

}  // namespace RailSeq
