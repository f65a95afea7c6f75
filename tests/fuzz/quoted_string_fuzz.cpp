// Texts in apostrophes: read from any bytes, and any bytes written and read.
#include "fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  Zol::String8 const bytes = fuzz::textOf(data, size);
  using Zol::valueToStrep;
  fuzz::require(Zol::strepToValue<Zol::String8>(valueToStrep(bytes)) == bytes,
                "any bytes come back from their text");
  auto const read = fuzz::accepted([&] { return Zol::strepToValue<Zol::String8>(bytes); });
  if (read) {
    fuzz::require(Zol::strepToValue<Zol::String8>(valueToStrep(*read)) == *read,
                  "what was read comes back");
  }
  return 0;
}
