#include "host/zol/text.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>
#include <ostream>
#include <random>

namespace Zol {

namespace {

std::uint64_t fold(std::uint64_t a, std::uint64_t b) {
  __extension__ using Wide = unsigned __int128;
  Wide const product = static_cast<Wide>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

// Seeded per process, so that a peer cannot choose names that all fall into one bucket.
std::uint32_t hashOf(std::string_view bytes) {
  static std::uint64_t const seed = [] {
    std::random_device source;
    return (static_cast<std::uint64_t>(source()) << 32) | source() | 1;
  }();
  std::uint64_t state = seed ^ (bytes.size() * 0x9e3779b97f4a7c15ULL);
  while (!bytes.empty()) {
    std::uint64_t block = 0;
    std::size_t const taken = bytes.size() < 8 ? bytes.size() : 8;
    std::memcpy(&block, bytes.data(), taken);
    bytes.remove_prefix(taken);
    state = fold(state ^ block, 0xd6e8feb86659fd93ULL ^ (seed >> 7));
  }
  auto const hash = static_cast<std::uint32_t>(state ^ (state >> 32));
  return hash == 0 ? 1 : hash;
}

}  // namespace

String8::String8(std::string_view text) {
  if (text.empty()) return;
  data_ = Data::make(text.size());
  std::memcpy(data_->bytes(), text.data(), text.size());
}

String8::Data* String8::Data::make(std::size_t length) {
  void* const place = ::operator new(sizeof(Data) + length + 1);
  auto* const data = new (place) Data(length);
  data->bytes()[length] = '\0';
  return data;
}

void String8::Data::destroy() noexcept {
  this->~Data();
  ::operator delete(this);
}

std::uint32_t String8::Data::computedHash() noexcept {
  std::uint32_t const computed = hashOf({bytes(), length});
  hash.store(computed, std::memory_order_relaxed);
  return computed;
}

String8 String8::concatenation(String8 const& a, String8 const& b) {
  if (a.empty()) return b;
  if (b.empty()) return a;
  String8 both;
  both.data_ = Data::make(a.size() + b.size());
  std::memcpy(both.data_->bytes(), a.view().data(), a.size());
  std::memcpy(both.data_->bytes() + a.size(), b.view().data(), b.size());
  return both;
}

std::ostream& String8::write(std::ostream& stream) const { return stream << view(); }

String8 format(char const* pattern, ...) {
  std::va_list arguments;
  va_start(arguments, pattern);
  std::va_list again;
  va_copy(again, arguments);
  int const length = std::vsnprintf(nullptr, 0, pattern, arguments);
  va_end(arguments);
  std::string text(length < 0 ? 0 : static_cast<std::size_t>(length), '\0');
  std::vsnprintf(text.data(), text.size() + 1, pattern, again);
  va_end(again);
  return text;
}

}  // namespace Zol
