// The names of the types in a section of the library file, for tools that look at the file without
// loading it. Nothing in the library refers to it.
#include <array>
#include <cstddef>
#include <string_view>

#include "schema/types.h"

namespace Hardware::Ucd9012 {

namespace {

// Last registered first.
constexpr auto kNames = [] {
  auto names = std::to_array<std::string_view>({
#define ZOL_ANY_TYPE(X) kFullName<X>,
#include "schema/types.def"
  });
  for (std::size_t i = 0; i < names.size() / 2; ++i) {
    std::string_view const front = names[i];
    names[i] = names[names.size() - 1 - i];
    names[names.size() - 1 - i] = front;
  }
  return names;
}();

// A name that with its NUL takes a line or more begins a line; a shorter one follows directly.
constexpr std::size_t kLine = 32;

constexpr std::size_t placeOf(std::string_view name, std::size_t free) {
  bool const beginsLine = name.size() + 1 >= kLine;
  return beginsLine ? (free + kLine - 1) / kLine * kLine : free;
}

constexpr std::size_t kSize = [] {
  std::size_t end = 0;
  for (std::string_view const name : kNames) end = placeOf(name, end) + name.size() + 1;
  return end;
}();

constexpr auto kContents = [] {
  std::array<char, kSize> bytes{};
  std::size_t end = 0;
  for (std::string_view const name : kNames) {
    end = placeOf(name, end);
    for (char const c : name) bytes[end++] = c;
    ++end;
  }
  return bytes;
}();

// Writable, and kept by the compiler and by a linker that drops unused sections. One sanitizer
// would put guard bytes behind it.
// clang-format off
#ifdef __clang__
[[clang::no_sanitize("address")]]
#endif
[[gnu::section(".zol.type"), gnu::used, gnu::retain, gnu::aligned(kLine)]]
constinit std::array<char, kSize> typeNames = kContents;
// clang-format on

}  // namespace

}  // namespace Hardware::Ucd9012
