// Turns the visits of a walk into lines.
#include "railseq/tree_text.h"

#include "host/zol/path_steps.h"
#include "railseq/attribute_values.h"

namespace RailSeq {

namespace {

// The number of steps of a path, and where the last one begins.
struct LastStep {
  explicit LastStep(std::string_view path) {
    for (Zol::PathSteps steps(path, true); !steps.done(); ++depth) {
      begin = steps.walked().empty() ? 0 : steps.walked().size() + 1;
      if (!steps.next()) break;
    }
  }

  std::size_t depth = 0;
  std::size_t begin = 0;
};

}  // namespace

std::vector<std::string> treeLines(Zol::ByName const& tree, std::string_view path) {
  std::vector<std::string> lines;
  std::size_t outermost = 0;
  tree.walk(path, [&](std::string const& at, Zol::Ptr<Zol::GenericIf> const& value) {
    LastStep const last(at);
    if (lines.empty()) outermost = last.depth;
    std::string line(2 * (last.depth - outermost), ' ');
    line += lines.empty() ? at : at.substr(last.begin);
    Zol::Ptr<Zol::Entity> const entity = entityIn(value);
    // An entity that stands here is told by its name, where its path does not say it, and by the
    // lines of its attributes; any other value by itself.
    if (!entity || !(entity->uriPath() == Zol::String8(at))) {
      line += " = " + quotedText(value);
    } else if (last.depth > 1 && !at.ends_with(']')) {
      line += " " + inQuotes(entity->name().view());
    }
    lines.push_back(std::move(line));
  });
  return lines;
}

}  // namespace RailSeq
