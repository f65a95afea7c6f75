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

  std::vector<Warning> run() {
    for (Zol::Ptr<Zol::Entity> const& root : board_.roots()) checkRoot(*root);
    checkDescriptors();
    std::string const root = rootPath(board_.config->name().view());
    for (std::string const& path : controllerPaths(tree_, root)) {
      if (read(path, "customerName").empty()) {
        warn(path, "the controller has no customerName", "customerName");
      }
      checkRails(path);
    }
    if (board_.status) checkStatus();
    return std::move(warnings_);
  }

 private:
  void checkRoot(Zol::Entity const& root);
  void checkDescriptors();
  void checkRails(std::string const& controller);
  void checkStatus();
  // Of what stands at the path or, where one is given, of its attribute.
  void warn(std::string const& path, std::string const& text, std::string_view attribute = {}) {
    std::optional<Position> const at =
        attribute.empty() ? std::nullopt : placeOf(attributePath(path, attribute));
    warnings_.push_back({at ? at : placeOf(path), path + ": " + text});
  }
  [[nodiscard]] std::optional<Position> placeOf(std::string const& path) const {
    auto const found = board_.places.find(path);
    return found == board_.places.end() ? std::nullopt : std::optional(found->second);
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
  std::vector<Warning> warnings_;
};

// A form without names of roots places none.
void Lint::checkRoot(Zol::Entity const& root) {
  std::string const path = rootPath(root.name().view());
  if (placeOf(path) && !placeOf(attributePath(path, "name"))) {
    warn(path, "the root has no name of its own");
  }
}

void Lint::checkDescriptors() {
  std::map<std::string, std::string> places;
  for (std::string const& path : members(rootPath(board_.config->name().view()), "dexoDesc")) {
    for (char const* const attribute : {"lobusAccelId", "busId"}) {
      std::string const number = read(path, attribute);
      if (std::stoul(number) <= kLargestLogged) continue;
      warn(path,
           std::string(attribute) + " " + number + " does not go over a log, which takes 0 to " +
               std::to_string(kLargestLogged),
           attribute);
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
      warn(path,
           "overrideVoutUvLimit " + read(path, "overrideVoutUvLimit") +
               " is not below overrideVoutOvLimit " + read(path, "overrideVoutOvLimit"),
           "overrideVoutUvLimit");
    }
    if (!tree_.contains(attributePath(path, "voltageRailEnvConfig"))) {
      warn(path, "the rail has no voltageRailEnvConfig, which names it");
      continue;
    }
    std::string const name(
        tree_.read(attributePath(attributePath(path, "voltageRailEnvConfig"), "name")).view());
    auto const [first, isNew] = names.emplace(name, path);
    if (!isNew)
      warn(path, inQuotes(name) + " is also the rail of " + first->second, "voltageRailEnvConfig");
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

std::string Warning::line(std::string const& file) const {
  return (at ? placeText(file, *at) : file) + ": warning: " + text;
}

std::vector<Warning> lintBoard(Board const& board) { return Lint(board).run(); }

}  // namespace RailSeq
