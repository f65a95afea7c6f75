#include "host/zol/path_steps.h"

#include <utility>

namespace Zol {

namespace {

constexpr std::string_view kMarks = "/[]\\";

}  // namespace

void appendPathText(std::string& path, std::string_view text) {
  for (char const byte : text) {
    if (kMarks.find(byte) != std::string_view::npos) path += '\\';
    path += byte;
  }
}

std::optional<PathStep> PathSteps::next() {
  // Only the first step stands without a "/", also when it is empty.
  if (!std::exchange(relative_, false)) {
    if (path_[at_] != '/') return std::nullopt;
    ++at_;
  }
  PathStep step;
  if (!append(step.name)) return std::nullopt;
  if (done() || path_[at_] == '/') return step;
  if (path_[at_] != '[') return std::nullopt;
  ++at_;
  step.key.emplace();
  if (!append(*step.key) || done() || path_[at_] != ']') return std::nullopt;
  ++at_;
  return step;
}

bool PathSteps::append(std::string& text) {
  for (; !done(); ++at_) {
    if (path_[at_] == '\\') {
      if (++at_ == path_.size()) return false;
    } else if (kMarks.find(path_[at_]) != std::string_view::npos) {
      break;
    }
    text += path_[at_];
  }
  return true;
}

}  // namespace Zol
