// The controllers of a configuration, by their paths.
#pragma once

#include "hwrailseq.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace RailSeq {

// The attributes of the root that hold controllers.
inline constexpr std::array<std::string_view, 3> kCollections{
    "realUcd9012Controller", "realUcd9032Controller", "realPsocController"};

// The paths of the members of an attribute, sorted: the order of a walk differs between processes.
[[nodiscard]] std::vector<std::string> memberPaths(Zol::ByName const& tree,
                                                   std::string const& attribute);
// The paths of all controllers of the root, by collection, in each sorted.
[[nodiscard]] std::vector<std::string> controllerPaths(Zol::ByName const& tree,
                                                       std::string_view root);

// What a change is told as: "board/realUcd9012Controller[main].pollingEnabled = false", or
// "board/realUcd9012Controller[main] added".
[[nodiscard]] std::string attributeChange(Zol::ByName const& tree, std::string const& holder,
                                          std::string_view attribute);
[[nodiscard]] std::string memberChange(Zol::ByName const& tree, std::string const& path);

}  // namespace RailSeq
