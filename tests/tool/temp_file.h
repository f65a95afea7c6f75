// A file that a test needs for itself; it goes with the test.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace RailSeq {

class TempFile {
 public:
  explicit TempFile(std::string const& text)
      : path_(testing::TempDir() + "railseq_test_" + std::to_string(::getpid()) + "_" +
              std::to_string(++made_)) {
    std::ofstream(path_, std::ios::binary) << text;
  }
  TempFile(TempFile const&) = delete;
  TempFile& operator=(TempFile const&) = delete;
  ~TempFile() { ::unlink(path_.c_str()); }

  [[nodiscard]] std::string const& path() const { return path_; }

 private:
  static inline unsigned int made_ = 0;
  std::string path_;
};

}  // namespace RailSeq
