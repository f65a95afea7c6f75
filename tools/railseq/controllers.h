// The three chip collections of a configuration root behind one set of functions.
#pragma once

#include "hwrailseq.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "railseq/board.h"

namespace RailSeq {

using Hardware::Ucd9012::Config;
using Hardware::Ucd9012::ControllerConfig;

inline constexpr std::array kChips{Chip::ucd9012, Chip::ucd9032, Chip::psoc};

// The attribute of the root that holds the chip's controllers.
[[nodiscard]] std::string_view collectionName(Chip chip);

// Throws `Zol::NameInUseException` when a controller of the name has another customer name.
Zol::Ptr<ControllerConfig> addController(Config& config, Chip chip, std::string const& name,
                                         std::string const& customerName);
// Does nothing for an absent name.
void removeController(Config& config, Chip chip, std::string const& name);
// The controller, or null.
[[nodiscard]] Zol::Ptr<ControllerConfig> findController(Config& config, Chip chip,
                                                        std::string const& name);
// Sorted by name, so that two processes list them in the same order.
[[nodiscard]] std::vector<Zol::Ptr<ControllerConfig const>> controllersOf(Config const& config,
                                                                          Chip chip);

// Makes the tree of a board.
[[nodiscard]] Zol::Ptr<Config> makeConfig(BoardDescription const& board);

// The tree as text: a line for the root, for each controller and for each of its scalars and texts,
// each level further in.
[[nodiscard]] std::vector<std::string> treeLines(Config const& config);

}  // namespace RailSeq
