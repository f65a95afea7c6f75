// The listeners of the root and of its controllers.
#include "railseq/change_listener.h"

#include "railseq/controller_attributes.h"

namespace RailSeq {

std::string attributeChange(ControllerConfig const& controller, std::string_view attribute) {
  ControllerAttribute const& row = *findControllerAttribute(attribute);
  return std::string(controller.uriPath().view()) + "." + std::string(attribute) + " = " +
         valueText(row, row.read(controller));
}

std::string memberChange(Config const& config, Chip chip, std::string_view name,
                         std::string_view what) {
  return std::string(config.uriPath().view()) + "/" + std::string(collectionName(chip)) + "[" +
         std::string(name) + "] " + std::string(what);
}

// The slots of all scalars and texts; the slots of what else a controller holds stay silent.
class ControllerListener : public ControllerConfig::Notifiee {
 public:
  ControllerListener(Zol::Ptr<ControllerConfig> const& controller, ChangeSink const& sink)
      : controller_(*controller), sink_(sink) {
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
  void changed(std::string_view attribute) { sink_(attributeChange(controller_, attribute)); }

  // Held by the notifier's count.
  ControllerConfig const& controller_;
  ChangeSink sink_;
};

ChangeListener::ChangeListener(Zol::Ptr<Config> const& config, ChangeSink sink)
    : config_(*config), sink_(std::move(sink)) {
  isRegisteredNotifieeIs(true);
  notifierIs(config);
  for (Chip const chip : kChips) {
    for (Zol::Ptr<ControllerConfig const> const& controller : controllersOf(*config, chip)) {
      listenTo(findController(*config, chip, std::string(controller->name().view())));
    }
  }
}

ChangeListener::~ChangeListener() = default;

void ChangeListener::changed(Chip chip, Zol::Name const& name) {
  Zol::Ptr<ControllerConfig> const controller =
      findController(config_, chip, std::string(name.view()));
  sink_(memberChange(config_, chip, name.view(), controller ? "added" : "removed"));
  if (controller) {
    listenTo(controller);
    return;
  }
  // Whoever is no longer in the tree has no parent; its listener goes with it.
  std::erase_if(controllers_, [](Zol::Ptr<ControllerListener> const& listener) {
    return listener->controller().zolParent() == nullptr;
  });
}

void ChangeListener::listenTo(Zol::Ptr<ControllerConfig> const& controller) {
  controllers_.emplace_back(new ControllerListener(controller, sink_));
}

}  // namespace RailSeq
