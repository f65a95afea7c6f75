// Lists the controllers and tells their changes.
#include "railseq/values/controllers.h"

#include <algorithm>

#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

std::vector<std::string> memberPaths(Zol::ByName const& tree, std::string const& attribute) {
  std::vector<std::string> members = tree.complete(attribute + "[");
  std::ranges::sort(members, comesBefore);
  return members;
}

std::vector<std::string> controllerPaths(Zol::ByName const& tree, std::string_view root) {
  std::vector<std::string> paths;
  for (std::string_view const collection : kCollections) {
    std::vector<std::string> const members = memberPaths(tree, attributePath(root, collection));
    paths.insert(paths.end(), members.begin(), members.end());
  }
  return paths;
}

std::string attributeChange(Zol::ByName const& tree, std::string const& holder,
                            std::string_view attribute) {
  return holder + "." + std::string(attribute) + " = " +
         quotedText(tree.at(attributePath(holder, attribute)));
}

std::string memberChange(Zol::ByName const& tree, std::string const& path) {
  return path + (tree.contains(path) ? " added" : " removed");
}

}  // namespace RailSeq
