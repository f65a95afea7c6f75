// Walks the types of entities, and keeps what was shown last of each attribute.
#include "railseq/attach/tree_watcher.h"

#include <algorithm>
#include <array>
#include <optional>

#include "host/models/dexo_desc_generic.h"
#include "railseq/base/paths.h"
#include "railseq/base/wording.h"
#include "railseq/values/attribute_values.h"

namespace RailSeq {

namespace {

using namespace Hardware::Ucd9012;
using Zol::AttrFlags;
using Zol::AttributeId;
using Zol::GenericIf;
using Zol::Ptr;
using Zol::ZolAttr;

// The half of a generic object that hears, of whatever class.
class Ear {
 public:
  virtual ~Ear() = default;
  WatchedEntity* heardBy = nullptr;
};

void hear(WatchedEntity* heardBy, AttributeId id, Ptr<GenericIf const> const& key);

template <class X>
class EarOf final : public X::GenericIf_, public Ear {
 public:
  explicit EarOf(X* entity) : X::GenericIf_(entity, true) {}
  using X::GenericIf_::onAttribute;
  void onAttribute(AttributeId id) override { hear(heardBy, id, nullptr); }
  void onAttribute(AttributeId id, Ptr<GenericIf const>& key) override { hear(heardBy, id, key); }
};

template <class X>
[[nodiscard]] Ptr<GenericIf> earFor(Zol::Entity& entity) {
  return Ptr<GenericIf>(new EarOf<X>(static_cast<X*>(&entity)));
}

template <class... X>
[[nodiscard]] Ptr<GenericIf> earAmong(Zol::Entity& entity) {
  Ptr<GenericIf> ear;
  auto const* const type = entity.fwkType();
  (void)((type == X::_fwkType() && ((ear = earFor<X>(entity)), true)) || ...);
  return ear;
}

// Of a class that is not known here, a generic object that hears nothing.
[[nodiscard]] Ptr<GenericIf> makeEar(Zol::Entity& entity) {
  Ptr<GenericIf> ear =
      earAmong<Config, Status, ControllerConfig, Ucd9012ControllerConfig, Ucd9032ControllerConfig,
               PsocControllerConfig, ControllerStatus, Ucd9012ControllerStatus,
               Ucd9032ControllerStatus, PsocControllerStatus, VoltageRailConfig, Ucd9012DiagConfig,
               Ucd9012DiagModeConfig, Ucd9012DiagStatus, I2cDexo::DexoDesc, SmbusDexo::DexoDesc>(
          entity);
  return ear ? ear : Zol::ZolType::genericIf(&entity, true);
}

}  // namespace

// One entity: its ear, what was shown last of its attributes, and the entities that it owns.
class WatchedEntity {
 public:
  WatchedEntity(TreeWatcher const& watcher, Ptr<Zol::Entity> const& entity, std::string path);
  ~WatchedEntity() {
    if (auto* const ear = dynamic_cast<Ear*>(generic_.get())) ear->heardBy = nullptr;
  }
  WatchedEntity(WatchedEntity const&) = delete;
  WatchedEntity& operator=(WatchedEntity const&) = delete;

  [[nodiscard]] bool isOf(Ptr<Zol::Entity> const& entity) const {
    return entityIn(generic_) == entity;
  }
  void tellAll() const;
  // What was fixed when the entity was made.
  void tellParameters() const;
  void changed(AttributeId id, Ptr<GenericIf const> const& key);

 private:
  // An attribute of the entity, and its member where it has keys.
  struct Place {
    AttributeId id = 0;
    std::string key;

    friend auto operator<=>(Place const&, Place const&) = default;
  };
  struct Content {
    std::optional<ShownValue> value;
    std::unique_ptr<WatchedEntity> child;
  };

  template <class Visit>
  void eachAttribute(Visit const& visit) const;
  [[nodiscard]] std::string pathOf(ZolAttr const& attr, Place const& place) const;
  [[nodiscard]] Content contentOf(ZolAttr const& attr, Place const& place,
                                  Ptr<GenericIf> const& value) const;
  [[nodiscard]] ShownValue shown(Ptr<GenericIf> const& value) const;
  void memberChanged(ZolAttr const& attr, Ptr<GenericIf> const& key);
  void update(ZolAttr const& attr, Place const& place, Ptr<GenericIf> const& value, bool isThere);
  void tell(TreeChange const& change) const { watcher_.sink_(change); }

