// The pipe by which a mirror process reports to its source: whole lines, each with its kind.
#pragma once

#include <deque>
#include <optional>
#include <string>

namespace RailSeq {

struct Report {
  // What the line is about; the first byte of the line on the pipe.
  enum class Kind : char { ready = 'r', change = 'c', tree = 't', digest = 'd', ended = 'e' };

  Kind kind = Kind::ended;
  std::string text;
};

class ReportWriter {
 public:
  explicit ReportWriter(int fd) : fd_(fd) {}
  ReportWriter(ReportWriter const&) = delete;
  ReportWriter& operator=(ReportWriter const&) = delete;
  ~ReportWriter();

  // Waits until the line is written. Nothing is written once the reader has gone.
  void write(Report::Kind kind, std::string const& text);
  [[nodiscard]] bool isBroken() const { return broken_; }

 private:
  int fd_;
  bool broken_ = false;
};

class ReportReader {
 public:
  explicit ReportReader(int fd) : fd_(fd) {}
  ReportReader(ReportReader const&) = delete;
  ReportReader& operator=(ReportReader const&) = delete;
  ~ReportReader();

  [[nodiscard]] int fd() const { return fd_; }
  // The next whole line that has come, without waiting.
  std::optional<Report> next();
  // True when the writer has gone and all of its lines were given.
  [[nodiscard]] bool atEnd() const { return ended_ && lines_.empty(); }

 private:
  void receive();

  int fd_;
  bool ended_ = false;
  std::string partial_;
  std::deque<Report> lines_;
};

}  // namespace RailSeq
