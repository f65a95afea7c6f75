// The checks.
#include "railseq/board/lint.h"

#include <cmath>
#include <cstdlib>
#include <map>

#include "railseq/base/paths.h"
#include "railseq/values/controllers.h"

namespace RailSeq {

namespace {

// Numbers of buses and accelerators above this do not go over a log.
constexpr std::uint8_t kLargestLogged = 0x7f;

class Lint {
 public:
  explicit Lint(Board const& board) : board_(board), tree_(board.tree()) {}

  std::vector<std::string> run() {
    checkDescriptors();
    std::string const root = rootPath(board_.config->name().view());
    for (std::string const& path : controllerPaths(tree_, root)) checkRails(path);
    if (board_.status) checkStatus();
    return std::move(warnings_);
  }

 private:
  void checkDescriptors();
  void checkRails(std::string const& controller);
  void checkStatus();
  void warn(std::string const& path, std::string const& text) {
    warnings_.push_back(path + ": " + text);
  }
  [[nodiscard]] std::string read(std::string const& path, std::string_view attribute) const {
    return std::string(tree_.read(attributePath(path, attribute)).view());
  }
  [[nodiscard]] std::vector<std::string> members(std::string const& holder,
                                                 std::string_view attribute) const {
    return memberPaths(tree_, attributePath(holder, attribute));
  }

  Board const& board_;
  Zol::ByName tree_;
  std::vector<std::string> warnings_;
};

void Lint::checkDescriptors() {
  std::map<std::string, std::string> places;
  for (std::string const& path : members(rootPath(board_.config->name().view()), "dexoDesc")) {
    for (char const* const attribute : {"lobusAccelId", "busId"}) {
      std::string const number = read(path, attribute);
      if (std::stoul(number) <= kLargestLogged) continue;
      warn(path, std::string(attribute) + " " + number +
                     " does not go over a log, which takes 0 to " + std::to_string(kLargestLogged));
    }
    std::string const place = "device " + read(path, "deviceId") + " on bus " +
                              read(path, "busId") + " of accelerator " + read(path, "lobusAccelId");
    auto const [first, isNew] = places.emplace(place, path);
    if (!isNew) warn(path, place + " is also that of " + first->second);
  }
}

void Lint::checkRails(std::string const& controller) {
  std::map<std::string, std::string> names;
  for (std::string const& path : members(controller, "voltageRail")) {
    double const low = std::strtod(read(path, "overrideVoutUvLimit").c_str(), nullptr);
    double const high = std::strtod(read(path, "overrideVoutOvLimit").c_str(), nullptr);
    if (std::isfinite(low) && std::isfinite(high) && low >= high) {
      warn(path, "overrideVoutUvLimit " + read(path, "overrideVoutUvLimit") +
                     " is not below overrideVoutOvLimit " + read(path, "overrideVoutOvLimit"));
    }
    if (!tree_.contains(attributePath(path, "voltageRailEnvConfig"))) {
      warn(path, "the rail has no voltageRailEnvConfig, which names it");
      continue;
    }
    std::string const name(
        tree_.read(attributePath(attributePath(path, "voltageRailEnvConfig"), "name")).view());
    auto const [first, isNew] = names.emplace(name, path);
    if (!isNew) warn(path, inQuotes(name) + " is also the rail of " + first->second);
  }
}

void Lint::checkStatus() {
  std::string const root = rootPath(board_.status->name().view());
  std::string const config = rootPath(board_.config->name().view());
  for (std::string const& path : controllerPaths(tree_, root)) {
    std::string const twin = config + path.substr(root.size());
    if (!tree_.contains(twin)) warn(path, "there is no " + twin);
  }
}

}  // namespace

std::vector<std::string> lintBoard(Board const& board) { return Lint(board).run(); }

}  // namespace RailSeq
