// The parts of a path, and how names and keys stand in it (host/zol/path.h).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/zol/export.h"

namespace Zol {

// Appends a name or a key, with a "\\" in front of each byte that a path could not hold otherwise.
ZOL_EXPORT void appendPathText(std::string& path, std::string_view text);

struct PathStep {
  std::string name;
  std::optional<std::string> key;
};

// Reads a path step by step.
class ZOL_EXPORT PathSteps {
 public:
  // `relative`: the first step stands without a "/" in front.
  explicit PathSteps(std::string_view path, bool relative = false)
      : path_(path), relative_(relative) {}

  [[nodiscard]] bool done() const noexcept { return at_ >= path_.size(); }
  // The path up to the next step.
  [[nodiscard]] std::string_view walked() const noexcept { return path_.substr(0, at_); }
  // The next step; nothing where the path breaks the rules, and `walked()` then ends there.
  std::optional<PathStep> next();

 private:
  // Takes bytes up to the next mark.
  bool append(std::string& text);

  std::string_view path_;
  std::size_t at_ = 0;
  bool relative_;
};

}  // namespace Zol
