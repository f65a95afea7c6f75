// The command `record`: writes down what a source sends.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

#include "hwrailseq.h"
#include "railseq/recording/recording_file.h"

namespace RailSeq {

struct RecordLine {
  std::string address;
  std::string file;
  // Seconds; 0: until it is stopped.
  double seconds = 0;
  // The longest file; 0: any.
  std::uint64_t maxBytes = 0;
  // Replaces a file that is there.
  bool force = false;
};

inline constexpr std::uint64_t kLeastMaxBytes = 4096;
// In seconds: some years.
inline constexpr double kLongestRecording = 1e8;

// Writes a recording of one connection after the other. Times run from its making on.
class Recorder {
 public:
  using Transport = Zol::NboAttrLog::Transport;

  // The arguments of `RecordingWriter`; `maxBytes`: as `RecordLine`.
  Recorder(std::string const& file, bool replace, std::uint64_t maxBytes);

  // A new connection: gives the transport that takes the place of `transport`, and writes down what
  // goes over it. The recorder outlives it.
  [[nodiscard]] std::unique_ptr<Transport> connected(std::string const& to,
                                                     std::unique_ptr<Transport> transport);
  void lost(std::string const& reason) { write(RecordKind::lost, reason); }
  void ended(std::string const& reason) { write(RecordKind::ended, reason); }

  // Whether the file has no room for more.
  [[nodiscard]] bool isFull() const { return room() == 0; }
  [[nodiscard]] RecordingWriter const& file() const { return writer_; }
  // Nanoseconds since the recording began.
  [[nodiscard]] std::uint64_t time() const;

 private:
  class Tee;

  void write(RecordKind kind, std::string_view bytes) { writer_.write(kind, time(), bytes); }
  // How many bytes of the source the file may still take.
  [[nodiscard]] std::size_t room() const;

  std::chrono::steady_clock::time_point start_;
  std::uint64_t maxBytes_;
  RecordingWriter writer_;
};

// Gives the exit code; tells on standard output what it does, if somebody reads it. Throws
// `InputError` for an address or a file that cannot be, `CommandError` for a source that cannot be
// reached.
[[nodiscard]] int runRecord(RecordLine const& line);

}  // namespace RailSeq
