// Writes and reads the records of a recording.
#include "railseq/recording/recording_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "railseq/base/input_error.h"
#include "railseq/base/wording.h"

namespace RailSeq {

namespace {

constexpr std::size_t kLengthSize = 4;
constexpr std::size_t kChecksumSize = 4;
constexpr std::size_t kRecordHeadSize = kRecordOverhead - kChecksumSize;

// The remainders of all bytes by the reversed polynomial.
constexpr std::array<std::uint32_t, 256> kCrcTable = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    std::uint32_t rest = i;
    for (int bit = 0; bit < 8; ++bit) rest = (rest >> 1U) ^ ((rest & 1U) != 0 ? 0xedb88320U : 0U);
    table[i] = rest;
  }
  return table;
}();

void appendNumber(std::string& to, std::uint64_t value, std::size_t size) {
  while (size-- > 0) to += static_cast<char>(value >> (8 * size));
}

[[nodiscard]] std::uint64_t numberAt(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint64_t value = 0;
  for (char const byte : bytes.substr(at, size)) {
    value = (value << 8U) | static_cast<unsigned char>(byte);
  }
  return value;
}

[[nodiscard]] std::string systemError() { return std::strerror(errno); }

[[nodiscard]] std::unique_ptr<std::istream> openFile(std::string const& file) {
  auto in = std::make_unique<std::ifstream>(file, std::ios::binary);
  // A directory opens, and fails at the first byte.
  if (*in) in->peek();
  if (in->bad() || !in->is_open()) {
    throw InputError(file, "cannot be read: " + systemError());
  }
  in->clear();
  return in;
}

// A new file takes the place of the old one: who reads the old one meanwhile keeps it whole.
void removeOld(std::string const& file) {
  struct stat status {};
  if (::lstat(file.c_str(), &status) != 0) return;
  if (!S_ISREG(status.st_mode)) throw InputError(file, "is no plain file, and is not replaced");
  if (::unlink(file.c_str()) != 0) {
    throw InputError(file, "cannot be replaced: " + systemError());
  }
}

}  // namespace

std::uint32_t crc32(std::string_view bytes, std::uint32_t former) {
  std::uint32_t rest = ~former;
  for (char const byte : bytes) {
    rest = (rest >> 8U) ^ kCrcTable[(rest ^ static_cast<unsigned char>(byte)) & 0xffU];
  }
  return ~rest;
}

std::string recordingHeader(std::uint64_t startedAt) {
  std::string header(kRecordingMagic);
  appendNumber(header, kRecordingVersion, 2);
  appendNumber(header, startedAt, 8);
  appendNumber(header, crc32(header), kChecksumSize);
  return header;
}

std::string recordText(RecordKind kind, std::uint64_t time, std::string_view bytes) {
  std::string record;
  appendNumber(record, bytes.size(), kLengthSize);
  appendNumber(record, static_cast<std::uint8_t>(kind), 1);
  appendNumber(record, time, 8);
  record += bytes;
  appendNumber(record, crc32(record), kChecksumSize);
  return record;
}

RecordingWriter::RecordingWriter(std::string file, std::uint64_t startedAt, bool replace)
    : file_(std::move(file)) {
  if (replace) removeOld(file_);
  fd_ = ::open(file_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0644);
  if (fd_ < 0) {
    throw InputError(file_, errno == EEXIST ? "is there already; --force replaces it"
                                            : "cannot be written: " + systemError());
  }
  append(recordingHeader(startedAt));
}

RecordingWriter::~RecordingWriter() { ::close(fd_); }

void RecordingWriter::write(RecordKind kind, std::uint64_t time, std::string_view bytes) {
  do {
    std::string_view const part = bytes.substr(0, kMaxRecordBytes);
    append(recordText(kind, time, part));
    ++records_;
    bytes.remove_prefix(part.size());
  } while (!bytes.empty());
}

void RecordingWriter::append(std::string const& bytes) {
  for (std::string_view left = bytes; !left.empty();) {
    ssize_t const written = ::write(fd_, left.data(), left.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) throw InputError(file_, "cannot be written: " + systemError());
    left.remove_prefix(static_cast<std::size_t>(written));
  }
  size_ += bytes.size();
}

RecordingReader::RecordingReader(std::string const& file) : RecordingReader(openFile(file), file) {}

RecordingReader::RecordingReader(std::unique_ptr<std::istream> in, std::string file)
    : in_(std::move(in)), file_(std::move(file)) {
  std::string const header = take(kRecordingHeaderSize);
  if (!header.starts_with(kRecordingMagic)) {
    throw InputError(file_, "is no recording: it does not begin with \"RAILREC\"");
  }
  if (header.size() < kRecordingHeaderSize) {
    throw InputError(file_, "is cut off inside its header");
  }
  std::size_t const checked = kRecordingHeaderSize - kChecksumSize;
  if (numberAt(header, checked, kChecksumSize) !=
      crc32(std::string_view(header).substr(0, checked))) {
    throw InputError(file_, "has a damaged header: its checksum does not fit");
  }
  std::uint64_t const version = numberAt(header, kRecordingMagic.size(), 2);
  if (version != kRecordingVersion) {
    throw InputError(file_, "has the format " + std::to_string(version) + ", expected " +
                                std::to_string(kRecordingVersion));
  }
  startedAt_ = numberAt(header, kRecordingMagic.size() + 2, 8);
}

std::string RecordingReader::take(std::size_t count) {
  std::string bytes(count, '\0');
  in_->read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(in_->gcount()));
  position_ += bytes.size();
  return bytes;
}

void RecordingReader::damaged(std::uint64_t at, std::string const& why) {
  damage_ = file_ + ": damaged at byte " + std::to_string(at) + ": " + why + "; " +
            counted(records_, "record") + " in front of it " + (records_ == 1 ? "is" : "are") +
            " good";
}

std::optional<Record> RecordingReader::next() {
  if (!damage_.empty()) return std::nullopt;
  std::uint64_t const start = position_;
  std::string const head = take(kRecordHeadSize);
  if (head.empty()) return std::nullopt;
  auto const cutOff = [&] {
    damaged(start, "the file is cut off inside a record");
    return std::nullopt;
  };
  if (head.size() < kRecordHeadSize) return cutOff();
  std::uint64_t const length = numberAt(head, 0, kLengthSize);
  if (length > kMaxRecordBytes) {
    damaged(start, "a record of " + std::to_string(length) + " bytes, at most " +
                       std::to_string(kMaxRecordBytes) + " are possible");
    return std::nullopt;
  }
  std::string bytes = take(static_cast<std::size_t>(length));
  std::string const checksum = take(kChecksumSize);
  if (bytes.size() < length || checksum.size() < kChecksumSize) return cutOff();
  if (numberAt(checksum, 0, kChecksumSize) != crc32(bytes, crc32(head))) {
    damaged(start, "the checksum of a record does not fit");
    return std::nullopt;
  }
  std::uint64_t const time = numberAt(head, kLengthSize + 1, 8);
  if (time < time_) {
    damaged(start, "a record is older than the one in front of it");
    return std::nullopt;
  }
  time_ = time;
  ++records_;
  auto const kind = static_cast<RecordKind>(numberAt(head, kLengthSize, 1));
  hasEnd_ = kind == RecordKind::ended;
  return Record{kind, time, std::move(bytes)};
}

}  // namespace RailSeq
