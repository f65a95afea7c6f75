// The file of a recording: records behind a header, each with its time and a checksum, so that a
// file that was cut or damaged is read up to its last whole record. docs/recordings.md has it byte
// by byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace RailSeq {

// The CRC-32 of Ethernet and zip, going on from `former`.
[[nodiscard]] std::uint32_t crc32(std::string_view bytes, std::uint32_t former = 0);

// Do not change: the numbers are in the files. A reader skips a kind that it does not know.
enum class RecordKind : std::uint8_t {
  connected = 1,  // the text says to what; bytes from now on belong to a new connection
  received = 2,   // bytes of the source
  sent = 3,       // bytes of the recorder
  lost = 4,       // the connection has ended; the text says why
  ended = 5,      // the recorder has ended in good order; the text says why
};

struct Record {
  RecordKind kind = RecordKind::ended;
  // Nanoseconds since the recording began.
  std::uint64_t time = 0;
  std::string bytes;
};

inline constexpr std::string_view kRecordingMagic = "RAILREC\n";
inline constexpr std::uint16_t kRecordingVersion = 1;
inline constexpr std::size_t kRecordingHeaderSize = 22;
// What a record takes besides its bytes.
inline constexpr std::size_t kRecordOverhead = 17;
// The most bytes that one record holds.
inline constexpr std::size_t kMaxRecordBytes = std::size_t{1} << 20;

// The bytes of a header and of a record. `startedAt`: nanoseconds since the epoch; `bytes`: at most
// `kMaxRecordBytes`.
[[nodiscard]] std::string recordingHeader(std::uint64_t startedAt);
[[nodiscard]] std::string recordText(RecordKind kind, std::uint64_t time, std::string_view bytes);

// Writes a new file. Each record has left the process when `write` returns.
class RecordingWriter {
 public:
  // `startedAt`: nanoseconds since the epoch. Throws `InputError` for a file that cannot be made,
  // and unless `replace` for one that is there.
  RecordingWriter(std::string file, std::uint64_t startedAt, bool replace);
  RecordingWriter(RecordingWriter const&) = delete;
  RecordingWriter& operator=(RecordingWriter const&) = delete;
  ~RecordingWriter();

  // Bytes beyond `kMaxRecordBytes` go into further records. Throws `InputError`.
  void write(RecordKind kind, std::uint64_t time, std::string_view bytes);
  // What the file has by now, the header included.
  [[nodiscard]] std::uint64_t size() const { return size_; }
  [[nodiscard]] std::uint64_t records() const { return records_; }

 private:
  void append(std::string const& bytes);

  std::string file_;
  int fd_;
  std::uint64_t size_ = 0;
  std::uint64_t records_ = 0;
};

class RecordingReader {
 public:
  // `file` is only used in messages. Throws `InputError` for what is no recording.
  RecordingReader(std::unique_ptr<std::istream> in, std::string file);
  // Throws `InputError` for a file that cannot be read too.
  explicit RecordingReader(std::string const& file);

  // The next good record; nothing at the end and from the first damage on.
  [[nodiscard]] std::optional<Record> next();

  // Nanoseconds since the epoch.
  [[nodiscard]] std::uint64_t startedAt() const { return startedAt_; }
  // The time of the last record that was read.
  [[nodiscard]] std::uint64_t time() const { return time_; }
  // After the last record: where and why the file ends early, with the name of the file; empty for
  // whole records up to its end.
  [[nodiscard]] std::string const& damage() const { return damage_; }
  // Whether the recorder has ended in good order.
  [[nodiscard]] bool hasEnd() const { return hasEnd_; }

 private:
  // Reads exactly so many bytes, or what is left.
  [[nodiscard]] std::string take(std::size_t count);
  void damaged(std::uint64_t at, std::string const& why);

  std::unique_ptr<std::istream> in_;
  std::string file_;
  std::uint64_t startedAt_ = 0;
  std::uint64_t position_ = 0;
  std::uint64_t records_ = 0;
  std::uint64_t time_ = 0;
  bool hasEnd_ = false;
  std::string damage_;
};

}  // namespace RailSeq