  TreeWatcher const& watcher_;
  std::string path_;
  Ptr<GenericIf> generic_;
  std::map<Place, Content> contents_;
};

namespace {

void hear(WatchedEntity* heardBy, AttributeId id, Ptr<GenericIf const> const& key) {
  if (heardBy) heardBy->changed(id, key);
}

[[nodiscard]] bool isOwning(ZolAttr const& attr) {
  return attr.flags().has(AttrFlags::kInstantiating);
}

[[nodiscard]] std::string plain(Ptr<GenericIf> const& value) {
  return std::string(Zol::plainText(value.get()).view());
}

}  // namespace

WatchedEntity::WatchedEntity(TreeWatcher const& watcher, Ptr<Zol::Entity> const& entity,
                             std::string path)
    : watcher_(watcher), path_(std::move(path)), generic_(makeEar(*entity)) {
  if (auto* const ear = dynamic_cast<Ear*>(generic_.get())) ear->heardBy = this;
  eachAttribute([this](ZolAttr const& attr, Place const& place, Ptr<GenericIf> const& value) {
    contents_[place] = contentOf(attr, place, value);
  });
}

template <class Visit>
void WatchedEntity::eachAttribute(Visit const& visit) const {
  for (auto attr = generic_->type()->attributeQIteratorConst(); attr; ++attr) {
    if (!attr->flags().has(AttrFlags::kByName)) continue;
    if (Zol::Entity::_fwkType()->attr(attr->name())) continue;
    AttributeId const id = attr->attrId();
    if (!attr->keyType()) {
      visit(*attr, Place{id, {}},
            generic_->attributeOp({id, GenericIf::attrOpRead}, nullptr, nullptr));
      continue;
    }
    for (auto it = generic_->attributeIteratorConst(id); it; ++it) {
      visit(*attr, Place{id, plain(it.key())}, it.obj());
    }
  }
}

std::string WatchedEntity::pathOf(ZolAttr const& attr, Place const& place) const {
  std::string const path = attributePath(path_, attr.name().view());
  return attr.keyType() ? memberPath(path, place.key) : path;
}

WatchedEntity::Content WatchedEntity::contentOf(ZolAttr const& attr, Place const& place,
                                                Ptr<GenericIf> const& value) const {
  if (!isOwning(attr)) return {shown(value), nullptr};
  Ptr<Zol::Entity> const entity = entityIn(value);
  if (!entity) return {};
  return {std::nullopt, std::make_unique<WatchedEntity>(watcher_, entity, pathOf(attr, place))};
}

ShownValue WatchedEntity::shown(Ptr<GenericIf> const& value) const {
  return shownValue(value, watcher_.withJson_);
}

void WatchedEntity::tellAll() const {
  std::vector<std::pair<std::string, Content const*>> members;
  for (auto attr = generic_->type()->attributeQIteratorConst(); attr; ++attr) {
    members.clear();
    for (auto at = contents_.lower_bound({attr->attrId(), {}});
         at != contents_.end() && at->first.id == attr->attrId(); ++at) {
      members.emplace_back(pathOf(*attr, at->first), &at->second);
    }
    std::ranges::sort(members, comesBefore, &std::pair<std::string, Content const*>::first);
    for (auto const& [path, content] : members) {
      if (content->value) tell({TreeChange::Kind::value, path, nullptr, &*content->value});
      if (content->child) content->child->tellAll();
    }
  }
}

void WatchedEntity::tellParameters() const {
  for (auto const& [place, content] : contents_) {
    ZolAttr const* const attr = generic_->type()->attr(place.id);
    if (!attr || !content.value || !attr->flags().has(AttrFlags::kConstructorParameter)) continue;
    tell({TreeChange::Kind::value, pathOf(*attr, place), nullptr, &*content.value});
  }
}

void WatchedEntity::changed(AttributeId id, Ptr<GenericIf const> const& key) {
  ZolAttr const* const attr = generic_->type()->attr(id);
  if (!attr || !attr->flags().has(AttrFlags::kByName)) return;
  if (!attr->keyType()) {
    return update(*attr, {id, {}},
                  generic_->attributeOp({id, GenericIf::attrOpRead}, nullptr, nullptr), true);
  }
  if (key) return memberChanged(*attr, key->clone());
  // Of the collection as a whole: what has gone, and what is there.
  std::vector<Ptr<GenericIf>> keys;
  std::vector<Place> gone;
  for (auto it = generic_->attributeIteratorConst(id); it; ++it) keys.push_back(it.key());
  for (auto at = contents_.lower_bound({id, {}}); at != contents_.end() && at->first.id == id;
       ++at) {
    auto const isKey = [&at](Ptr<GenericIf> const& each) { return plain(each) == at->first.key; };
    if (std::ranges::none_of(keys, isKey)) gone.push_back(at->first);
  }
  for (Place const& place : gone) update(*attr, place, nullptr, false);
  for (Ptr<GenericIf> const& each : keys) memberChanged(*attr, each);
}

void WatchedEntity::memberChanged(ZolAttr const& attr, Ptr<GenericIf> const& key) {
  AttributeId const id = attr.attrId();
  auto const it = generic_->attributeIteratorKeyConst(id, key);
  update(attr, {id, plain(key)}, it ? it.obj() : nullptr, static_cast<bool>(it));
}

void WatchedEntity::update(ZolAttr const& attr, Place const& place, Ptr<GenericIf> const& value,
                           bool isThere) {
  auto const known = contents_.find(place);
  std::string const path = pathOf(attr, place);
  if (isOwning(attr)) {
    Ptr<Zol::Entity> const entity = isThere ? entityIn(value) : nullptr;
    bool const isKnown = known != contents_.end() && known->second.child;
    if (isKnown && entity && known->second.child->isOf(entity)) return;
    if (isKnown) {
      contents_.erase(known);
      tell({TreeChange::Kind::removed, path});
    }
    if (!entity) return;
    Content const& content = contents_[place] = contentOf(attr, place, value);
    tell({TreeChange::Kind::added, path});
    content.child->tellParameters();
    return;
  }
  Content before;
  if (known != contents_.end()) {
    before = std::move(known->second);
    contents_.erase(known);
  }
  if (isThere) contents_[place] = contentOf(attr, place, value);
  ShownValue const* const was = before.value ? &*before.value : nullptr;
  ShownValue const* const is = isThere ? &*contents_[place].value : nullptr;
  if (was == is || (was && is && was->text == is->text)) return;
  tell({TreeChange::Kind::changed, path, was, is});
}

ShownValue shownValue(Ptr<GenericIf> const& value, bool withJson) {
  ValueKind const kind = value ? kindOfValue(*value->type()) : ValueKind::entity;
  return {shownText(value), kind == ValueKind::text || kind == ValueKind::name,
          withJson ? valueJson(value) : Json()};
}

TreeWatcher::TreeWatcher(Sink sink, bool withJson) : sink_(std::move(sink)), withJson_(withJson) {}

TreeWatcher::~TreeWatcher() = default;

void TreeWatcher::rootsAre(std::vector<Ptr<Zol::Entity>> const& roots) {
  std::map<std::string, std::unique_ptr<WatchedEntity>> former = std::move(roots_);
  roots_.clear();
  std::vector<std::string> added;
  for (Ptr<Zol::Entity> const& root : roots) {
    std::string const path = rootPath(root->name().view());
    auto const known = former.find(path);
    if (known != former.end() && known->second->isOf(root)) {
      roots_[path] = std::move(known->second);
      former.erase(known);
    } else {
      roots_[path] = std::make_unique<WatchedEntity>(*this, root, path);
      if (hadRoots_) added.push_back(path);
    }
  }
  for (auto const& [path, root] : former) sink_({TreeChange::Kind::removed, path});
  for (std::string const& path : added) {
    sink_({TreeChange::Kind::added, path});
    roots_[path]->tellAll();
  }
  hadRoots_ = true;
}

void TreeWatcher::tellAll() const {
  for (auto const& [path, root] : roots_) root->tellAll();
}

std::string changeText(TreeChange const& change) {
  auto const text = [](ShownValue const* value) { return value ? value->shortText() : "nothing"; };
  switch (change.kind) {
    case TreeChange::Kind::added:
      return change.path + " added";
    case TreeChange::Kind::removed:
      return change.path + " removed";
    case TreeChange::Kind::value:
      return change.path + ": " + text(change.after);
    case TreeChange::Kind::changed:
      break;
  }
  return change.path + ": " + text(change.before) + " -> " + text(change.after);
}

Json changeJson(TreeChange const& change) {
  constexpr std::array<char const*, 4> kNames{"value", "changed", "added", "removed"};
  Json json = {{"event", kNames[static_cast<std::size_t>(change.kind)]}, {"path", change.path}};
  bool const isChange = change.kind == TreeChange::Kind::changed;
  if (isChange) json["before"] = change.before ? change.before->json : Json();
  if (isChange || change.kind == TreeChange::Kind::value) {
    json["after"] = change.after ? change.after->json : Json();
  }
  return json;
}

}  // namespace RailSeq
