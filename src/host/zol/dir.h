// Directories: where a process keeps its roots, so that they can be found by name.
#pragma once

#include <map>

#include "host/zol/entity.h"

namespace Zol {

// Holds entities by their name, and other directories. A tree below the directory of the process
// can be referred to by text, as "/board/realUcd9012Controller[main]":
//
//   Dir::root().entryIs( config );
//
// Directories are not replicated.
class ZOL_EXPORT Dir final : public Entity {
 public:
  // What a directory holds under one name.
  class ZOL_EXPORT Entry final : public PtrInterface {
   public:
    // Holds the entity.
    explicit Entry(Ptr<Entity> entity) : entity_(std::move(entity)) {}
    ~Entry() override;
    // The entity that is held.
    [[nodiscard]] Ptr<Entity> const& entity() const noexcept { return entity_; }
    // Told by a log that brings the entity: a resynchronisation of it is over.
    virtual void settledIs(bool value);
    // What `settledIs` was told last; false at first.
    [[nodiscard]] bool settled() const noexcept { return settled_; }

   private:
    Ptr<Entity> entity_;
    bool settled_ = false;
  };

  // An empty directory; to be found it must be entered into another one.
  explicit Dir(Name name);
  ~Dir() override;
  [[nodiscard]] ZolType* fwkType() const override;

  // The directory of the process, in which full paths begin. Its name is empty, and it stays as
  // long as the process.
  [[nodiscard]] static Dir& root();

  // The entry under the name, or null.
  [[nodiscard]] Ptr<Entry> entry(Name const& name) const;
  // Holds the entity under its name from now on, as its parent; one that is there stays. Throws
  // `RangeException` "null ValidPtr" for null, and for an entity without a name, with a parent, or
  // that stands above this directory; `NameInUseException` when the name is taken.
  Ptr<Entry> entryIs(Ptr<Entity> const& entity);
  // Gives back the entity under the name, which has no parent any more, or null.
  Ptr<Entity> entryDel(Name const& name);

  static ZolType* _fwkType();

 private:
  std::map<Name, Ptr<Entry>> entries_;
};

}  // namespace Zol
