// Texts of value records.
#include "fuzz/fuzz.h"
#include "schema/types.h"

using namespace Hardware::Ucd9012;

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  Zol::String8 const text = fuzz::textOf(data, size);
#define ZOL_RECORD_TYPE(R) fuzz::readsAgain<R>(text);
#include "schema/types.def"
  return 0;
}
