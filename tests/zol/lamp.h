// A small entity with one number, and a listener whose reactions each test writes itself.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/zol/attribute_rules.h"

namespace Zol::Test {

class Lamp : public AttributeRules<Entity> {
 public:
  class Listener;
  static constexpr AttributeId kLevelId = 300;

  using AttributeRules::AttributeRules;
  ~Lamp() override { dismissNotifiees(); }

  [[nodiscard]] int level() const { return read(level_); }
  void levelIs(int value);
  [[nodiscard]] String8 label() const { return read(label_); }
  void labelIs(String8 value);

 private:
  int level_ = 0;
  String8 label_;
};

// Writes what it hears behind its mark into a log that listeners can share: "a" for a change,
// "a!300" for the exception of the pass of id 300, "a0" for the end of the last reference. Then it
// acts.
class Lamp::Listener : public Entity::NotifieeConst {
 public:
  Listener(std::vector<std::string>& log, std::string mark) : log_(log), mark_(std::move(mark)) {}

  std::function<void()> reaction = [] {};
  std::function<void()> reactionToException = [] {};

  void notifierIs(Ptr<PtrInterface const> const& notifier) override {
    entityIs(dynamic_cast<Lamp const*>(notifier.get()));
  }
  virtual void onLevel() { hear("", reaction); }
  void onZeroReferences() override { hear("0", reaction); }
  using Entity::NotifieeConst::onNotificationException;
  void onNotificationException(AttributeId id) override {
    hear("!" + std::to_string(id), reactionToException);
  }

 private:
  void hear(std::string const& what, std::function<void()> const& react) {
    log_.push_back(mark_ + what);
    react();
  }

  std::vector<std::string>& log_;
  std::string mark_;
};

inline void Lamp::levelIs(int value) { assign(level_, value, kLevelId, &Listener::onLevel); }
inline void Lamp::labelIs(String8 value) { assign(label_, value, kLevelId, &Listener::onLevel); }

// The listeners of an entity, in the order in which they are told.
inline std::vector<PtrInterface::NotifieeConst const*> listenersOf(Entity const& entity) {
  std::vector<PtrInterface::NotifieeConst const*> members;
  for (auto const* at = entity.zolNotifiees().head(); at; at = ListRawGeneric::next(*at)) {
    members.push_back(at);
  }
  return members;
}

}  // namespace Zol::Test
