// The listeners of the root and of its controllers.
#include "railseq/demo/change_listener.h"

#include "railseq/base/paths.h"
#include "railseq/values/attribute_values.h"
#include "railseq/values/controllers.h"

namespace RailSeq {

using Hardware::Ucd9012::Config;
using Hardware::Ucd9012::ControllerConfig;

// The slots of all scalars and texts; the slots of what else a controller holds stay silent.
class ControllerListener : public ControllerConfig::Notifiee {
 public:
  ControllerListener(Zol::Ptr<ControllerConfig> const& controller, Zol::ByName const& tree,
                     ChangeSink const& sink)
      : controller_(*controller), tree_(tree), sink_(sink) {
    isRegisteredNotifieeIs(true);
    notifierIs(controller);
  }

  [[nodiscard]] ControllerConfig const& controller() const { return controller_; }

#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  void on##Attr() override { changed(#attr); }
#include "host/models/power_controller_config.def"
#define ZOL_SCALAR(attr, Attr, id, Type, initial, FLAGS) \
  void on##Attr() override { changed(#attr); }
#define ZOL_TEXT(attr, Attr, id, FLAGS) \
  void on##Attr() override { changed(#attr); }
#include "schema/controller_config.def"

 private:
  void changed(std::string_view attribute) {
    sink_(attributeChange(tree_, std::string(controller_.uriPath().view()), attribute));
  }

  // Held by the notifier's count.
  ControllerConfig const& controller_;
  Zol::ByName tree_;
  ChangeSink sink_;
};

ChangeListener::ChangeListener(Zol::Ptr<Config> const& config, ChangeSink sink)
    : tree_({config}), root_(rootPath(config->name().view())), sink_(std::move(sink)) {
  isRegisteredNotifieeIs(true);
  notifierIs(config);
  for (std::string const& path : controllerPaths(tree_, root_)) listenTo(path);
}

ChangeListener::~ChangeListener() = default;

void ChangeListener::changed(std::string_view collection, Zol::Name const& name) {
  std::string const path = memberPath(attributePath(root_, collection), name.view());
  sink_(memberChange(tree_, path));
  if (tree_.contains(path)) return listenTo(path);
  // Whoever is no longer in the tree has no parent; its listener goes with it.
  std::erase_if(controllers_, [](Zol::Ptr<ControllerListener> const& listener) {
    return listener->controller().zolParent() == nullptr;
  });
}

void ChangeListener::listenTo(std::string const& path) {
  auto const controller = Zol::ptrCast<ControllerConfig>(entityIn(tree_.at(path)));
  controllers_.emplace_back(new ControllerListener(controller, tree_, sink_));
}

}  // namespace RailSeq
