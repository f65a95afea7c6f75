// A flag word with positions 0 to `bits` less 1.
#pragma once

#include "host/zol/exception.h"

namespace Zol {

template <int bits, class Word>
class BitSet {
 public:
  constexpr BitSet() = default;
  constexpr BitSet(Word word) : word_(word) {}

  // Both throw `InternalException` with "pos>=0 && pos<bits" for a position outside the set.
  void set(int pos) { word_ |= at(pos); }
  void reset(int pos) { word_ &= ~at(pos); }

  [[nodiscard]] constexpr Word word() const { return word_; }
  [[nodiscard]] constexpr bool has(Word flags) const { return (word_ & flags) != 0; }
  void flagsIs(Word flags, bool value) { word_ = value ? (word_ | flags) : (word_ & ~flags); }

  friend constexpr bool operator==(BitSet, BitSet) = default;
  friend constexpr BitSet operator&(BitSet a, BitSet b) { return BitSet(a.word_ & b.word_); }

 private:
  static Word at(int pos) {
    if (pos < 0 || pos >= bits) throwInternalException("pos>=0 && pos<bits");
    return Word{1} << pos;
  }

  Word word_ = 0;
};

}  // namespace Zol
