#include "host/zol/dir.h"

#include "host/zol/exception.h"
#include "host/zol/registry/model_type.h"
#include "host/zol/value_text.h"

namespace Zol {

Dir::Entry::~Entry() = default;

void Dir::Entry::settledIs(bool value) { settled_ = value; }

Dir::Dir(Name name) : Entity(std::move(name)) {}

Dir::~Dir() {
  while (!entries_.empty()) entryDel(Name(entries_.begin()->first));
  dismissNotifiees();
}

ZolType* Dir::_fwkType() {
  static ZolType* const type = ModelType::entity("Zol::Dir", sizeof(Dir), Entity::_fwkType())
                                   .arg("name", "Zol::Name")
                                   .type();
  return type;
}

ZolType* Dir::fwkType() const { return _fwkType(); }

Dir& Dir::root() {
  static Dir* const root = [] {
    auto* const dir = new Dir(Name());
    dir->referencesLeak();
    return dir;
  }();
  return *root;
}

Ptr<Dir::Entry> Dir::entry(Name const& name) const {
  auto const it = entries_.find(name);
  return it == entries_.end() ? nullptr : it->second;
}

Ptr<Dir::Entry> Dir::entryIs(Ptr<Entity> const& entity) {
  if (!entity) throwRangeException("null ValidPtr");
  Name const& name = entity->name();
  Ptr<Entry> const present = entry(name);
  if (present && present->entity() == entity) return present;
  if (name.empty()) throwRangeException("an entity without a name cannot stand in a directory");
  for (Entity const* above = this; above; above = above->zolParent()) {
    if (above == entity.get()) {
      throwRangeException("the directory " + valueToStrep(name) + " cannot stand in itself");
    }
  }
  if (entity->zolParent()) {
    throwRangeException(valueToStrep(entity->fullName()) + " has a parent already");
  }
  if (present) {
    throwNameInUseException("the directory " + valueToStrep(fullName()) +
                            " holds another entity with the name " + valueToStrep(name));
  }
  Ptr<Entry> const made = new Entry(entity);
  entries_.emplace(name, made);
  entity->parentIs(this);
  countMutation();
  return made;
}

Ptr<Entity> Dir::entryDel(Name const& name) {
  auto const it = entries_.find(name);
  if (it == entries_.end()) return nullptr;
  Ptr<Entity> entity = it->second->entity();
  entries_.erase(it);
  countMutation();
  entity->parentIs(nullptr);
  return entity;
}

}  // namespace Zol
