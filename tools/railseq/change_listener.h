// Listens to a configuration root and all its controllers, and tells each change as one line of
// text.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "railseq/controllers.h"

namespace RailSeq {

// Takes the lines, such as "board/realUcd9012Controller[main].pollingEnabled = false" and
// "board/realUcd9012Controller[main] added".
using ChangeSink = std::function<void(std::string const& line)>;

[[nodiscard]] std::string attributeChange(ControllerConfig const& controller,
                                          std::string_view attribute);
[[nodiscard]] std::string memberChange(Config const& config, Chip chip, std::string_view name,
                                       std::string_view what);

class ControllerListener;

// Listens to the root from its making on, to each controller as long as the root holds it. It must
// be made with `new`, as all listeners.
class ChangeListener : public Config::Notifiee {
 public:
  ChangeListener(Zol::Ptr<Config> const& config, ChangeSink sink);
  ~ChangeListener() override;

  using Config::Notifiee::onRealPsocController;
  using Config::Notifiee::onRealUcd9012Controller;
  using Config::Notifiee::onRealUcd9032Controller;
  void onRealUcd9012Controller(Zol::Name name) override { changed(Chip::ucd9012, name); }
  void onRealUcd9032Controller(Zol::Name name) override { changed(Chip::ucd9032, name); }
  void onRealPsocController(Zol::Name name) override { changed(Chip::psoc, name); }

 private:
  void changed(Chip chip, Zol::Name const& name);
  void listenTo(Zol::Ptr<ControllerConfig> const& controller);

  Config& config_;
  ChangeSink sink_;
  std::vector<Zol::Ptr<ControllerListener>> controllers_;
};

}  // namespace RailSeq
