// Turns the visits of a walk into lines.
#include "railseq/values/tree_text.h"

#include <algorithm>
#include <optional>

#include "host/zol/path_steps.h"
#include "railseq/base/wording.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

// What was visited at one path, and below.
struct Node {
  // The last step of the path.
  std::string attribute;
  std::string key;
  std::string line;
  std::vector<Node> below;
};

// The last step of a path, where it begins, and the number of steps.
struct LastStep {
  explicit LastStep(std::string_view path) {
    for (Zol::PathSteps steps(path, true); !steps.done(); ++depth) {
      begin = steps.walked().empty() ? 0 : steps.walked().size() + 1;
      std::optional<Zol::PathStep> const next = steps.next();
      if (!next) break;  // A malformed path, which the walk refuses.
      step = *next;
    }
  }

  Zol::PathStep step;
  std::size_t depth = 0;
  std::size_t begin = 0;
};

// An entity that stands here is told by its name, where its path does not say it, and by the lines
// of its attributes; any other value by itself.
[[nodiscard]] std::string valuePart(std::string const& path, LastStep const& last,
                                    Zol::Ptr<Zol::GenericIf> const& value) {
  Zol::Ptr<Zol::Entity> const entity = entityIn(value);
  if (!entity || !(entity->uriPath() == Zol::String8(path))) return " = " + quotedText(value);
  if (last.depth == 1 || last.step.key) return "";
  return " " + inQuotes(entity->name().view());
}

// The members of each attribute in the order of their keys: the order of the walk may be another
// one in each process.
void appendLines(std::vector<Node>& nodes, std::size_t indent, std::vector<std::string>& lines) {
  for (auto first = nodes.begin(); first != nodes.end();) {
    auto const last = std::find_if(first, nodes.end(), [&first](Node const& node) {
      return node.attribute != first->attribute;
    });
    std::ranges::sort(first, last, comesBefore, &Node::key);
    for (; first != last; ++first) {
      lines.push_back(std::string(indent, ' ') + first->line);
      appendLines(first->below, indent + 2, lines);
    }
  }
}

}  // namespace

std::vector<std::string> treeLines(Zol::ByName const& tree, std::string_view path) {
  std::vector<Node> nodes;
  std::size_t const outermost = LastStep(path).depth;
  tree.walk(path, [&](std::string const& at, Zol::Ptr<Zol::GenericIf> const& value) {
    LastStep const last(at);
    std::vector<Node>* level = &nodes;
    for (std::size_t depth = outermost; depth < last.depth; ++depth) level = &level->back().below;
    std::string const shown = last.depth == outermost ? at : at.substr(last.begin);
    level->push_back({.attribute = last.step.name,
                      .key = last.step.key.value_or(""),
                      .line = shown + valuePart(at, last, value),
                      .below = {}});
  });
  std::vector<std::string> lines;
  appendLines(nodes, 0, lines);
  return lines;
}

}  // namespace RailSeq
