// Builds paths as `Zol::ByName` takes them.
#pragma once

#include <string>
#include <string_view>

#include "host/zol/path_steps.h"

namespace RailSeq {

[[nodiscard]] inline std::string rootPath(std::string_view name) {
  std::string path;
  Zol::appendPathText(path, name);
  return path;
}

[[nodiscard]] inline std::string attributePath(std::string_view holder, std::string_view name) {
  std::string path(holder);
  path += '/';
  Zol::appendPathText(path, name);
  return path;
}

[[nodiscard]] inline std::string memberPath(std::string_view attribute, std::string_view key) {
  std::string path(attribute);
  path += '[';
  Zol::appendPathText(path, key);
  return path + ']';
}

// The name of the root that a path begins with; empty when it is malformed.
[[nodiscard]] inline std::string rootName(std::string_view path) {
  Zol::PathSteps steps(path, true);
  return steps.done() ? "" : steps.next().value_or(Zol::PathStep{}).name;
}

// Where the "=" of PATH=VALUE stands: the first one outside the brackets of a key, in which it may
// stand for itself. `npos` for a text without one.
[[nodiscard]] inline std::size_t findAssignment(std::string_view text) {
  bool isInKey = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == '[' || text[i] == ']') {
      isInKey = text[i] == '[';
    } else if (text[i] == '=' && !isInKey) {
      return i;
    }
  }
  return std::string_view::npos;
}

}  // namespace RailSeq
