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

}  // namespace RailSeq
