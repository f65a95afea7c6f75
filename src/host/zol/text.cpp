#include "host/zol/text.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>
#include <ostream>
#include <random>

#include "host/zol/ptr_interface.h"

namespace Zol {

// Header of the shared bytes, which follow it with a NUL behind them.
struct String8::Data {
  explicit Data(std::size_t size) : length(size) {}

  std::uint32_t references = 1;
  std::atomic<std::uint32_t> hash{0};  // 0: not computed yet
  std::size_t length;

  char* bytes() { return reinterpret_cast<char*>(this + 1); }

  static Data* make(std::size_t length) {
    void* const place = ::operator new(sizeof(Data) + length + 1);
    auto* const data = new (place) Data(length);
    data->bytes()[length] = '\0';
    return data;
  }

  void inc() noexcept { add(1); }
  void dec() noexcept {
    if (add(~std::uint32_t{0}) != 0) return;
    this->~Data();
    ::operator delete(this);
  }

 private:
  std::uint32_t add(std::uint32_t step) noexcept {
    if (VFPtrInterface::enableThreadSafePointers) {
      std::atomic_ref<std::uint32_t> shared(references);
      return shared.fetch_add(step, std::memory_order_acq_rel) + step;
    }
    return references += step;
  }
};

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

String8::String8(String8 const& other) noexcept : data_(other.data_) {
  if (data_) data_->inc();
}

String8& String8::operator=(String8 const& other) noexcept {
  if (data_ == other.data_) return *this;
  if (other.data_) other.data_->inc();
  if (data_) data_->dec();
  data_ = other.data_;
  return *this;
}

String8& String8::operator=(String8&& other) noexcept {
  if (this == &other) return *this;
  if (data_) data_->dec();
  data_ = other.data_;
  other.data_ = nullptr;
  return *this;
}

String8::~String8() {
  if (data_) data_->dec();
}

std::string_view String8::view() const noexcept {
  return data_ ? std::string_view(data_->bytes(), data_->length) : std::string_view("", 0);
}

std::uint32_t String8::hash() const noexcept {
  if (!data_) return 0;
  std::uint32_t known = data_->hash.load(std::memory_order_relaxed);
  if (known == 0) {
    known = hashOf(view());
    data_->hash.store(known, std::memory_order_relaxed);
  }
  return known;
}

bool String8::equals(String8 const& other) const noexcept {
  if (data_ == other.data_) return true;
  if (!data_ || !other.data_ || data_->length != other.data_->length) return false;
  std::uint32_t const mine = data_->hash.load(std::memory_order_relaxed);
  std::uint32_t const theirs = other.data_->hash.load(std::memory_order_relaxed);
  if (mine != 0 && theirs != 0 && mine != theirs) return false;
  return std::memcmp(data_->bytes(), other.data_->bytes(), data_->length) == 0;
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
