// The product, loaded while the program runs, and the parts of it that a program finds by symbol.
#pragma once

#include <string>

#include "host/zol/registry/zol_type.h"

// Loads the library and throws with the loader's text when that fails. The library stays loaded.
void* loadLibrary();

// The accessor of a class's type object, and the cached attribute of an entity class.
Zol::ZolType* typeOfClass(void* library, std::string const& name);
Zol::ZolAttr const* cachedAttr(void* library, std::string const& name, Zol::AttributeId id);
