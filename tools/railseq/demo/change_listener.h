// Listens to a configuration root and all its controllers, and tells each change as one line of
// text.
#pragma once

#include "hwrailseq.h"

#include <functional>
#include <string>
#include <vector>

namespace RailSeq {

// Takes the lines, as `attributeChange` and `memberChange` write them.
using ChangeSink = std::function<void(std::string const& line)>;

class ControllerListener;

// Listens to the root from its making on, to each controller as long as the root holds it. It must
// be made with `new`, as all listeners.
class ChangeListener : public Hardware::Ucd9012::Config::Notifiee {
 public:
  ChangeListener(Zol::Ptr<Hardware::Ucd9012::Config> const& config, ChangeSink sink);
  ~ChangeListener() override;

  using Notifiee::onRealPsocController;
  using Notifiee::onRealUcd9012Controller;
  using Notifiee::onRealUcd9032Controller;
  void onRealUcd9012Controller(Zol::Name name) override { changed("realUcd9012Controller", name); }
  void onRealUcd9032Controller(Zol::Name name) override { changed("realUcd9032Controller", name); }
  void onRealPsocController(Zol::Name name) override { changed("realPsocController", name); }

 private:
  void changed(std::string_view collection, Zol::Name const& name);
  void listenTo(std::string const& path);

  Zol::ByName tree_;
  std::string root_;
  ChangeSink sink_;
  std::vector<Zol::Ptr<ControllerListener>> controllers_;
};

}  // namespace RailSeq
