// Numbers and bools.
#include "fuzz/fuzz.h"

namespace {

template <class T>
void isCut(Zol::String8 const& text, long long whole) {
  Zol::String8::IteratorConst position(text);
  T scratch{};
  fuzz::require(Zol::deserializeAttr(position, Zol::String8::IteratorConst(text, text.size()),
                                     &scratch, "n") == static_cast<T>(whole),
                "a number is cut to its low bits");
}

}  // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  Zol::String8 const text = fuzz::textOf(data, size);
  if (auto const value = fuzz::accepted([&] { return Zol::strepToValue<long long>(text); })) {
    isCut<std::uint8_t>(text, *value);
    isCut<std::uint16_t>(text, *value);
    isCut<std::uint32_t>(text, *value);
    if (*value >= 0) {
      auto const written = Zol::valueToStrep(static_cast<unsigned long long>(*value));
      fuzz::require(Zol::strepToValue<long long>(written) == *value, "a number comes back");
    }
  }
  if (auto const value = fuzz::accepted([&] { return Zol::strepToValue<bool>(text); })) {
    fuzz::require(Zol::strepToValue<bool>(Zol::valueToStrep(*value)) == *value,
                  "a bool comes back");
  }
  return 0;
}
