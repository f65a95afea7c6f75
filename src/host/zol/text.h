// Shared immutable texts: `String8`, and `Name`, a text that is also a key.
#pragma once

#include <atomic>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <string>
#include <string_view>

#include "host/zol/export.h"
#include "host/zol/forward.h"
#include "host/zol/ptr_interface.h"

namespace Zol {

// An immutable sequence of bytes. Copies share the bytes, and the hash is kept beside them. The
// empty text owns nothing. Any byte may stand in it; nothing is assumed of the encoding.
class ZOL_EXPORT String8 {
 public:
  class IteratorConst;
  class Iterator;

  String8() noexcept = default;
  // A copy of the bytes, up to the first NUL for a plain pointer, which must not be null.
  String8(char const* text) : String8(std::string_view(text)) {}
  String8(std::string_view text);
  String8(std::string const& text) : String8(std::string_view(text)) {}
  String8(String8 const& other) noexcept : data_(other.data_) {
    if (data_) data_->inc();
  }
  String8(String8&& other) noexcept : data_(other.data_) { other.data_ = nullptr; }
  String8& operator=(String8 const& other) noexcept {
    if (data_ == other.data_) return *this;
    if (other.data_) other.data_->inc();
    if (data_) data_->dec();
    data_ = other.data_;
    return *this;
  }
  String8& operator=(String8&& other) noexcept {
    if (this == &other) return *this;
    if (data_) data_->dec();
    data_ = other.data_;
    other.data_ = nullptr;
    return *this;
  }
  ~String8() {
    if (data_) data_->dec();
  }

  // The bytes; a NUL stands behind them. Valid as long as this text or a copy of it lives.
  [[nodiscard]] std::string_view view() const noexcept {
    return data_ ? std::string_view(data_->bytes(), data_->length) : std::string_view("", 0);
  }
  [[nodiscard]] std::size_t size() const noexcept { return view().size(); }
  // True for the text without bytes.
  [[nodiscard]] bool empty() const noexcept { return data_ == nullptr; }
  // Equal texts have equal hashes within one process; the hash is seeded anew in each process.
  [[nodiscard]] std::uint32_t hash() const noexcept {
    if (!data_) return 0;
    std::uint32_t const known = data_->hash.load(std::memory_order_relaxed);
    return known != 0 ? known : data_->computedHash();
  }

  friend bool operator==(String8 const& a, String8 const& b) noexcept { return a.equals(b); }
  friend std::strong_ordering operator<=>(String8 const& a, String8 const& b) noexcept {
    return a.view() <=> b.view();
  }
  // One text made of both; allocates unless one of them is empty.
  friend String8 operator+(String8 const& a, String8 const& b) { return concatenation(a, b); }
  friend std::ostream& operator<<(std::ostream& stream, String8 const& text) {
    return text.write(stream);
  }

 private:
  // Header of the shared bytes, which follow it with a NUL behind them.
  struct ZOL_EXPORT Data {
    explicit Data(std::size_t size) : length(size) {}
    static Data* make(std::size_t length);

    std::uint32_t references = 1;
    std::atomic<std::uint32_t> hash{0};  // 0: not computed yet
    std::size_t length;

    char* bytes() { return reinterpret_cast<char*>(this + 1); }
    void inc() noexcept { add(1); }
    void dec() noexcept {
      if (add(~std::uint32_t{0}) == 0) destroy();
    }
    std::uint32_t computedHash() noexcept;

   private:
    void destroy() noexcept;
    std::uint32_t add(std::uint32_t step) noexcept {
      if (VFPtrInterface::enableThreadSafePointers) {
        std::atomic_ref<std::uint32_t> shared(references);
        return shared.fetch_add(step, std::memory_order_acq_rel) + step;
      }
      return references += step;
    }
  };

  static String8 concatenation(String8 const& a, String8 const& b);
  std::ostream& write(std::ostream& stream) const;
  // By identity, then length, then hash where both are known, then bytes.
  [[nodiscard]] bool equals(String8 const& other) const noexcept {
    if (data_ == other.data_) return true;
    if (!data_ || !other.data_ || data_->length != other.data_->length) return false;
    std::uint32_t const mine = data_->hash.load(std::memory_order_relaxed);
    std::uint32_t const theirs = other.data_->hash.load(std::memory_order_relaxed);
    if (mine != theirs && mine != 0 && theirs != 0) return false;
    return std::memcmp(data_->bytes(), other.data_->bytes(), data_->length) == 0;
  }

  Data* data_ = nullptr;
};

// A position in a text, for senders that cut it into pieces and for parsers. It keeps the text
// alive.
class String8::IteratorConst {
 public:
  IteratorConst() = default;
  // At a position of the text, counted in bytes from 0.
  explicit IteratorConst(String8 text, std::size_t position = 0)
      : text_(std::move(text)), position_(position) {}

