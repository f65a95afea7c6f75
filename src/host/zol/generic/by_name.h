// Reads, writes, makes, counts and walks whatever stands at a path, by texts alone.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "host/zol/entity.h"
#include "host/zol/generic/generic_if.h"

namespace Zol {

struct PathStep;

// The plain text of a value: the bytes of a text or a name, the bare text of an enumerator, "true"
// or "false", a number; of anything else its text form (docs/values.md). Null: "None".
[[nodiscard]] ZOL_EXPORT String8 plainText(GenericIf const* value);
// A value of the type from its plain text, or from its text form; a plain text stands for itself
// even if it looks like a text form. Throws `RangeException` that says what was expected.
[[nodiscard]] ZOL_EXPORT Ptr<GenericIf> fromPlainText(ZolType const& type, String8 const& text);

// The child that an entity has under an attribute, with the key if it has keys; null when there is
// none.
[[nodiscard]] ZOL_EXPORT Ptr<Entity> childByName(Entity& holder, PathStep const& step);

// Some trees, seen by name. A path begins with the name of a root; each further step is an
// attribute of what the path has reached so far, with the key of the member in brackets:
//
//   Zol::ByName tree( { config } );
//   tree.make( "board/realUcd9012Controller[main]", { { "customerName", "J12" } } );
//   tree.write( "board/realUcd9012Controller[main]/pollingEnabled", "false" );
//   tree.read( "board/realUcd9012Controller[main]/pollingEnabled" );        // "false"
//   tree.count( "board/realUcd9012Controller" );                            // 1
//   tree.erase( "board/realUcd9012Controller[main]" );
//
// Values are plain texts (`plainText`). A reference is written as the path of an entity in one of
// the trees, as the text form of a reference, or as "None". Paths follow references too.
//
// Whatever cannot be done throws `RangeException` with the path up to the step that failed and what
// would have been possible there, and changes nothing.
class ZOL_EXPORT ByName {
 public:
  // One argument of a constructor: a plain text, or an entity.
  struct Argument {
    // The parameter.
    std::string name;
    // What it gets.
    std::variant<std::string, Ptr<Entity>> value;
  };
  // Told a path and what stands there.
  using Visit = std::function<void(std::string const& path, Ptr<GenericIf> const& value)>;

  // Roots of different names. The trees are held.
  explicit ByName(std::vector<Ptr<Entity>> roots) : roots_(std::move(roots)) {}

  // What stands at the path, as a generic object.
  [[nodiscard]] Ptr<GenericIf> at(std::string_view path) const;
  // The plain text of what stands at the path.
  [[nodiscard]] String8 read(std::string_view path) const { return plainText(at(path).get()); }
  // Whether there is something: a member, an entity that is not null; true for any other attribute.
  [[nodiscard]] bool contains(std::string_view path) const;
  // The number of members of an attribute with keys.
  [[nodiscard]] std::uint32_t count(std::string_view path) const;
  // Sets an attribute, or the value under a key.
  void write(std::string_view path, std::string_view text) const;
  // Makes the entity at the path, or gives the one that is there if it was made with the same
  // arguments. The key among them is that of the path; any other argument left out is null, zero,
  // or empty.
  Ptr<Entity> make(std::string_view path, std::span<Argument const> arguments = {}) const;
  Ptr<Entity> make(std::string_view path, std::initializer_list<Argument> arguments) const {
    return make(path, std::span(arguments.begin(), arguments.size()));
  }
  // Takes out the member or the single entity at the path; at an attribute with keys, all members.
  void erase(std::string_view path) const;
  // Visits what stands at the path: a value; of an entity itself, all its attributes in the order
  // of their registration, and what it owns, and so on. Members come in the walking order of their
  // collection.
  void walk(std::string_view path, Visit const& visit) const;
  // The paths that begin with `start`, one step further at most; of an attribute with keys up to
  // its
  // "[".
  [[nodiscard]] std::vector<std::string> complete(std::string_view start) const;

 private:
  struct Place;
  [[nodiscard]] Place placeOf(std::string_view path) const;
  [[nodiscard]] Ptr<GenericIf> valueFor(ZolType const& type, std::string_view text) const;

  std::vector<Ptr<Entity>> roots_;
};

}  // namespace Zol
