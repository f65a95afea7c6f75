// Recordings, and what a recorded source may have sent.
#include <sstream>

#include "fuzz/fuzz.h"
#include "railseq/base/input_error.h"
#include "railseq/recording/decode.h"
#include "railseq/recording/recording_file.h"

namespace {

void decodeAll(std::string content, bool asJson) {
  std::ostringstream out;
  try {
    RailSeq::RecordingReader reader(std::make_unique<std::istringstream>(std::move(content)), "r");
    (void)RailSeq::decode(reader, asJson, out, out);
  } catch (RailSeq::InputError const&) {
    // No recording.
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string const bytes(reinterpret_cast<char const*>(data), size);
  decodeAll(bytes, false);
  // The same as the bytes of a source.
  using RailSeq::RecordKind;
  std::string const recorded = RailSeq::recordingHeader(0) +
                               RailSeq::recordText(RecordKind::connected, 1, "r") +
                               RailSeq::recordText(RecordKind::received, 2, bytes) +
                               RailSeq::recordText(RecordKind::lost, 3, "") +
                               RailSeq::recordText(RecordKind::sent, 4, bytes);
  decodeAll(recorded, false);
  decodeAll(recorded, true);
  return 0;
}
