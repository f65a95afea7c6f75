#include "load/loaded_library.h"

#include <dlfcn.h>

#include <stdexcept>

namespace {

// Names as the compilers of this platform write them into a library.
std::string mangled(std::string const& name) {
  return "N8Hardware7Ucd9012" + std::to_string(name.size()) + name;
}

template <class Function>
Function* symbol(void* library, std::string const& name) {
  void* const address = dlsym(library, name.c_str());
  if (!address) throw std::runtime_error("no symbol " + name);
  return reinterpret_cast<Function*>(address);
}

}  // namespace

void* loadLibrary() {
  void* const library = dlopen(HWRAILSEQ_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  if (!library) throw std::runtime_error(dlerror());
  return library;
}

Zol::ZolType* typeOfClass(void* library, std::string const& name) {
  return symbol<Zol::ZolType*()>(library, "_Z" + mangled(name) + "8_fwkTypeEv")();
}

Zol::ZolAttr const* cachedAttr(void* library, std::string const& name, Zol::AttributeId id) {
  std::string const function = "_ZN8Hardware7Ucd901213zolCachedAttrINS0_" +
                               std::to_string(name.size()) + name + "EEEPKN3Zol7ZolAttrEi";
  return symbol<Zol::ZolAttr const*(Zol::AttributeId)>(library, function)(id);
}
