// What the fuzz targets share. A target reads any bytes whatever: it ends in a value or in a
// `RangeException`; anything else that it throws, and any check that fails, ends the run.
#pragma once

#include <hwrailseq.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

namespace fuzz {

inline Zol::String8 textOf(std::uint8_t const* data, std::size_t size) {
  return std::string_view(reinterpret_cast<char const*>(data), size);
}

inline void require(bool holds, char const* what) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

// What `read` gives, or nothing if the text is refused.
template <class Read>
auto accepted(Read&& read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (Zol::RangeException const&) {
    return std::nullopt;
  }
}

// A value that a text reads as reads again from what it is written as, and is written alike.
template <class T>
void readsAgain(Zol::String8 const& text) {
  auto const value = accepted([&] { return Zol::strepToValue<T>(text); });
  if (!value) return;
  Zol::String8 const written = valueToStrep(*value);
  T const again = Zol::strepToValue<T>(written);
  require(again == *value, "a value written and read is the same value");
  require(valueToStrep(again) == written, "a value read from its own text is written alike");
}

}  // namespace fuzz