  // The whole text.
  [[nodiscard]] String8 const& text() const noexcept { return text_; }
  // In bytes from 0.
  [[nodiscard]] std::size_t position() const noexcept { return position_; }
  // Moves there; a position behind the end counts as the end.
  void positionIs(std::size_t position) noexcept { position_ = position; }
  // True when no byte follows.
  [[nodiscard]] bool atEnd() const noexcept { return position_ >= text_.size(); }
  // The bytes from here to the end of the text, or to `end` if that comes first; empty for a
  // position behind it.
  [[nodiscard]] std::string_view rest() const noexcept { return slice(text_.size()); }
  // The bytes from here to `end`, at most to the end of the text.
  [[nodiscard]] std::string_view until(IteratorConst const& end) const noexcept {
    return slice(end.position_ < text_.size() ? end.position_ : text_.size());
  }

 private:
  [[nodiscard]] std::string_view slice(std::size_t end) const noexcept {
    return position_ < end ? text_.view().substr(position_, end - position_) : std::string_view();
  }

  String8 text_;
  std::size_t position_ = 0;
};

// Collects a text that arrives in pieces. Position 0 says that the text is complete.
class String8::Iterator {
 public:
  // Adds a piece; the last one makes the text complete.
  void pieceIs(std::string_view piece, bool last) {
    bytes_.append(piece);
    position_ = last ? 0 : bytes_.size();
  }
  // How many bytes have come so far; 0 once the text is complete.
  [[nodiscard]] std::size_t position() const noexcept { return position_; }
  [[nodiscard]] std::size_t size() const noexcept { return bytes_.size(); }
  // What has come so far.
  [[nodiscard]] String8 text() const { return String8(bytes_); }

 private:
  std::string bytes_;
  std::size_t position_ = 0;
};

// What a name is compared with and joined to without being made into a text first.
template <class T>
concept PlainText = std::convertible_to<T const&, std::string_view>;

// A text used as a name or key: compares by identity, then hash, then bytes.
class ZOL_EXPORT Name {
 public:
  Name() noexcept = default;
  // A name of these bytes.
  Name(char const* text) : text_(text) {}
  Name(std::string_view text) : text_(text) {}
  Name(std::string const& text) : text_(text) {}
  Name(String8 text) noexcept : text_(std::move(text)) {}

  // The name as a text.
  operator String8 const&() const noexcept { return text_; }
  // The bytes, as of the text.
  [[nodiscard]] std::string_view view() const noexcept { return text_.view(); }
  [[nodiscard]] std::size_t size() const noexcept { return text_.size(); }
  // True for the name without bytes.
  [[nodiscard]] bool empty() const noexcept { return text_.empty(); }
  // The hash of the text, kept once it is known.
  [[nodiscard]] std::uint32_t hash() const noexcept { return text_.hash(); }

  friend bool operator==(Name const& a, Name const& b) noexcept { return a.text_ == b.text_; }
  friend bool operator==(Name const& a, String8 const& b) noexcept { return a.text_ == b; }
  template <PlainText T>
  friend bool operator==(Name const& a, T const& b) noexcept {
    return a.view() == std::string_view(b);
  }
  friend std::strong_ordering operator<=>(Name const& a, Name const& b) noexcept {
    return a.text_ <=> b.text_;
  }
  friend std::strong_ordering operator<=>(Name const& a, String8 const& b) noexcept {
    return a.text_ <=> b;
  }
  template <PlainText T>
  friend std::strong_ordering operator<=>(Name const& a, T const& b) noexcept {
    return a.view() <=> std::string_view(b);
  }
  friend String8 operator+(Name const& a, Name const& b) { return a.text_ + b.text_; }
  friend String8 operator+(Name const& a, String8 const& b) { return a.text_ + b; }
  friend String8 operator+(String8 const& a, Name const& b) { return a + b.text_; }
  template <PlainText T>
  friend String8 operator+(Name const& a, T const& b) {
    return a.text_ + String8(std::string_view(b));
  }
  template <PlainText T>
  friend String8 operator+(T const& a, Name const& b) {
    return String8(std::string_view(a)) + b.text_;
  }
  friend std::ostream& operator<<(std::ostream& stream, Name const& name) {
    return stream << name.text_;
  }

  static ZolType* _fwkType();

 private:
  String8 text_;
};

// Makes a text from a printf pattern; for the messages whose pattern is fixed.
[[gnu::format(printf, 1, 2)]] ZOL_EXPORT String8 format(char const* pattern, ...);

}  // namespace Zol
