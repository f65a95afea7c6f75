// Paths: where an entity stands below its root, as users read and type it.
//
//   /board/realUcd9012Controller[main]/voltageRail[3]
//
// Each "/" opens a step: the name of an entry of a directory, or the name of an attribute of the
// entity so far, with the key of the member in brackets if the attribute has keys. In a name and in
// a key, "/", "[", "]" and "\" stand behind a "\". A path that begins with "/" is a full path, from
// the directory of the process; any other begins at an entity that stands in no directory.
#pragma once

#include "host/zol/ptr.h"
#include "host/zol/text.h"

namespace Zol {

// The path of an entity from the outermost entity that is no directory, so that it does not depend
// on where the tree is kept: "board/realUcd9012Controller[main]".
[[nodiscard]] ZOL_EXPORT String8 pathBelowDirectories(Entity const& entity);

// The path of an entity with all directories above it. A full path if the outermost of them is that
// of the process.
[[nodiscard]] ZOL_EXPORT String8 pathOf(Entity const& entity);

// The entity that stands at a full path. Throws `RangeException` "no entity at '<path>': " with the
// step that failed.
[[nodiscard]] ZOL_EXPORT Ptr<Entity> entityAt(String8 const& path);

}  // namespace Zol
