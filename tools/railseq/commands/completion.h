// Completes what a user has typed of a path, or of PATH=VALUE.
#pragma once

#include "hwrailseq.h"

#include <string>
#include <vector>

namespace RailSeq {

// The paths of the trees that begin with `start`, one step further at most; behind a "=" the whole
// assignments to an attribute of which the values can be listed.
[[nodiscard]] std::vector<std::string> completions(Zol::ByName const& tree,
                                                   std::string const& start);
// The same without a tree, from the types alone: the roots are called config and status, and any
// key is taken for a member.
[[nodiscard]] std::vector<std::string> completions(std::string const& start);

}  // namespace RailSeq
