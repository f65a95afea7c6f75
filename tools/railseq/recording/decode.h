// The command `decode`: the messages of a recording, one a line.
#pragma once

#include <iosfwd>
#include <string>

namespace RailSeq {

struct DecodeLine {
  // The recording.
  std::string file;
  bool json = false;
};

class RecordingReader;

// Gives the exit code; what is wrong with the file goes to `notes`. Throws `InputError` for a file
// that is no recording.
[[nodiscard]] int runDecode(DecodeLine const& line, std::ostream& out, std::ostream& notes);
[[nodiscard]] int decode(RecordingReader& reader, bool asJson, std::ostream& out,
                         std::ostream& notes);

}  // namespace RailSeq
